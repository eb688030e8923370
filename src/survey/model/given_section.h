#pragma once

#include "survey/model/place.h"

#include <string>
#include <vector>

namespace survey
{

/// A point of a ground line. Metres.
struct SectionPoint
{
    double offset = 0.0; ///< from the alignment, negative to the left
    double elevation = 0.0;
    std::u16string code; ///< of what stands there; empty for bare ground
    Place place;
};

/// A cross-section as it was measured. Metres.
struct GivenSection
{
    static constexpr size_t kNoAlignment = static_cast<size_t>(-1);

    std::u16string name;             ///< may be empty
    size_t alignment = kNoAlignment; ///< index into `Survey::alignments`
    double distance = 0.0;           ///< from the start of the alignment; the station itself where there is none
    bool hasDistance = true;         ///< else only its name is known
    size_t region = 0;               ///< in which the station is counted, from 1; 0 where that is not said
    double skew = 0.0;               ///< radians by which the section is turned from the right angle, clockwise
    std::vector<std::vector<SectionPoint>> ground; ///< pieces between gaps, each by rising offset, one point or more
    std::vector<double> designEdges;               ///< offsets, rising
    Place place;
};

} // namespace survey
