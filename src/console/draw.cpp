#include "console/dss_session.h"
#include "console/report_parts.h"
#include "console/section_list.h"
#include "host/app/paths.h"
#include "host/companion/alignment.h"
#include "host/drawing/database.h"
#include "host/drawing/table_index.h"
#include "sectiondraw/ground_point.h"
#include "sections/database_cs.h"
#include "util/folders.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace console
{

namespace
{

/// Entities of an id list that are still there.
size_t liveCount(const AcDbObjectIdArray& ids)
{
    return static_cast<size_t>(
        std::count_if(ids.begin(), ids.end(), [](AcDbObjectId id) { return !id.isNull() && !id.isErased(); }));
}

/// What each section's record remembers of earlier drawings.
std::vector<size_t> remembered(const ItemReferenceLine& line)
{
    std::vector<size_t> counts(line.m_listCrossSections.size(), 0);
    const AcDbObjectPointer<PlxDbAlignment> alignment{line.m_idAlignment};
    if (alignment)
        for (size_t i = 0; i < std::min(counts.size(), alignment->sections().size()); ++i)
            counts[i] = liveCount(alignment->sections()[i].drawnIds);
    return counts;
}

/// Names of the rows under which the probe finds no ground, each once.
class GroundCheck
{
public:
    explicit GroundCheck(const CrossSectionXdata& section) : m_section{section} {}

    std::vector<std::string> run()
    {
        for (const ListBlockData* rows : {&m_section.m_listBlockData1, &m_section.m_listBlockData2})
            for (const BlockData& row : *rows)
            {
                probe(row.m_strName, row.m_dOffset1);
                if (row.m_dOffset2 != 0.0)
                    probe(row.m_strName, row.m_dOffset2);
            }
        for (const BlockFcode& row : m_section.m_listBlockFcode1)
            probe(row.m_strFcode, row.m_dOffset);
        return {m_names.begin(), m_names.end()};
    }

private:
    void probe(const std::u16string& name, double offset)
    {
        if (!FindGroundPoint(m_section, offset))
            m_names.insert(toUtf8(name));
    }

    const CrossSectionXdata& m_section;
    std::set<std::string> m_names;
};

void countSymbols(const CrossSectionXdata& section, std::map<std::string, size_t>& without)
{
    for (const ListBlockData* rows : {&section.m_listBlockData1, &section.m_listBlockData2})
        for (const BlockData& row : *rows)
            if (row.m_strFile.empty())
                ++without[toUtf8(row.m_strName)];
    for (const BlockFcode& row : section.m_listBlockFcode1)
        if (row.m_strFile.empty())
            ++without[toUtf8(row.m_strFcode)];
}

/// The symbol files of the rows of some sections.
std::vector<std::u16string> symbolFiles(const ItemReferenceLine& line, const std::vector<size_t>& positions)
{
    std::vector<std::u16string> files;
    const auto add = [&files](const auto& rows)
    {
        for (const auto& row : rows)
            files.push_back(row.m_strFile);
    };
    for (const size_t position : positions)
    {
        const CrossSectionXdata& section = line.m_listCrossSections[position];
        add(section.m_listBlockData1);
        add(section.m_listBlockData2);
        add(section.m_listBlockFcode1);
        add(section.m_listBlockFcode2);
    }
    return files;
}

SectionReport sectionReport(AcDbDatabase& database, const CrossSectionXdata& section)
{
    SectionReport report;
    report.name = toUtf8(section.m_strName);
    for (const AcDbObjectId id : section.m_arrDrawnIds)
    {
        if (id.isNull() || id.isErased())
            continue;
        ++report.entities;
        const std::string_view type = database.dxfNameOf(*id.record());
        report.blocks += type == "INSERT" ? 1U : 0U;
        report.labels += type == "TEXT" ? 1U : 0U;
    }
    report.withoutGround = GroundCheck{section}.run();
    return report;
}

std::string settingsFile()
{
    return nativePath(UserDataFolder() + u"\\iniSymbol.cfg");
}

/// What the module passes over in silence and the user would want to know.
void addNotes(Report& report, AcDbDatabase& database)
{
    const DatabaseCS& state = g_DatabaseCS;
    if (state.m_arrDrawFlags.size() == kDrawOptionCount && state.m_arrDrawFlags[kSymbolText] == 1 &&
        !state.m_arrLayerNames[kSymbolText].empty() &&
        database.tables().find("LAYER", state.m_arrLayerNames[kSymbolText]) == nullptr)
        report.notes.push_back("the layer of the name labels, \"" + toUtf8(state.m_arrLayerNames[kSymbolText]) +
                               "\", does not exist: the labels are on the current layer");
    if (!std::filesystem::exists(settingsFile()))
        report.notes.push_back("the settings could not be kept: " + settingsFile() + " cannot be written");
}

} // namespace

Report drawDrawing(const DrawOptions& options)
{
    if (!options.library.empty() && !std::filesystem::is_regular_file(options.library))
        throw Failure{options.library + ": no such library file"};
    CommonOptions common = options.common;
    if (!options.library.empty())
        addFoldersOf(options.library, common.symbolFolders);
    Program program{common};
    AcDbDatabase& database = *program.open(options.common.drawing)->database();
    const bool confirm = !options.library.empty() || !std::filesystem::exists(settingsFile());
    DssSession dss{program, options.alignment};
    const std::vector<size_t> positions = parseSectionList(options.sections, dss.line().m_listCrossSections.size());
    dss.tick(positions);
    if (options.nearby)
        program.command(u"ZE");
    if (confirm)
        dss.confirmSettings(options.library);
    const std::vector<size_t> erased = remembered(dss.line());
    program.prepareSymbols(symbolFiles(dss.line(), positions));
    dss.draw();

    Report report;
    report.drawing = options.common.drawing;
    report.output = options.output;
    report.alignment = toUtf8(dss.line().m_strName);
    report.placed = 0;
    for (const size_t position : positions)
    {
        const CrossSectionXdata& section = dss.line().m_listCrossSections[position];
        SectionReport& part = report.sections.emplace_back(sectionReport(database, section));
        part.erased = erased[position];
        *report.placed += part.entities;
        report.erased += part.erased;
        countSymbols(section, report.withoutSymbol);
    }
    dss.close();
    addUnreadable(report, program.session());
    noteConversion(report, options.common.drawing);
    addNotes(report, database);
    failWhenStrict(report, options.strict);
    program.session().saveCurrent(toUtf16(options.output));
    return report;
}

Report eraseDrawing(const DrawOptions& options)
{
    Program program{options.common};
    program.open(options.common.drawing);
    DssSession dss{program, options.alignment};
    const std::vector<size_t> erased = remembered(dss.line());
    dss.undo();
    Report report;
    report.drawing = options.common.drawing;
    report.output = options.output;
    report.alignment = toUtf8(dss.line().m_strName);
    for (size_t i = 0; i < erased.size(); ++i)
    {
        SectionReport& section = report.sections.emplace_back();
        section.name = toUtf8(dss.line().m_listCrossSections[i].m_strName);
        section.erased = erased[i];
        report.erased += erased[i];
    }
    program.session().saveCurrent(toUtf16(options.output));
    return report;
}

} // namespace console
