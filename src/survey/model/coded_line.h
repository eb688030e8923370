#pragma once

#include "kernel/point3d.h"
#include "survey/model/place.h"

#include <string>

namespace survey
{

/// A line of the terrain: a break line, a plan feature, a line of a drawing. Metres.
struct CodedLine
{
    std::u16string name;
    std::u16string description; ///< what it is, in words
    std::u16string coding;      ///< its number or letters in the system of codes of whoever measured it
    AcGePoint3dArray vertices;  ///< curves as chords; two or more; a closed one does not repeat the first
    bool closed = false;
    bool isBreakLine = false;  ///< the terrain bends along it: an edge of a surface
    bool hasElevations = true; ///< else all elevations are 0
    Place place;
};

} // namespace survey
