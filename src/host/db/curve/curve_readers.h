#pragma once

#include "kernel/curve/curve_path.h"

#include <string_view>
#include <vector>

/// The kinds of curves that take more than a few values from their pairs. World coordinates; nothing for pairs that
/// make no curve.

/// A loop of a hatch's boundary: one curve, or edges that follow each other, each in either direction.
struct HatchLoop
{
    int kind = 0; ///< bits: 1 external, 2 one polyline, 16 outermost
    std::vector<CurvePath> edges;
};
std::vector<HatchLoop> readHatchLoops(std::string_view pairs);

/// Boundary of a hatch: each of its loops, or each edge of a loop that is made of edges.
std::vector<CurvePath> readHatchBoundary(std::string_view pairs);
/// Whether the boundary of a hatch is all there: as many loops and edges as it says, of kinds that there are.
bool isWholeHatch(std::string_view pairs);

/// A spline as chords along it.
std::vector<CurvePath> readSpline(std::string_view pairs);

/// Part of an ellipse about `center`, by its long half-axis, the ratio of the short one to it and its parameters
/// (radians, counter-clockwise about `normal`).
CurvePath ellipse(const AcGePoint3d& center, const AcGeVector3d& longAxis, double ratio, double from, double to,
                  const AcGeVector3d& normal);
