#pragma once

#include "survey/read/landxml/context.h"

namespace survey::landxml
{

/// An element of a CoordGeom: one line, arc or clothoid, or the straight ones of an irregular line.
struct Piece
{
    std::vector<AlignmentElement> elements;
    std::vector<Coordinates> joints; ///< of the elements, both ends included
};

/// The geometry of a CoordGeom in its order. What cannot be used becomes a finding that begins with `owner`; a curve
/// that cannot be is straight, what has no length is left out.
std::vector<Piece> readGeometry(Context& context, const pugi::xml_node& coordGeom, const std::string& owner);

} // namespace survey::landxml
