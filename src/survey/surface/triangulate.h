#pragma once

#include "survey/surface/noding.h"
#include "survey/surface/tin.h"

#include <limits>
#include <span>
#include <vector>

namespace survey
{

/// A line along which the terrain bends. Metres; a closed one does not repeat its first vertex.
struct BreakLine
{
    std::span<const AcGePoint3d> vertices;
    bool closed = false;
};

/// What a surface was made of, and what had to be decided on the way.
struct Triangulation
{
    Tin tin; ///< no faces when all points lie on one line
    std::vector<BreakCrossing> crossings;
    size_t merged = 0;            ///< points at the place of an earlier one, which is taken
    size_t conflicts = 0;         ///< of these and of vertices of break lines at such places: those of another height
    double largestConflict = 0.0; ///< metres between two such heights
    size_t leftOut = 0;           ///< points and vertices whose coordinates are no use: not finite, beyond 10^9
};

/// Triangles over the points and the vertices of the break lines, whose segments are edges. Break lines are split where
/// they cross (the height is that of the first) and where they run through points. A triangle that has an edge longer
/// than `maxEdge` metres in the plan which is not on a break line is left out.
Triangulation triangulate(std::span<const AcGePoint3d> points, std::span<const BreakLine> lines,
                          double maxEdge = std::numeric_limits<double>::infinity());

} // namespace survey
