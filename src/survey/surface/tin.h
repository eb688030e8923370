#pragma once

#include "survey/model/surface.h"

namespace survey
{

/// Terrain as triangles that is ready to be cut. Metres.
struct Tin
{
    AcGePoint3dArray points;
    std::vector<Surface::Face> faces; ///< indexes into `points`
};

} // namespace survey
