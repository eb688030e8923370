#pragma once

#include "picture/look/looks.h"
#include "picture/map2d.h"

#include <functional>
#include <span>

namespace picture
{

/// Walks a line along the dashes of a linetype, each with its ends; a dot is a dash without length. The pattern is
/// placed so that the line begins and ends with dashes of one length; a line too short for it is one dash. `scale` is
/// page units in a unit of the pattern.
void walkDashes(const Linetype& linetype, double scale, std::span<const Vertex> points, bool closed,
                const std::function<void(std::span<const Vertex>)>& dash);

} // namespace picture
