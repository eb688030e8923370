#pragma once

#include "survey/read/length_unit.h"

#include <optional>
#include <set>
#include <string>

namespace survey
{

/// What the user says of files that do not say it themselves.
struct ReadOptions
{
    std::optional<LengthUnit> unit; ///< of files without one; metres by default
    std::string encoding;           ///< of text; empty: guessed
    std::string columns;            ///< of point files and section tables, a letter each; empty: guessed
    std::set<std::string> swapped;  ///< paths, as given, of files whose northings are eastings and the reverse
};

} // namespace survey
