#pragma once

#include "kernel/point3d.h"
#include "survey/model/place.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace survey
{

/// Terrain as triangles, or the points to make them of. Metres.
struct Surface
{
    using Face = std::array<uint32_t, 3>; ///< indexes into `points`, counter-clockwise or clockwise

    std::u16string name;
    AcGePoint3dArray points;
    std::vector<Face> faces; ///< those that are visible; none: to be made of the points
    Place place;
};

} // namespace survey
