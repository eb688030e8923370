#pragma once

#include "console/dss_session.h"

namespace console
{

/// Plays a user of the DVBD command with the table file `table`; answers what it did and has saved the drawing.
Report planDrawing(const std::string& table, const DrawOptions& options);

} // namespace console
