#pragma once

#include <string>
#include <string_view>

namespace files
{

/// Whether objects of this type say how many of something follow, in a way that is checked on reading.
bool hasCounts(std::string_view dxfName);

/// What is wrong with the counts in an object's pairs; empty when each matches what follows.
std::string checkCounts(std::string_view dxfName, std::string_view pairs);

} // namespace files
