#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// Positions (from 0, rising, each once) that a list such as "1,3-5" (counted from 1) or "all" names among `count`
/// sections. Throws std::runtime_error for a list that is none, or a position out of range.
std::vector<size_t> ParseSectionList(const std::string& list, size_t count);
