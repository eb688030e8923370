#include "console/commands/commands.h"

#include "console/commands/check.h"
#include "console/commands/draw.h"
#include "console/commands/plan.h"
#include "console/program/damage.h"
#include "console/program/progress.h"
#include "console/program/symbol_folders.h"
#include "console/report/drawing_json.h"
#include "console/report/report_parts.h"
#include "console/report/rows_json.h"
#include "console/report/verdict.h"
#include "console/script/script_runner.h"
#include "console/text/shown_text.h"
#include "disk/read.h"
#include "disk/replace.h"
#include "files/dxf/drawing_names.h"
#include "sections/database_cs.h"
#include "sections/scan.h"

#include <filesystem>
#include <iostream>

namespace console
{

namespace
{

void print(const Json& json)
{
    std::cout << oneLine(json) << '\n';
}

void print(const std::string& text)
{
    std::cout << shownText(text);
}

template <class AnyReport>
void print(const AnyReport& report, bool json)
{
    json ? print(report.json()) : print(report.text());
}

/// The user's folders for symbol files have to be there; those that are added to them need not.
void requireFolders(const CommonOptions& options)
{
    for (const std::string& folder : options.symbolFolders)
        if (std::error_code error; !std::filesystem::is_directory(folder, error))
            throw Failure{folder + (std::filesystem::exists(folder, error) ? ": is not a folder" : ": no such folder")};
}

/// The options of a program that only looks.
CommonOptions looking(CommonOptions options)
{
    options.keepsNothing = true;
    return options;
}

void requireNames(const DrawOptions& options)
{
    requireFolders(options.common);
    files::requireDrawingOutput(options.output);
    disk::requireReplaceable(options.output);
}

std::string foldersText(const std::vector<std::string>& folders)
{
    std::string text;
    for (const std::string& folder : folders)
        text += shownLine(folder + (std::filesystem::is_directory(folder) ? "" : "  (no such folder now)"));
    return text;
}

} // namespace

void runScan(const ScanOptions& options)
{
    const std::string& drawing = options.common.drawing;
    const Progress progress{"scanning " + drawing};
    requireFolders(options.common);
    Program program{looking(options.common)};
    AcDbDatabase& database = *program.open(drawing)->database();
    ScanCrossSections(g_DatabaseCS);
    program.refuseDamage();
    if (options.nearby)
        program.command(u"ZE");
    Notes notes;
    noteLayout(notes, database);
    for (const ItemReferenceLine& line : g_DatabaseCS.m_listReferenceLines)
        noteScale(notes, line);
    noteDamaged(notes, program.session());
    if (!options.common.json)
        return print(rowsText(g_DatabaseCS) + notesText(notes));
    Json rows = rowsJson(g_DatabaseCS, drawing);
    rows["notes"] = notes;
    print(rows);
}

void runDraw(const DrawOptions& options)
{
    const Progress progress{"drawing " + options.common.drawing};
    requireNames(options);
    print(drawDrawing(options), options.common.json);
}

void runErase(const DrawOptions& options)
{
    const Progress progress{"erasing in " + options.common.drawing};
    requireNames(options);
    print(eraseDrawing(options), options.common.json);
}

void runPlan(const TableOptions& options)
{
    const Progress progress{"placing symbols in " + options.draw.common.drawing};
    requireNames(options.draw);
    print(planDrawing(options.table, options.draw), options.draw.common.json);
}

void runCheck(const TableOptions& options)
{
    const Progress progress{"checking " + options.draw.common.drawing};
    requireFolders(options.draw.common);
    const CheckReport report = checkDrawing(options.table, options.draw);
    options.draw.common.json ? print(report.json()) : print(report.text(options.all));
    if (const Verdict verdict = verdictOf(report); options.draw.strict && !verdict.isReady())
        throw Failure{verdict.line()};
}

void runScript(const ScriptOptions& options)
{
    requireFolders(options.common);
    const FileText text = disk::readFile(options.file);
    Program program{options.common};
    if (!options.common.drawing.empty())
        program.open(options.common.drawing);
    ScriptRunner{program, parseScript(text.view()), std::cout}.run();
}

void runInfo(const CommonOptions& options)
{
    requireFolders(options);
    Program program{looking(options)};
    AcDbDatabase& database = *program.open(options.drawing)->database();
    const Json json = infoJson(database, options.drawing, std::filesystem::file_size(options.drawing));
    options.json ? print(json) : print(infoText(json));
}

void runFolders(const FolderOptions& options)
{
    SymbolFolderList list{settingsFolderOf(options.common)};
    for (const std::string& folder : options.removed)
        list.remove(folder);
    for (const std::string& folder : options.added)
        list.add(folder);
    if (!options.added.empty() || !options.removed.empty())
        list.save();
    if (options.common.json)
        print(Json{{"file", list.file()}, {"folders", list.folders()}});
    else
        print(foldersText(list.folders()));
}

} // namespace console
