#include "console/findings/plan_table.h"

#include "host/app/paths.h"
#include "host/ui/dialog.h"
#include "host/ui/grid_ctrl.h"
#include "resources/control_ids.h"
#include "util/numbers.h"

namespace console
{

namespace
{

enum Column
{
    kCode = 0,
    kFile = 1,
    kRotation = 4
};

/// The dialog has a row for each code, in the order in which they are collected.
PlanTable shownTable(const CDialog& dialog)
{
    PlanTable table;
    table.points = CollectCodedPoints();
    std::vector<size_t> counts(table.points.codes.size());
    for (const CodedPoint& point : table.points.points)
        ++counts[point.code];
    const auto* grid = dynamic_cast<const CGridCtrl*>(dialog.GetDlgItem(control_ids::table::kGrid));
    for (int row = 1; grid != nullptr && row <= static_cast<int>(counts.size()); ++row)
    {
        const std::u16string code = grid->GetItemText(row, kCode);
        table.codes.add(kTableCodes, code, grid->GetItemText(row, kFile), counts[static_cast<size_t>(row) - 1]);
        table.rotations[code] = ToReal(grid->GetItemText(row, kRotation));
    }
    return table;
}

} // namespace

void openPlanTable(Program& program, const std::string& table, const PlanTableUse& use)
{
    program.frontEnd().onModal = [&](CDialog& dialog)
    {
        program.frontEnd().queue({modulePath(table), std::nullopt});
        require(dialog.userClick(control_ids::table::kOpenFile));
        if (use(shownTable(dialog)))
            require(dialog.userClick(IDOK));
    };
    program.command(u"DVBD");
    program.frontEnd().onModal = nullptr;
}

} // namespace console
