#pragma once

#include "kernel/curve/curve_path.h"

/// The places where two paths meet, in world coordinates, in order along `a`. Both paths are bounded: nothing is
/// extended. Drawing units.
///
/// - Touching counts, end points included. Two places count as the same within `placeTolerance` of the smaller of the
///   two segments that meet there; a place within it of a vertex is that vertex exactly.
/// - A vertex shared by two segments is one point; so is the start of a path that ends where it began.
/// - Segments that lie on one another give no point, unless they only touch with their ends. It is asked of each pair
///   of segments: where a path leaves what it shares with the other, a neighbour of a shared segment may still touch.
/// - Arcs and extrusion directions count. Plane paths in parallel planes meet only in the same plane.
/// - A segment with a coordinate that is not a number, or of `kLargestCoordinate` or more, meets nothing.
AcGePoint3dArray intersect(const CurvePath& a, const CurvePath& b);

/// The same into the caller's array, which is emptied first; level paths need no further memory.
void intersect(const CurvePath& a, const CurvePath& b, AcGePoint3dArray& points);
