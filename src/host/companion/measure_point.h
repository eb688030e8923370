#pragma once

#include "host/db/entity/entity.h"

#include <map>

/// A point of a survey: a position and numbered text fields, of which field 1 is the feature code.
class PlxDbPointObj : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS()
    /// The text of a field; empty when the point has none of that number.
    std::u16string Get(int field) const;
    /// Gives a field its text. This and the next change a fresh point.
    Acad::ErrorStatus Set(int field, const std::u16string& text);
    AcGePoint3d GetPoint() const { return m_position; }
    Acad::ErrorStatus SetPoint(const AcGePoint3d& position);
    void addExtents(AcGeExtents& extents) const override;

protected:
    void decode(TagReader& pairs) override;
    void encode(TagWriter& out) const override;

private:
    AcGePoint3d m_position;
    std::map<int, std::u16string> m_fields;
};

/// A measured survey point: what stands in drawings as PLXDBMEASUREPOINTOBJ.
class PlxDbMeasurePointObj : public PlxDbPointObj
{
public:
    ACRX_DECLARE_MEMBERS()

protected:
    void encode(TagWriter& out) const override;
};
