#pragma once

#include "console/findings/row_file.h"
#include "console/program/dss_session.h"
#include "console/report/report.h"

namespace console
{

/// The codes that a table file has no row for, but that still have a symbol: the table of the DVBD command starts as it
/// was left last.
std::vector<KeptSymbol> keptSymbols(const FeatureCounts& codes, const RowFile& table);

/// Plays a user of the DVBD command with the table file `table`; answers what it did and has saved the drawing.
Report planDrawing(const std::string& table, const DrawOptions& options);

} // namespace console
