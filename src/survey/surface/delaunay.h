#pragma once

#include "survey/model/surface.h"
#include "survey/surface/noding.h"

#include <span>
#include <vector>

namespace survey
{

/// The triangles over `points` up to their convex hull, counter-clockwise, with the chords held as edges: nearest to
/// equal angles otherwise (Delaunay). No two points are alike; chords touch at their ends only and run through no
/// other point. Nothing for points that lie on one line.
std::vector<Surface::Face> delaunay(std::span<const GridPoint> points, std::span<const Chord> chords);

} // namespace survey
