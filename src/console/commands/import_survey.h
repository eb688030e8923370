#pragma once

#include "console/commands/import_options.h"

namespace console
{

/// Makes a drawing of survey files and prints what was read and made. Failure when something cannot be used, unless the
/// user goes on all the same; then nothing is saved.
void runImport(const ImportOptions& options);

} // namespace console
