#pragma once

#include <string_view>

/// Whether the pairs of an entity of class `kind` can be copied into another drawing without making it unreadable to
/// other programs: every point has its second coordinate, and what a reader cannot do without is there.
bool isSoundEntity(std::string_view kind, std::string_view pairs);
