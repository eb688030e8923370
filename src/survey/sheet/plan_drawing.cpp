#include "survey/sheet/plan_drawing.h"

#include "survey/line/alignment_walk.h"

#include <cmath>
#include <numbers>

namespace survey
{

namespace
{

/// Metres on the ground.
constexpr double kNameHeight = 1.8;
constexpr double kNameGap = 1.0;
constexpr double kChord = 2.0; ///< of a clothoid

void addElement(const AlignmentLine& line, const AlignmentElement& element, std::vector<PathVertex>& vertices)
{
    if (element.startCurvature == element.endCurvature)
    {
        const double turn = element.startCurvature * element.length;
        vertices.push_back({element.start.x, element.start.y, std::tan(turn / 4.0)});
        return;
    }
    const auto chords = static_cast<size_t>(std::max(2.0, std::ceil(element.length / kChord)));
    for (size_t i = 0; i < chords; ++i)
    {
        const double along = element.length * static_cast<double>(i) / static_cast<double>(chords);
        const AcGePoint2d at = pointAt(line, element.startDistance + along);
        vertices.push_back({at.x, at.y});
    }
}

} // namespace

PlanLayers::PlanLayers(DrawingPen& pen)
    : axis{pen.layer(u"TIM_TUYEN", 1, u"CENTER")}, sections{pen.layer(u"COC", 4)}, points{pen.layer(u"DIEM_DO", 30)}
{
}

void drawAxis(DrawingPen& pen, const PlanLayers& layers, const AlignmentLine& line)
{
    std::vector<PathVertex> vertices;
    for (const AlignmentElement& element : line.elements)
        addElement(line, element, vertices);
    const AcGePoint2d end = pointAt(line, lengthOf(line));
    vertices.push_back({end.x, end.y});
    pen.polyline(layers.axis, vertices);
}

void drawSectionLine(DrawingPen& pen, const PlanLayers& layers, const PlannedSection& section, double halfWidth)
{
    pen.line(layers.sections, section.placeOf(-halfWidth), section.placeOf(halfWidth));
    double direction = std::atan2(section.right.y, section.right.x);
    TextLook look{kNameHeight, direction, AcDb::kTextLeft, AcDb::kTextVertMid};
    if (std::abs(direction) > std::numbers::pi / 2.0) // not upside down
    {
        look.rotation = direction - std::copysign(std::numbers::pi, direction);
        look.across = AcDb::kTextRight;
    }
    pen.text(layers.sections, section.placeOf(halfWidth + kNameGap), section.name, look);
}

AcGeExtents planExtents(const PlannedAlignment& alignment, double halfWidth)
{
    constexpr double kNameLength = 25.0;
    AcGeExtents extents;
    const auto add = [&](const AcGePoint2d& place) { extents.addPoint({place.x, place.y, 0.0}); };
    for (const AcGePoint2d& place : chordsOf(*alignment.line, 1.0))
        add(place);
    for (const PlannedSection& section : alignment.sections)
    {
        add(section.placeOf(-halfWidth));
        add(section.placeOf(halfWidth + kNameLength));
    }
    return extents;
}

} // namespace survey
