#pragma once

#include "host/geometry/curve_path.h"

/// Ellipses and splines as paths of straight segments. Drawing units, radians. What cannot be a curve (no axis, numbers
/// that are not finite, knots that do not fit) gives an empty path.

/// An ellipse or a part of one: `center` and `majorAxis` (from the centre to the end of the longer axis) in the world,
/// `ratio` of the shorter axis to it, parameters from `start` to `end` counter-clockwise about `normal` (equal or a
/// whole turn apart: all of it). The chords are no farther from the curve than 1e-5 of the major axis.
CurvePath ellipsePath(const AcGePoint3d& center, const AcGeVector3d& majorAxis, double ratio, double start, double end,
                      const AcGeVector3d& normal = AcGeVector3d::kZAxis);

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
