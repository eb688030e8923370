#include "fuzz/support/road_work.h"

#include "fuzz/support/check.h"
#include "fuzz/support/desk.h"
#include "host/db/database.h"
#include "host/ui/dialog.h"
#include "host/ui/grid_ctrl.h"
#include "resources/control_ids.h"
#include "sectiondraw/veloxa_dlg.h"
#include "store/handle_table.h"

#include <algorithm>
#include <set>

namespace
{

using namespace control_ids::sections;

constexpr int kMostRows = 6;

void drawSections(Desk& desk)
{
    desk.command(u"DSS");
    if (g_pVeloxaDlg == nullptr)
        return;
    desk.command(u"ZE");
    giveSymbols(Desk::modulePath("SYMBOL.dxf"));
    mustBeDone(g_pVeloxaDlg->userClick(kDraw));
    desk.session().runPending();
}

void drawPlan(Desk& desk)
{
    desk.frontEnd().plays.emplace_back(
        [&desk](CDialog& table)
        {
            const auto& grid = dynamic_cast<const CGridCtrl&>(*table.GetDlgItem(control_ids::table::kGrid));
            for (int row = 1; row < std::min(grid.GetRowCount(), kMostRows); ++row)
            {
                desk.frontEnd().files.emplace_back(Desk::modulePath("SYMBOL.dxf"));
                if (!table.userPress(row, 1))
                    desk.frontEnd().files.clear();
            }
            mustBeDone(table.userClick(IDOK));
        });
    desk.command(u"DVBD");
}

/// Whether every object that was not changed stands in the saved drawing as it stood in the file.
void mustKeepTheRest(AcDbDatabase& drawing, AcDbDatabase& saved)
{
    std::set<const ObjectRecord*> changed;
    for (const AcDbDatabase::Change& change : drawing.changes())
        changed.insert(change.record);
    for (const Container& container : drawing.store().containers)
        if (container.kind == Container::kTable)
            changed.insert(container.head);
    const RecordPool& records = drawing.store().records;
    for (size_t at = 0; at < records.size(); ++at)
    {
        const ObjectRecord& record = records[at];
        if (record.handle == 0 || changed.contains(&record) || drawing.handles().find(record.handle) != &record)
            continue;
        const ObjectRecord* kept = saved.handles().find(record.handle);
        mustHold(kept != nullptr && kept->view() == record.view(), "what nobody touched is as it was");
    }
}

} // namespace

void workOnRoad(Desk& desk)
{
    Desk::write("SYMBOL.dxf", kSymbol);
    drawSections(desk);
    drawPlan(desk);
    const std::string bytes = savedAs(desk.drawing());
    const std::unique_ptr<AcDbDatabase> saved = readDrawing(bytes, DrawingReader::Purpose::Drawing);
    mustHold(saved != nullptr, "what is saved can be read");
    mustKeepTheRest(desk.drawing(), *saved);

    mustHold(desk.open(bytes), "what is saved can be opened");
    desk.command(u"DSS");
    if (g_pVeloxaDlg != nullptr)
        mustBeDone(g_pVeloxaDlg->userClick(kUndo));
    mustHold(readDrawing(savedAs(desk.drawing()), DrawingReader::Purpose::Drawing) != nullptr,
             "what is taken back can be read");
}
