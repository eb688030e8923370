#pragma once

#include <cstdint>

namespace survey
{

/// Where something stood: an index into `Survey::files` and a line, counted from 1; line 0 is the file as a whole.
struct Place
{
    uint32_t file = 0;
    uint32_t line = 0;

    bool operator==(const Place&) const = default;
};

} // namespace survey
