#pragma once

#include "survey/surface/section_cut.h"

namespace survey
{

/// The points of a ground line whose numbers a sheet shows: its ends, the middle (offset 0, on the line there), then
/// those where the ground bends most, as far as they stand `leastGap` metres apart. By rising offset. Of a line that
/// was measured the points without a bend are shown too.
std::vector<GroundPoint> labelColumns(const GroundPiece& ground, double leastGap, bool isMeasured);

} // namespace survey
