#pragma once

#include "console/program.h"
#include "console/report.h"

#include <string>
#include <vector>

namespace console
{

/// Each symbol drawing that could not be read in the session, once, with the reason.
void addUnreadable(Report& report, host::Session& session);

/// A note when the drawing came from a DWG: it was converted, and what that may lose.
void noteConversion(Report& report, const std::string& drawing);

/// Failure for a report that names an unreadable symbol file, when the user asked for that.
void failWhenStrict(const Report& report, bool strict);

/// Adds the folder of a library or table file, and its `symbols` folder, to those in which symbol files are looked for.
void addFoldersOf(const std::string& file, std::vector<std::string>& folders);

} // namespace console
