#include "console/commands/check.h"

#include "console/commands/plan.h"
#include "console/findings/plan_table.h"
#include "console/findings/spaces.h"
#include "console/program/damage.h"
#include "console/report/report_parts.h"
#include "dbkit/symbol_block.h"
#include "files/dxf/drawing_names.h"
#include "host/db/database.h"
#include "host/db/table/symbol_tables.h"
#include "sectiondraw/draw_style.h"
#include "sectiondraw/ground_line.h"
#include "sections/database_cs.h"
#include "store/table_index.h"
#include "util/document_lock.h"

#include <algorithm>
#include <filesystem>
#include <numeric>

namespace console
{

namespace
{

namespace fs = std::filesystem;

/// Lets `action` see the files of a folder; one that cannot be read has none.
template <class Action>
void forEachFile(const fs::path& folder, Action action)
{
    std::error_code error;
    const fs::directory_iterator end;
    for (fs::directory_iterator file{folder, error}; !error && file != end; file.increment(error))
        if (std::error_code unknown; file->is_regular_file(unknown))
            action(file->path());
}

std::string realPath(const fs::path& path)
{
    std::error_code error;
    const fs::path real = fs::canonical(path, error);
    return error ? path.string() : real.string();
}

/// The options of a program that finds all that the user's would, and keeps what it is told in memory.
CommonOptions keepingNothing(const std::string& table, const DrawOptions& options)
{
    CommonOptions common = options.common;
    common.keepsNothing = true;
    for (const std::string* file : {&table, &options.library})
        if (!file->empty())
            addFoldersOf(*file, common.symbolFolders);
    return common;
}

/// The kinds whose symbols the settings that are in force have drawn.
FeatureKinds drawnKinds()
{
    const DrawStyle style = MakeDrawStyle(g_DatabaseCS);
    return {style.symbolBlock.on, style.fcodeBlock.on, style.fcodeBlock.on, true};
}

void checkSection(CheckReport& report, const std::string& alignment, const CrossSectionXdata& section)
{
    const CheckedSection place{alignment, toUtf8(section.m_strName), {}};
    if (!GroundLine(section).isReadable())
        report.withoutGroundLine.push_back(place);
    else if (std::vector<std::string> names = withoutGround(section); !names.empty())
        report.withoutGround.push_back({place.alignment, place.section, std::move(names)});
}

/// What stands in the way of drawing on an alignment as a whole.
void checkAlignment(CheckReport& report, const ItemReferenceLine& line, bool duplicate)
{
    const std::string name = toUtf8(line.m_strName);
    report.alignments.emplace_back(name, line.m_listCrossSections.size());
    if (duplicate)
        report.duplicateAlignments.push_back(name);
    if (!whyUnchangeable(line).empty())
        report.lockedAlignments.push_back(name);
}

/// Takes the user's steps up to drawing on an alignment: nearby objects, settings, library.
void confirmSettings(CheckReport& report, DssSession& dss, const ItemReferenceLine& line, const DrawOptions& options)
{
    if (line.m_strName.empty() || line.m_listCrossSections.empty()) // the dialog opens no settings for it
        return;
    dss.choose(toUtf8(line.m_strName));
    std::vector<size_t> all(line.m_listCrossSections.size());
    std::iota(all.begin(), all.end(), size_t{0});
    dss.tick(all);
    if (options.nearby)
        dss.lookNearby();
    dss.confirmSettings(options.library);
    for (const std::string& note : dss.settingsNotes())
        report.notes.push_back(toUtf8(line.m_strName) + ": " + note);
}

/// Layers that what is drawn would be put on, but that cannot be had.
void checkSettings(CheckReport& report, AcDbDatabase& drawing)
{
    const DrawStyle style = MakeDrawStyle(g_DatabaseCS);
    const std::pair<const char*, const OptionStyle*> options[] = {{"nameLabels", &style.symbolLabel},
                                                                  {"codeLabels", &style.fcodeLabel},
                                                                  {"symbols", &style.symbolBlock},
                                                                  {"codeSymbols", &style.fcodeBlock}};
    for (const auto& [name, option] : options)
        if (option->on && !option->layer.empty() && !isValidSymbolName(option->layer) &&
            drawing.tables().find("LAYER", option->layer) == nullptr)
            report.badLayers.push_back({name, toUtf8(option->layer)});
    noteLabelLayer(report.notes, drawing);
}

/// Takes the user's steps up to drawing on the chosen alignments: nearby objects, settings, library.
void checkSections(CheckReport& report, Program& program, AcDbDatabase& database, const DrawOptions& options)
{
    DssSession dss{program};
    if (!options.alignment.empty())
        dss.choose(options.alignment);
    std::set<std::u16string, LessNoCase> seen;
    for (const ItemReferenceLine& line : g_DatabaseCS.m_listReferenceLines)
    {
        if (!options.alignment.empty() && !equalNoCase(line.m_strName, toUtf16(options.alignment)))
            continue;
        const bool duplicate = !seen.insert(line.m_strName).second;
        checkAlignment(report, line, duplicate);
        if (duplicate) // the dialog acts on the first one
            continue;
        confirmSettings(report, dss, line, options);
        const FeatureKinds drawn = drawnKinds();
        report.sections.add(line, drawn);
        for (const CrossSectionXdata& section : line.m_listCrossSections)
        {
            report.features.add(section);
            report.needed.add(section, drawn);
            checkSection(report, toUtf8(line.m_strName), section);
        }
    }
    checkSettings(report, database);
    dss.close();
}

/// Whether a block of the drawing is taken for a symbol file.
bool standsFor(AcDbDatabase& drawing, const std::u16string& file)
{
    const std::u16string block = SymbolBlockName(file);
    return CanNameSymbolBlock(block) && drawing.tables().find("BLOCK_RECORD", block) != nullptr;
}

/// Reads a symbol file and, where the drawing lacks it, makes it a block, as a drawing run would; of the drawing in
/// memory, which nobody saves. Answers why that failed.
std::string whyUnusable(host::Session& session, AcDbDatabase& drawing, const std::u16string& file)
{
    session.unreadableFiles().clear();
    const std::u16string block = SymbolBlockName(file);
    AcDbDatabase symbol(false, false);
    AcDbObjectId id;
    if (symbol.readDwgFile(file.c_str(), kForReadAndReadShare) == Acad::eOk && !standsFor(drawing, file))
        drawing.insert(id, block.c_str(), &symbol, true);
    return session.unreadableFiles().empty() ? std::string{} : session.unreadableFiles().front().reason;
}

/// Files of the same name become the same block, whatever they hold.
void noteSharedBlocks(CheckReport& report)
{
    std::map<std::u16string, std::map<std::string, std::u16string>, LessNoCase> blocks;
    for (const auto& [path, file] : report.files)
        if (!file.found.empty())
            blocks[SymbolBlockName(path)].emplace(realPath(file.found), path);
    for (const auto& [block, files] : blocks)
    {
        if (files.size() < 2)
            continue;
        std::vector<std::string> paths;
        for (const auto& [found, path] : files)
            paths.push_back(toUtf8(path));
        report.notes.push_back("the symbol files " + joined(paths) + " become the same block, \"" + toUtf8(block) +
                               "\": the one that is drawn first stands for all");
    }
}

void checkFiles(CheckReport& report, Program& program, AcDbDatabase& drawing)
{
    const std::vector<std::u16string> files = report.features.files();
    program.prepareFiles(files);
    host::Session& session = program.session();
    for (const std::u16string& file : files)
        report.files[file] = {session.symbolSearch().find(file).value_or(std::string{}), {}, standsFor(drawing, file)};
    const OpenForWrite lock;
    for (auto& [path, file] : report.files)
        file.reason = whyUnusable(session, drawing, path);
    noteSharedBlocks(report);
}

/// Compares the rows of the library and the table with what the drawing holds.
void checkRows(CheckReport& report, const std::vector<RowFile>& rowFiles, bool nearby)
{
    for (const RowFile& file : rowFiles)
    {
        report.notes.insert(report.notes.end(), file.problems.begin(), file.problems.end());
        for (FileRow& row : file.unused(report.features))
            report.unusedRows.push_back(std::move(row));
    }
    const auto& unused = report.unusedRows;
    if (!nearby && std::any_of(unused.begin(), unused.end(), [](const FileRow& row) { return row.kind == kNames; }))
        report.notes.push_back("objects near the sections were not looked for: rows for them count as used by nothing");
    for (const FeatureKind kind : {kNames, kSectionCodes, kPlanCodes, kTableCodes})
        for (const auto& [name, files] : report.features.kinds[kind])
        {
            const auto none = files.find(u"");
            const auto knows = [kind = kind, &name = name](const RowFile& file)
            { return file.find(kind, name) != nullptr; };
            if (none != files.end() && std::none_of(rowFiles.begin(), rowFiles.end(), knows))
                report.withoutRow.push_back({kind, name, none->second});
        }
}

/// Drawing files beside the library and the table, and in their `symbols` folders, that no row leads to.
void checkUnusedFiles(CheckReport& report, const Program& program, const std::vector<RowFile>& rowFiles)
{
    std::set<std::string> used{realPath(report.drawing)};
    for (const auto& [path, file] : report.files)
        used.insert(realPath(file.found));
    for (const RowFile& rowFile : rowFiles)
        for (const FileRow& row : rowFile.rows)
            if (const auto found = program.session().symbolSearch().find(row.file))
                used.insert(realPath(*found));
    std::vector<std::string> folders;
    for (const std::string* file : {&report.table, &report.library})
        if (!file->empty())
            addFoldersOf(*file, folders);
    std::set<std::string> unused;
    for (const std::string& folder : folders)
        forEachFile(folder,
                    [&](const fs::path& file)
                    {
                        if (std::string path = realPath(file);
                            files::isDrawingName(file.string()) && !used.contains(path))
                            unused.insert(std::move(path));
                    });
    report.unusedFiles.assign(unused.begin(), unused.end());
}

} // namespace

CheckReport checkDrawing(const std::string& table, const DrawOptions& options)
{
    CheckReport report;
    report.drawing = options.common.drawing;
    report.library = options.library;
    report.table = table;
    std::vector<RowFile> rowFiles;
    if (!options.library.empty())
        rowFiles.push_back(readLibraryRows(options.library));
    if (!table.empty())
        rowFiles.push_back(readTableRows(table));

    Program program{keepingNothing(table, options)};
    AcDbDatabase& drawing = *program.open(report.drawing)->database();
    report.layout = shownLayout(drawing);
    noteLayout(report.notes, drawing);
    checkSections(report, program, drawing, options);
    if (!table.empty())
        openPlanTable(program, table,
                      [&](const PlanTable& shown)
                      {
                          report.features.kinds[kTableCodes] = shown.codes.kinds[kTableCodes];
                          report.needed.kinds[kTableCodes] = shown.codes.kinds[kTableCodes];
                          report.features.texts[kTableCodes] = shown.codes.texts[kTableCodes];
                          report.keptSymbols = keptSymbols(shown.codes, rowFiles.back());
                          for (const auto& [code, rotation] : shown.rotations)
                              if (isWideRotation(rotation))
                                  report.wideRotations.push_back({kTableCodes, toUtf8(code), rotation});
                          return false;
                      });
    for (const auto& [row, rotation] : report.sections.wideRotations)
        report.wideRotations.push_back({row.first, toUtf8(row.second), rotation});
    checkFiles(report, program, drawing);
    checkRows(report, rowFiles, options.nearby);
    checkUnusedFiles(report, program, rowFiles);
    program.refuseDamage();
    for (const ItemReferenceLine& line : g_DatabaseCS.m_listReferenceLines)
        noteScale(report.notes, line);
    noteDamaged(report.notes, program.session());
    noteConversion(report.notes, report.drawing, drawing);
    noteIncomplete(report.notes, program.session());
    return report;
}

} // namespace console
