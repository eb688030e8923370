#pragma once

#include "survey/surface/section_cut.h"

namespace survey
{

/// The points of a ground line whose numbers a sheet shows: its ends, the middle (offset 0, on the line there), then
/// those where the ground bends most, as far as they stand `leastGap` metres apart. By rising offset.
std::vector<GroundPoint> labelColumns(const GroundPiece& ground, double leastGap);

} // namespace survey
