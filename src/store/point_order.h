#pragma once

#include "store/tags.h"

#include <string_view>
#include <vector>

/// An entity's own pairs as they stand, comments left out.
std::vector<Tag> ownTags(std::string_view pairs);

/// The same with the coordinates of each point together: the format lets an entity
/// give its points in any order of codes (10, 11, 20, 21), not every reader takes that. A coordinate belongs to the x
/// of its point that stands last in front of it.
std::vector<Tag> inPointOrder(std::string_view pairs);
