#pragma once

#include "survey/model/given_section.h"

namespace survey
{

/// Puts the pieces of a ground line, and the points of each, by rising offset. A piece written from right to left is
/// turned round; one that goes back and forth is sorted, points of one offset in their order (a wall's foot and top).
void orderGround(GivenSection& section);

} // namespace survey
