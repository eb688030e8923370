#include "console/commands/draw.h"

#include "console/program/damage.h"
#include "console/report/report_parts.h"
#include "host/app/paths.h"
#include "host/companion/alignment.h"
#include "host/db/database.h"
#include "sectiondraw/draw_style.h"
#include "sections/database_cs.h"
#include "sections/section_list.h"
#include "store/block_index.h"
#include "util/document_lock.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace console
{

namespace
{

/// What earlier drawings left on each section, as far as the alignment remembers it and it is still there.
class EarlierDrawings
{
public:
    explicit EarlierDrawings(const ItemReferenceLine& line) : m_left(line.m_listCrossSections.size())
    {
        const AcDbObjectPointer<PlxDbAlignment> alignment{line.m_idAlignment};
        if (!alignment)
            return;
        for (size_t i = 0; i < std::min(m_left.size(), alignment->sections().size()); ++i)
            std::copy_if(alignment->sections()[i].drawnIds.begin(), alignment->sections()[i].drawnIds.end(),
                         std::back_inserter(m_left[i]), isLive);
    }

    /// How much of it on the section at `position` is gone now.
    size_t erased(size_t position) const { return m_left[position].size() - liveCount(m_left[position]); }

    /// Says how much on the sections at `positions` could not be erased.
    void noteKept(Notes& notes, const std::vector<size_t>& positions) const
    {
        size_t kept = 0;
        for (const size_t position : positions)
            kept += liveCount(m_left[position]);
        if (kept > 0)
            notes.push_back(std::to_string(kept) + " entities of earlier drawings could not be erased (is their layer "
                                                   "locked?) and are no longer remembered");
    }

private:
    std::vector<AcDbObjectIdArray> m_left;
};

/// The dialog's buttons do nothing, without a word, to a drawing that cannot be changed.
void requireChangeable(const ItemReferenceLine& line, AcDbDatabase& database)
{
    if (database.blocks().record(u"*Model_Space") == nullptr)
        throw Failure{"the drawing has no model space among its blocks: nothing can be drawn in it"};
    if (const std::string reason = whyUnchangeable(line); !reason.empty())
        throw Failure{reason};
}

SectionReport sectionReport(AcDbDatabase& database, const CrossSectionXdata& section)
{
    SectionReport report;
    report.name = toUtf8(section.m_strName);
    for (const AcDbObjectId id : section.m_arrDrawnIds)
    {
        if (!isLive(id))
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
    return std::filesystem::exists(settingsFolderOf(options) + "/" + toUtf8(kSettingsFile), error);
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
    DssSession dss{program};
    dss.choose(options.alignment);
    requireChangeable(dss.line(), database);
    const std::vector<size_t> positions = ParseSectionList(options.sections, dss.line().m_listCrossSections.size());
    if (positions.empty())
        throw Failure{"the alignment \"" + toUtf8(dss.line().m_strName) + "\" has no cross-sections"};
    dss.tick(positions);
    if (options.nearby)
        dss.lookNearby();
    if (library || dss.keepsSettings() || !hasSettings(common))
        dss.confirmSettings(options.library);
    const EarlierDrawings earlier{dss.line()};
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
        part.erased = earlier.erased(position);
        *report.placed += part.entities;
        report.erased += part.erased;
    }
    report.withoutSymbol = withoutSymbol(drawn);
    report.unreadable = unreadableSymbols(program.session());
    noteLayout(report.notes, database);
    noteScale(report.notes, dss.line());
    report.notes.insert(report.notes.end(), dss.settingsNotes().begin(), dss.settingsNotes().end());
    earlier.noteKept(report.notes, positions);
    if (library)
        noteRows(report.notes, *library, featuresOfDrawing(), options.nearby);
    addNotes(report.notes, drawn, database);
    noteDamaged(report.notes, program.session());
    dss.close();
    noteConversion(report.notes, options.common.drawing, database);
    noteIncomplete(report.notes, program.session());
    noteUnkept(report.notes, program.session());
    failWhenStrict(report.unreadable, options.strict);
    noteSave(report.notes, program.save(options.output));
    return report;
}

Report eraseDrawing(const DrawOptions& options)
{
    Program program{options.common};
    AcDbDatabase& database = *program.open(options.common.drawing)->database();
    DssSession dss{program};
    dss.choose(options.alignment);
    requireChangeable(dss.line(), database);
    const EarlierDrawings earlier{dss.line()};
    dss.undo();
    Report report;
    report.drawing = options.common.drawing;
    report.output = options.output;
    report.alignment = toUtf8(dss.line().m_strName);
    const std::vector<size_t> all = ParseSectionList("all", dss.line().m_listCrossSections.size());
    for (const size_t position : all)
    {
        SectionReport& section = report.sections.emplace_back();
        section.name = toUtf8(dss.line().m_listCrossSections[position].m_strName);
        section.erased = earlier.erased(position);
        report.erased += section.erased;
    }
    earlier.noteKept(report.notes, all);
    noteDamaged(report.notes, program.session());
    noteSave(report.notes, program.save(options.output));
    return report;
}

} // namespace console
