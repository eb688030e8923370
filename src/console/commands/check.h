#pragma once

#include "console/program/dss_session.h"
#include "console/report/check_report.h"

namespace console
{

/// What stands in the way of drawing: goes as far as `draw` and `plan` would with the same options (all alignments
/// unless one is chosen; `table` may be empty) and looks at every symbol file, but writes nothing: not the drawing, not
/// the user's settings.
CheckReport checkDrawing(const std::string& table, const DrawOptions& options);

} // namespace console
