#include "console/dss_session.h"
#include "console/report_parts.h"
#include "console/section_list.h"
#include "host/companion/alignment.h"
#include "host/drawing/database.h"
#include "sectiondraw/draw_style.h"
#include "sections/database_cs.h"

#include <algorithm>
#include <filesystem>

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
    report.withoutGround = withoutGround(section);
    return report;
}

/// What all sections of the last scan are about.
FeatureCounts featuresOfDrawing()
{
    FeatureCounts features;
    for (const ItemReferenceLine& line : g_DatabaseCS.m_listReferenceLines)
        for (const CrossSectionXdata& section : line.m_listCrossSections)
            features.add(section);
    return features;
}

/// How often each name or code that the sections show has no symbol.
std::map<std::string, size_t> withoutSymbol(const FeatureCounts& drawn)
{
    std::map<std::string, size_t> without;
    for (const FeatureKind kind : {kNames, kSectionCodes})
        for (const auto& [name, files] : drawn.kinds[kind])
            if (const auto none = files.find(u""); none != files.end())
                without[toUtf8(name)] += none->second;
    return without;
}

bool hasSettings(const CommonOptions& options)
{
    std::error_code error;
    return std::filesystem::exists(settingsFolderOf(options) + "/iniSymbol.cfg", error);
}

/// What the module passes over in silence and the user would want to know.
void addNotes(Notes& notes, const FeatureCounts& drawn, AcDbDatabase& database)
{
    const DrawStyle style = MakeDrawStyle(g_DatabaseCS);
    if (style.symbolLabel.on)
        noteLostTexts(notes, drawn, kNames, "the label");
    if (style.fcodeLabel.on)
        noteLostTexts(notes, drawn, kSectionCodes, "the label");
    noteLabelLayer(notes, database);
}

} // namespace

Report drawDrawing(const DrawOptions& options)
{
    CommonOptions common = options.common;
    std::optional<RowFile> library;
    if (!options.library.empty())
    {
        library = readLibraryRows(options.library);
        addFoldersOf(options.library, common.symbolFolders);
    }
    Program program{common};
    AcDbDatabase& database = *program.open(options.common.drawing)->database();
    const bool confirm = library || !hasSettings(common);
    DssSession dss{program};
    dss.choose(options.alignment);
    const std::vector<size_t> positions = parseSectionList(options.sections, dss.line().m_listCrossSections.size());
    dss.tick(positions);
    if (options.nearby)
        program.command(u"ZE");
    if (confirm)
        dss.confirmSettings(options.library);
    const std::vector<size_t> erased = remembered(dss.line());
    FeatureCounts drawn;
    for (const size_t position : positions)
        drawn.add(dss.line().m_listCrossSections[position]);
    program.prepareSymbols(drawn.files());
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
    }
    report.withoutSymbol = withoutSymbol(drawn);
    report.unreadable = unreadableSymbols(program.session());
    report.notes = dss.wordsForNumbers();
    if (library)
        noteRows(report.notes, *library, featuresOfDrawing(), options.nearby);
    dss.close();
    noteConversion(report.notes, options.common.drawing);
    addNotes(report.notes, drawn, database);
    noteUnkept(report.notes, program.session());
    failWhenStrict(report.unreadable, options.strict);
    program.session().saveCurrent(toUtf16(options.output));
    return report;
}

Report eraseDrawing(const DrawOptions& options)
{
    Program program{options.common};
    program.open(options.common.drawing);
    DssSession dss{program};
    dss.choose(options.alignment);
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
