#pragma once

#include "host/db/entity/entity.h"

#include <string>
#include <vector>

/// One cross-section as its alignment keeps it. Lengths in drawing units.
struct SectionRecord
{
    std::u16string name;
    AcGePoint3d pointA; ///< ends of the section line in the plan
    AcGePoint3d pointB;
    AcGePoint3d basePoint;      ///< offset 0 on the datum of the section's own drawing
    AcDbObjectId groundLineId;  ///< polyline of that drawing; null when there is none
    AcDbObjectIdArray pointIds; ///< survey points of the section
    std::vector<double> dcOffsets;
    uint16_t flags = 0;         ///< bit 0x02: features have been drawn
    AcDbObjectIdArray drawnIds; ///< what the last drawing placed; null ids may stand among them
};

/// A road centre line with its cross-sections (PLXDBALIGNMENT). Of one that was read from a drawing `flags` and
/// `drawnIds` of its records can be changed while it is open for write, and reach its pairs when it is closed; nothing
/// else changes. What makes one changes a fresh one only.
/// One whose counts do not match what follows them does not open (`eBadDxfSequence`).
class PlxDbAlignment : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS()
    const std::u16string& name() const { return m_name; }
    Acad::ErrorStatus setName(const std::u16string& name);
    /// Scale of the cross-section drawings: drawing units per unit of offset are 1000 over it.
    double scaleValue() const { return m_scaleValue; }
    Acad::ErrorStatus setScaleValue(double scale);
    double extent1() const { return m_extent1; }
    double extent2() const { return m_extent2; }
    Acad::ErrorStatus setExtents(double extent1, double extent2);
    const std::vector<SectionRecord>& sections() const { return m_sections; }
    Acad::ErrorStatus setSections(std::vector<SectionRecord> sections);

    /// Sets bits of a record's flag word. Out of range: nothing happens.
    void setSectionFlag(size_t index, uint16_t bits);
    void setDrawnIds(size_t index, AcDbObjectIdArray ids);
    /// The section lines in the plan.
    std::vector<CurvePath> curves() const override;

protected:
    void decode(TagReader& pairs) override;
    void encode(TagWriter& out) const override;
    void beforeClose() override;

private:
    std::u16string m_name;
    double m_scaleValue = 0.0;
    double m_extent1 = 0.0;
    double m_extent2 = 0.0;
    std::vector<SectionRecord> m_sections;
    std::vector<bool> m_changed; ///< by section, while changes wait for the close
};
