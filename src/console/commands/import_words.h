#pragma once

#include "console/commands/import_options.h"

namespace CLI
{
class App;
}

namespace console
{

/// The words of the command `import`: survey files, how they are read, and what is made of them.
void declareImport(CLI::App& command, ImportOptions& options);

} // namespace console
