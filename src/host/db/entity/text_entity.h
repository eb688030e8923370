#pragma once

#include "host/db/entity/entity.h"

/// A single line of text. Its setters change a fresh text; a loaded one answers `eNotImplementedYet`.
class AcDbText : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS()

    std::u16string textString() const { return m_text; }
    Acad::ErrorStatus setTextString(const std::u16string& text);
    double height() const { return m_height; }
    Acad::ErrorStatus setHeight(double height);
    AcDbObjectId textStyle() const { return m_style; }
    Acad::ErrorStatus setTextStyle(AcDbObjectId style);
    AcDb::TextHorzMode horizontalMode() const { return m_horizontal; }
    Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
    AcDb::TextVertMode verticalMode() const { return m_vertical; }
    Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);
    /// Left end of the base line, in the text's own plane.
    AcGePoint3d position() const { return m_position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& point);
    AcGePoint3d alignmentPoint() const { return m_alignment; }
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
    /// Radians.
    double rotation() const { return m_rotation; }
    Acad::ErrorStatus setRotation(double radians);
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
    void addExtents(AcGeExtents& extents) const override;

protected:
    void decode(TagReader& pairs) override;
    void encode(TagWriter& out) const override;

private:
    std::u16string m_text;
    double m_height = 0.0;
    double m_rotation = 0.0;
    AcDbObjectId m_style;
    AcDb::TextHorzMode m_horizontal = AcDb::kTextLeft;
    AcDb::TextVertMode m_vertical = AcDb::kTextBase;
    AcGePoint3d m_position;
    AcGePoint3d m_alignment;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
};
