#pragma once

#include "console/dss_session.h"
#include "console/feature_counts.h"

#include <functional>

namespace console
{

/// Is given the codes of the drawing's survey points with the files that a table shows for them; answers whether the
/// table is confirmed.
using PlanTableUse = std::function<bool(FeatureCounts)>;

/// Plays a user who opens the table of the DVBD command, loads the file `table` into it, and confirms or cancels it.
void openPlanTable(Program& program, const std::string& table, const PlanTableUse& use);

/// Plays a user of the DVBD command with the table file `table`; answers what it did and has saved the drawing.
Report planDrawing(const std::string& table, const DrawOptions& options);

} // namespace console
