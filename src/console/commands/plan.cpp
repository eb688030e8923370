#include "console/commands/plan.h"

#include "console/findings/plan_table.h"
#include "console/program/damage.h"
#include "console/report/report_parts.h"
#include "dbkit/symbol_block.h"
#include "host/app/paths.h"
#include "host/companion/alignment.h"
#include "host/db/database.h"
#include "host/db/entity/block_reference.h"
#include "plan/plan_symbols.h"
#include "sections/survey_info.h"
#include "store/table_index.h"

#include <map>
#include <set>
#include <tuple>

namespace console
{

namespace
{

using CountByCode = std::map<std::u16string, size_t, LessNoCase>;

/// How many of the references there are by the name of their block.
CountByCode countByBlock(const AcDbObjectIdArray& references)
{
    CountByCode counts;
    for (const AcDbObjectId id : references)
        if (const AcDbObjectPointer<AcDbBlockReference> reference{id}; reference)
            if (const ObjectRecord* block = reference->blockTableRecord().record())
                ++counts[nameOfRecord(*block)];
    return counts;
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

/// Places of block references, to be asked for exact equals: what is placed at a point stands nowhere else.
class Places
{
public:
    void add(AcDbObjectId id)
    {
        if (const AcDbObjectPointer<AcDbBlockReference> reference{id}; reference)
            m_places.insert(asTuple(reference->position()));
    }
    bool has(const AcGePoint3d& place) const { return m_places.contains(asTuple(place)); }

private:
    static std::tuple<double, double, double> asTuple(const AcGePoint3d& p) { return {p.x, p.y, p.z}; }

    std::set<std::tuple<double, double, double>> m_places;
};

/// Where the drawing of the sections has put symbols, of all alignments.
Places placesOfSections()
{
    AcDbObjectIdArray alignments;
    std::vector<std::u16string> names;
    FindAlignments(alignments, names);
    Places places;
    for (const AcDbObjectId id : alignments)
        if (const AcDbObjectPointer<PlxDbAlignment> alignment{id}; alignment)
            for (const SectionRecord& section : alignment->sections())
                for (const AcDbObjectId drawn : section.drawnIds)
                    if (isLive(drawn))
                        places.add(drawn);
    return places;
}

/// How many points of each code now have two symbols: one of this run, and one that `draw` has placed.
std::map<std::string, size_t> placedTwice(const CodedPoints& points, const AcDbObjectIdArray& placed)
{
    const Places sections = placesOfSections();
    Places plan;
    for (const AcDbObjectId id : placed)
        plan.add(id);
    std::map<std::string, size_t> twice;
    for (const auto& [position, code] : points.points)
        if (sections.has(position) && plan.has(position))
            ++twice[toUtf8(points.codes[code])];
    return twice;
}

} // namespace

std::vector<KeptSymbol> keptSymbols(const FeatureCounts& codes, const RowFile& table)
{
    std::vector<KeptSymbol> kept;
    for (const auto& [code, files] : codes.kinds[kTableCodes])
        for (const auto& [file, count] : files)
            if (!file.empty() && table.find(kTableCodes, code) == nullptr)
                kept.push_back({toUtf8(code), toUtf8(file), count});
    return kept;
}

Report planDrawing(const std::string& table, const DrawOptions& options)
{
    const RowFile rows = readTableRows(table);
    CommonOptions common = options.common;
    addFoldersOf(table, common.symbolFolders);
    Program program{common};
    AcDbDatabase& database = *program.open(common.drawing)->database();
    const AcDbObjectIdArray before = CollectPlanSymbols();
    const CountByCode blocksBefore = countByBlock(before);
    PlanTable shown;
    const FeatureCounts& codes = shown.codes;
    openPlanTable(program, table,
                  [&](PlanTable found)
                  {
                      shown = std::move(found);
                      program.prepareSymbols(codes.files());
                      return true;
                  });

    Report report;
    report.drawing = common.drawing;
    report.output = options.output;
    const AcDbObjectIdArray after = CollectPlanSymbols();
    const size_t kept = liveCount(before);
    report.placed = after.size() - kept;
    report.erased = before.size() - kept;
    report.plan = {keptSymbols(codes, rows), placedTwice(shown.points, after)};
    for (const auto& [code, files] : codes.kinds[kTableCodes])
        if (const auto none = files.find(u""); none != files.end())
            report.withoutSymbol[toUtf8(code)] = none->second;
    report.unreadable = unreadableSymbols(program.session());
    noteLayout(report.notes, database);
    if (kept > 0)
        report.notes.push_back(std::to_string(kept) + " symbols of earlier runs could not be erased (is the layer " +
                               toUtf8(kPlanLayer) + " locked?) and stand beside the new ones");
    else
        noteForeign(report.notes, blocksBefore, codes);
    noteRows(report.notes, rows, codes, true);
    noteLostTexts(report.notes, codes, kTableCodes, "the code");
    noteDamaged(report.notes, program.session());
    noteUnkept(report.notes, program.session());
    noteConversion(report.notes, options.common.drawing, database);
    noteIncomplete(report.notes, program.session());
    if (!report.unreadable.empty())
        report.notes.push_back(
            "a symbol file that cannot be read ends the placing: the points behind it have no symbol");
    failWhenStrict(report.unreadable, options.strict);
    noteSave(report.notes, program.save(options.output));
    return report;
}

} // namespace console
