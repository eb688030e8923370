#pragma once

#include "console/program/dss_session.h"
#include "console/report/report.h"

namespace console
{

/// The subcommands; each answers what it did and has saved the drawing.
Report drawDrawing(const DrawOptions& options);
Report eraseDrawing(const DrawOptions& options);

} // namespace console
