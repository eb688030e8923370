#pragma once

#include "kernel/curve/curve_path.h"

/// Splines as paths of straight segments, in drawing units. What cannot be a curve (numbers that are not finite, too
/// few points) gives an empty path.

/// What a drawing tells of a spline. With control points and `knots` (as many as points, and degree + 1 more) the curve
/// is theirs; otherwise one is laid through the fit points. `weights` is empty or as long as the control points.
struct SplineData
{
    int degree = 3;
    bool closed = false;
    std::vector<double> knots;
    AcGePoint3dArray controlPoints;
    std::vector<double> weights;
    AcGePoint3dArray fitPoints;
};

/// The spline with 64 chords between neighbouring knots or fit points, fewer where there are more than 1,000 of these
/// (but 4 at least): on a smooth curve that bends by a right angle between two knots, chords about 1e-4 of their
/// distance away.
CurvePath splinePath(const SplineData& spline);
