#pragma once

#include "kernel/point2d.h"
#include "survey/model/place.h"

#include <string>
#include <vector>

namespace survey
{

/// A piece of an alignment in the plan whose curvature changes evenly from its start to its end: a straight one (0 and
/// 0), an arc (both the same), a clothoid. Metres; angles in radians, counter-clockwise from east; a curvature is 1
/// over the radius, positive to the left.
struct AlignmentElement
{
    AcGePoint2d start;
    double direction = 0.0; ///< at the start
    double startCurvature = 0.0;
    double endCurvature = 0.0;
    double length = 0.0;        ///< more than 0
    double startDistance = 0.0; ///< from the start of the alignment
    Place place;
};

/// Where the stations begin to count anew.
struct StationEquation
{
    double distance = 0.0;  ///< from the start of the alignment
    double ahead = 0.0;     ///< station from here on
    bool increasing = true; ///< else stations fall along the line
    Place place;
};

/// A road's line in the plan and how its stations are counted.
struct AlignmentLine
{
    std::u16string name;
    std::vector<AlignmentElement> elements; ///< one or more, each begins where the one before it ends
    double startStation = 0.0;
    std::vector<StationEquation> equations; ///< by rising distance
    Place place;
};

} // namespace survey
