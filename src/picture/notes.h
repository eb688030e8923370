#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>

namespace picture
{

/// What a picture does not show as the drawing has it, for the programs to tell.
struct Notes
{
    std::map<std::string, size_t> undrawn; ///< entities by kind
    std::set<std::string> texts;           ///< one line each, UTF-8
};

} // namespace picture
