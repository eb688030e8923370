#pragma once

#include "kernel/point3d.h"
#include "survey/model/place.h"

#include <string>
#include <vector>

namespace survey
{

/// A measured point. Metres.
struct Point
{
    std::u16string name;
    std::vector<std::u16string> codes; ///< none, one, or several of one place; never an empty one
    AcGePoint3d position;              ///< easting, northing, elevation
    bool hasElevation = true;          ///< else the elevation is 0
    Place place;
};

} // namespace survey
