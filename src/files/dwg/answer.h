#pragma once

#include "files/dwg/outcome.h"

#include <optional>
#include <string>
#include <string_view>

namespace dwg
{

/// What became of a file in one line, as the converter prints it and the cache keeps it: "ok", followed by the kinds of
/// entities that the DXF lacks, each with its number ("ok ACAD_TABLE 1 LIGHT 2"), or "refused REASON".
std::string answerOf(const Outcome& outcome);

/// The outcome without its DXF; nothing for a line of another form.
std::optional<Outcome> outcomeOf(std::string_view answer);

} // namespace dwg
