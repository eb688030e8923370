#pragma once

#include "survey/surface/snap_grid.h"

#include <span>
#include <vector>

namespace survey
{

/// An order in which points are put into a triangulation with little searching and little undoing: a few spread over
/// the whole surface first, then rounds of many more, each along a curve that fills the plane. The same for the same
/// points.
std::vector<uint32_t> spatialOrder(std::span<const GridPoint> points);

} // namespace survey
