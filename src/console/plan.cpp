#include "console/plan.h"

#include "console/report_parts.h"
#include "dbkit/symbol_block.h"
#include "host/companion/measure_point.h"
#include "host/drawing/block_index.h"
#include "host/drawing/block_reference.h"
#include "host/drawing/database.h"
#include "host/drawing/table_index.h"
#include "host/ui/dialog.h"
#include "host/ui/grid_ctrl.h"

#include <map>
#include <set>

namespace console
{

namespace
{

constexpr int kOpenTable = 1095;
constexpr int kTable = 101;
constexpr const char16_t* kPlanLayer = u"DiaVatBinhDo";

using CountByCode = std::map<std::u16string, size_t, LessNoCase>;

/// Lets `action` see the entities of class `T` in model space.
template <class T, class Action>
void forEach(AcDbDatabase& database, Action action)
{
    if (const ObjectRecord* modelSpace = database.blocks().record(u"*Model_Space"))
        for (const AcDbObjectId id : database.blocks().entities(*modelSpace))
            if (const AcDbObjectPointer<T> entity{id}; entity)
                action(*entity);
}

/// What stands on the plan's layer: references, and how many there are by the name of their block.
struct PlanSymbols
{
    AcDbObjectIdArray ids;
    CountByCode counts;
};

PlanSymbols planSymbols(AcDbDatabase& database)
{
    PlanSymbols symbols;
    const auto add = [&](const AcDbBlockReference& reference)
    {
        const ObjectRecord* block = reference.blockTableRecord().record();
        if (block != nullptr && equalNoCase(reference.layer(), kPlanLayer))
        {
            symbols.ids.push_back(reference.objectId());
            ++symbols.counts[nameOfRecord(*block)];
        }
    };
    forEach<AcDbBlockReference>(database, add);
    return symbols;
}

/// Code and symbol file of each row that the table shows.
std::map<std::u16string, std::u16string, LessNoCase> tableFiles(const CDialog& dialog)
{
    std::map<std::u16string, std::u16string, LessNoCase> files;
    const auto* grid = dynamic_cast<const CGridCtrl*>(dialog.GetDlgItem(kTable));
    for (int row = 1; grid != nullptr && row < grid->GetRowCount(); ++row)
        if (const std::u16string code = grid->GetItemText(row, 0); !code.empty())
            files.emplace(code, grid->GetItemText(row, 1));
    return files;
}

/// The codes of the survey points, with the symbol files that a table shows for them.
FeatureCounts pointCodes(AcDbDatabase& database, const CDialog& table)
{
    const auto files = tableFiles(table);
    FeatureCounts codes;
    const auto add = [&](const PlxDbMeasurePointObj& point)
    {
        const std::u16string code = point.Get(1);
        const auto row = files.find(code);
        if (!code.empty())
            codes.add(kTableCodes, code, row == files.end() ? std::u16string{} : row->second);
    };
    forEach<PlxDbMeasurePointObj>(database, add);
    return codes;
}

/// Says how many of the symbols that a run has erased no row of its table placed.
void noteForeign(Notes& notes, const CountByCode& erased, const FeatureCounts& codes)
{
    std::set<std::u16string, LessNoCase> known;
    for (const std::u16string& file : codes.files())
        known.insert(SymbolBlockName(file));
    size_t foreign = 0;
    for (const auto& [block, count] : erased)
        foreign += known.contains(block) ? 0 : count;
    if (foreign > 0)
        notes.push_back(std::to_string(foreign) + " block references on the layer " + toUtf8(kPlanLayer) +
                        " that no row of the table places were erased");
}

void require(const UserAction& action)
{
    if (!action)
        throw Failure{action.reason()};
}

} // namespace

void openPlanTable(Program& program, const std::string& table, const PlanTableUse& use)
{
    program.frontEnd().onModal = [&](CDialog& dialog)
    {
        program.frontEnd().queue({toUtf16(table), std::nullopt});
        require(dialog.userClick(kOpenTable));
        AcDbDatabase& database = *program.session().documents().curDocument()->database();
        if (use(pointCodes(database, dialog)))
            require(dialog.userClick(IDOK));
    };
    program.command(u"DVBD");
    program.frontEnd().onModal = nullptr;
}

Report planDrawing(const std::string& table, const DrawOptions& options)
{
    const RowFile rows = readTableRows(table);
    CommonOptions common = options.common;
    addFoldersOf(table, common.symbolFolders);
    Program program{common};
    AcDbDatabase& database = *program.open(common.drawing)->database();
    const PlanSymbols before = planSymbols(database);
    FeatureCounts codes;
    openPlanTable(program, table,
                  [&](FeatureCounts found)
                  {
                      codes = std::move(found);
                      program.prepareSymbols(codes.files());
                      return true;
                  });

    Report report;
    report.drawing = common.drawing;
    report.output = options.output;
    const size_t kept = liveCount(before.ids);
    report.placed = planSymbols(database).ids.size() - kept;
    report.erased = before.ids.size() - kept;
    for (const auto& [code, files] : codes.kinds[kTableCodes])
        if (const auto none = files.find(u""); none != files.end())
            report.withoutSymbol[toUtf8(code)] = none->second;
    report.unreadable = unreadableSymbols(program.session());
    if (kept > 0)
        report.notes.push_back(std::to_string(kept) + " symbols of earlier runs could not be erased (is the layer " +
                               toUtf8(kPlanLayer) + " locked?) and stand beside the new ones");
    else
        noteForeign(report.notes, before.counts, codes);
    noteRows(report.notes, rows, codes, true);
    noteLostTexts(report.notes, codes, kTableCodes, "the code");
    noteUnkept(report.notes, program.session());
    noteConversion(report.notes, options.common.drawing);
    if (!report.unreadable.empty())
        report.notes.push_back(
            "a symbol file that cannot be read ends the placing: the points behind it have no symbol");
    failWhenStrict(report.unreadable, options.strict);
    program.session().saveCurrent(toUtf16(options.output));
    return report;
}

} // namespace console
