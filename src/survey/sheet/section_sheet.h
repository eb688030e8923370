#pragma once

#include "survey/sheet/drawing_pen.h"
#include "survey/sheet/section_plan.h"

namespace survey
{

/// The layers of a drawing that cross-sections are drawn on.
struct SheetLayers
{
    explicit SheetLayers(DrawingPen& pen);

    std::u16string ground;
    std::u16string frame;
    std::u16string ordinates;
    std::u16string text;
    std::u16string middle;
};

/// The drawing of one cross-section: ground line over its datum, a ladder of heights, the table below and the title.
/// Lengths are drawing units: millimetres of paper at the section's scale.
class SectionSheet
{
public:
    /// The section must outlive the sheet.
    SectionSheet(const PlannedSection& section, const WriteOptions& options);

    double width() const { return m_right - m_left; }
    double height() const { return m_top - m_bottom; }

    struct Drawn
    {
        AcGePoint3d basePoint; ///< offset 0 on the datum
        AcDbObjectId ground;   ///< null when there is none
    };
    Drawn draw(DrawingPen& pen, const SheetLayers& layers, const AcGePoint2d& upperLeft) const;

private:
    class Sketch;

    const PlannedSection& m_section;
    const GroundPiece* m_ground;
    double m_paperScale; ///< 1 to this
    double m_unit;       ///< drawing units a metre
    double m_datum = 0.0;
    double m_ceiling = 0.0; ///< the highest ground, drawing units above the datum
    double m_left;          ///< from the base point
    double m_right;
    double m_bottom;
    double m_top;
};

/// The height of the datum below a ground line whose lowest point is `lowest`, metres.
double datumBelow(double lowest);

} // namespace survey
