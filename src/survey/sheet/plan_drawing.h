#pragma once

#include "survey/sheet/drawing_pen.h"
#include "survey/sheet/section_plan.h"

namespace survey
{

/// The layers of the plan.
struct PlanLayers
{
    explicit PlanLayers(DrawingPen& pen);

    std::u16string axis;
    std::u16string sections;
    std::u16string points;
};

/// Draws the alignment's line: straight ones and arcs as they are, clothoids as chords.
void drawAxis(DrawingPen& pen, const PlanLayers& layers, const AlignmentLine& line);

/// Draws the section's line with its name at its right end.
void drawSectionLine(DrawingPen& pen, const PlanLayers& layers, const PlannedSection& section, double halfWidth);

/// Where an alignment's drawing lies, for what is to stand beside it.
AcGeExtents planExtents(const PlannedAlignment& alignment, double halfWidth);

} // namespace survey
