#pragma once

#include <string>
#include <string_view>

/// Why the pairs of an entity of class `kind`, of a drawing of `version`, cannot be copied into another drawing without
/// making it unreadable to other programs: a point without its second coordinate, a group code outside the format, a
/// class marker or what else a reader cannot do without missing. Empty when nothing is wrong.
std::string whyUnsound(std::string_view kind, std::string_view pairs, int version);
