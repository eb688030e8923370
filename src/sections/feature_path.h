#pragma once

#include "kernel/point2d.h"

#include <vector>

class AcDbObject;

/// Fills `path` with the vertices of a polyline in the plan, in order; its start once more at its end when it is
/// closed, but not for a 3-D polyline. Bulges do not count: the path is straight from vertex to vertex. Vertices that
/// cannot be opened are left out, and in a 2-D polyline so is what follows. Empty for any other object.
void CollectFeaturePath(const AcDbObject& polyline, std::vector<AcGePoint2d>& path);
