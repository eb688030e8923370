#pragma once

#include "survey/model/place.h"

#include <string>

namespace survey
{

/// What is worth saying of something that was read or made.
enum class FindingKind
{
    kUnusable, ///< something is left out: nothing is written unless the user says so
    kNote      ///< everything is used; the user ought to know how
};

/// One line of the report. `text` is UTF-8 without the place.
struct Finding
{
    FindingKind kind = FindingKind::kUnusable;
    Place first;
    uint32_t lastLine = 0; ///< the last line it is about; never before the first
    std::string text;
};

} // namespace survey
