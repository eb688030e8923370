#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace console
{

/// Positions (from 0, rising, each once) that a list such as "1,3-5" (counted from 1) or "all" names among `count`
/// sections. Failure for a list that is none, or a position out of range.
std::vector<size_t> parseSectionList(const std::string& list, size_t count);

} // namespace console
