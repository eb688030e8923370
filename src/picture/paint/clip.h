#pragma once

#include "picture/map2d.h"

#include <vector>

namespace picture
{

/// The part of the way from `a` to `b` inside the box; false when there is none.
bool clipLine(Vertex& a, Vertex& b, const Box2d& box);

/// The loop cut to the box; empty when nothing of it is inside. Areas stay areas of the same rule.
std::vector<Vertex> clipLoop(const std::vector<Vertex>& loop, const Box2d& box);

} // namespace picture
