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

#include <filesystem>
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

/// How often `nameOf` answers each name for the entities of class `T` in model space; an empty one does not count.
template <class T, class NameOf>
CountByCode countEach(AcDbDatabase& database, NameOf nameOf)
{
    CountByCode counts;
    const ObjectRecord* modelSpace = database.blocks().record(u"*Model_Space");
    if (modelSpace == nullptr)
        return counts;
    for (const AcDbObjectId id : database.blocks().entities(*modelSpace))
        if (const AcDbObjectPointer<T> entity{id}; entity)
            if (const std::u16string name = nameOf(*entity); !name.empty())
                ++counts[name];
    return counts;
}

/// What stands on the plan's layer: references by the name of their block.
CountByCode planSymbols(AcDbDatabase& database)
{
    return countEach<AcDbBlockReference>(database,
                                         [](const AcDbBlockReference& reference)
                                         {
                                             const ObjectRecord* block = reference.blockTableRecord().record();
                                             return block != nullptr && equalNoCase(reference.layer(), kPlanLayer)
                                                        ? nameOfRecord(*block)
                                                        : std::u16string{};
                                         });
}

CountByCode pointCodes(AcDbDatabase& database)
{
    return countEach<PlxDbMeasurePointObj>(database, [](const PlxDbMeasurePointObj& point) { return point.Get(1); });
}

size_t total(const CountByCode& counts)
{
    size_t sum = 0;
    for (const auto& [name, count] : counts)
        sum += count;
    return sum;
}

/// Code and symbol file of each row that the confirmed table shows.
std::map<std::u16string, std::u16string, LessNoCase> tableFiles(CDialog& dialog)
{
    std::map<std::u16string, std::u16string, LessNoCase> files;
    const auto* grid = dynamic_cast<const CGridCtrl*>(dialog.GetDlgItem(kTable));
    for (int row = 1; grid != nullptr && row < grid->GetRowCount(); ++row)
        if (const std::u16string code = grid->GetItemText(row, 0); !code.empty())
            files.emplace(code, grid->GetItemText(row, 1));
    return files;
}

void require(const UserAction& action)
{
    if (!action)
        throw Failure{action.reason()};
}

} // namespace

Report planDrawing(const std::string& table, const DrawOptions& options)
{
    if (!std::filesystem::is_regular_file(table))
        throw Failure{table + ": no such table file"};
    CommonOptions common = options.common;
    addFoldersOf(table, common.symbolFolders);
    Program program{common};
    AcDbDatabase& database = *program.open(common.drawing)->database();
    const CountByCode before = planSymbols(database);
    std::map<std::u16string, std::u16string, LessNoCase> files;
    program.frontEnd().onModal = [&](CDialog& dialog)
    {
        program.frontEnd().queue({toUtf16(table), std::nullopt});
        require(dialog.userClick(kOpenTable));
        files = tableFiles(dialog);
        std::vector<std::u16string> paths;
        paths.reserve(files.size());
        for (const auto& [code, file] : files)
            paths.push_back(file);
        program.prepareSymbols(paths);
        require(dialog.userClick(IDOK));
    };
    program.command(u"DVBD");

    Report report;
    report.drawing = common.drawing;
    report.output = options.output;
    report.placed = total(planSymbols(database));
    report.erased = total(before);
    std::set<std::u16string, LessNoCase> known;
    for (const auto& [code, file] : files)
        known.insert(SymbolBlockName(file));
    size_t foreign = 0;
    for (const auto& [block, count] : before)
        foreign += known.contains(block) ? 0 : count;
    if (foreign > 0)
        report.notes.push_back(std::to_string(foreign) + " block references on the layer " + toUtf8(kPlanLayer) +
                               " that no row of the table places were erased");
    for (const auto& [code, count] : pointCodes(database))
        if (const auto row = files.find(code); row == files.end() || row->second.empty())
            report.withoutSymbol[toUtf8(code)] += count;
    addUnreadable(report, program.session());
    noteConversion(report, options.common.drawing);
    if (!report.unreadable.empty())
        report.notes.push_back(
            "a symbol file that cannot be read ends the placing: the points behind it have no symbol");
    failWhenStrict(report, options.strict);
    program.session().saveCurrent(toUtf16(options.output));
    return report;
}

} // namespace console
