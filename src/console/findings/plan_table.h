#pragma once

#include "console/findings/feature_counts.h"
#include "console/program/program.h"
#include "plan/survey.h"

#include <functional>

namespace console
{

/// What the table of the DVBD command shows for the codes of the drawing's survey points.
struct PlanTable
{
    CodedPoints points;
    FeatureCounts codes; ///< of the kind kTableCodes
    std::map<std::u16string, double, LessNoCase> rotations;
};

/// Is given what the table shows with a file loaded; answers whether the table is confirmed.
using PlanTableUse = std::function<bool(PlanTable)>;

/// Plays a user who opens the table of the DVBD command, loads the file `table` into it, and confirms or cancels it.
void openPlanTable(Program& program, const std::string& table, const PlanTableUse& use);

} // namespace console
