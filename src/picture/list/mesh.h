#pragma once

#include "kernel/point3d.h"

#include <string_view>
#include <vector>

struct ObjectRecord;

namespace picture
{

/// Whether the pairs of a POLYLINE say that it is a mesh, of rows and columns or of faces.
bool isMesh(std::string_view pairs);
/// The edges a mesh shows, in the world.
std::vector<AcGePoint3dArray> meshEdges(ObjectRecord& polyline);
/// The visible edges of a 3DFACE.
std::vector<AcGePoint3dArray> faceEdges(std::string_view pairs);

} // namespace picture
