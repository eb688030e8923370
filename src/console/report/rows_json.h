#pragma once

#include "console/text/json_text.h"

#include <string>

struct DatabaseCS;

namespace console
{

/// Whether a section's scale can be drawn in: a number above 0.
bool isUsableScale(double scale);

/// What the last scan found, as `scan --json` prints it. `drawing` is the path as the user gave it.
Json rowsJson(const DatabaseCS& database, const std::string& drawing);

/// The same for a reader at a terminal: a line for each section and each row.
std::string rowsText(const DatabaseCS& database);

} // namespace console
