#include "console/command_line.h"

#include "console/check.h"
#include "console/drawing_json.h"
#include "console/dss_session.h"
#include "console/plan.h"
#include "console/progress.h"
#include "console/report_parts.h"
#include "console/rows_json.h"
#include "console/script_runner.h"
#include "console/symbol_folders.h"
#include "files/file_bytes.h"
#include "sections/database_cs.h"
#include "sections/scan.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>

namespace console
{

namespace
{

constexpr const char* kDescription =
    "Draws the conventional symbols of terrain features onto the cross-sections and the plan of a road drawing (DXF).";

constexpr const char* kFooter =
    "A first session:\n"
    "  veloxa scan road.dxf                                   what is in the drawing\n"
    "  veloxa check road.dxf --library road.dv                what is missing before drawing\n"
    "  veloxa draw road.dxf -o drawn.dxf --library road.dv    draw all sections of the first alignment\n"
    "  veloxa erase drawn.dxf -o clean.dxf                    take it all back\n"
    "Exit status: 0 done, 1 could not be done (standard error says why), 2 wrong usage.";

void addSettings(CLI::App& command, CommonOptions& options)
{
    command.add_flag("--json", options.json, "print the result as one line of JSON");
    command.add_option("--settings", options.settingsFolder, "folder of the settings, in place of the user's own")
        ->type_name("DIR");
}

/// An option that takes a folder each time it is given.
void addFolders(CLI::App& command, const char* name, std::vector<std::string>& folders, const char* description)
{
    command.add_option(name, folders, description)
        ->type_name("DIR")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void addCommon(CLI::App& command, CommonOptions& options)
{
    command.add_option("drawing", options.drawing, "the drawing, a DXF file of R2000 or newer, or a DWG")->required();
    addSettings(command, options);
    addFolders(command, "--symbols", options.symbolFolders,
               "folder in which symbol files are looked for by name (may be given more than once)");
}

void scan(const CommonOptions& options, bool nearby)
{
    const Progress progress{"scanning " + options.drawing};
    Program program{options};
    program.open(options.drawing);
    ScanCrossSections(g_DatabaseCS);
    if (nearby)
        program.command(u"ZE");
    if (options.json)
        std::cout << oneLine(rowsJson(g_DatabaseCS, options.drawing)) << '\n';
    else
        std::cout << rowsText(g_DatabaseCS);
}

void info(const CommonOptions& options)
{
    Program program{options};
    AcDbDatabase& database = *program.open(options.drawing)->database();
    const Json json = infoJson(database, options.drawing, std::filesystem::file_size(options.drawing));
    std::cout << (options.json ? oneLine(json) + "\n" : infoText(json));
}

void script(const std::string& file, const CommonOptions& options)
{
    const FileText text = files::readFile(file);
    Program program{options};
    if (!options.drawing.empty())
        program.open(options.drawing);
    ScriptRunner{program, parseScript(text.view()), std::cout}.run();
}

/// What the user wants of the list of symbol folders.
struct FolderChanges
{
    std::vector<std::string> added;
    std::vector<std::string> removed;
};

void symbolFolders(const FolderChanges& changes, const CommonOptions& options)
{
    SymbolFolderList list{settingsFolderOf(options)};
    for (const std::string& folder : changes.removed)
        list.remove(folder);
    for (const std::string& folder : changes.added)
        list.add(folder);
    if (!changes.added.empty() || !changes.removed.empty())
        list.save();
    if (options.json)
        std::cout << oneLine({{"file", list.file()}, {"folders", list.folders()}}) << '\n';
    else
        for (const std::string& folder : list.folders())
            std::cout << folder << (std::filesystem::is_directory(folder) ? "\n" : "  (no such folder now)\n");
}

void print(const Report& report, bool json)
{
    std::cout << (json ? oneLine(report.json()) + "\n" : report.text());
}

void check(const std::string& table, const DrawOptions& options)
{
    const CheckReport report = checkDrawing(table, options);
    std::cout << (options.common.json ? oneLine(report.json()) + "\n" : report.text());
    failWhenStrict(report.unreadable(), options.strict);
}

void comesLater(const std::string& what)
{
    throw Failure{what + " is not part of this version yet"};
}

/// Everything the command line can say.
class Arguments
{
public:
    Arguments() : m_app{kDescription, "veloxa"}
    {
        m_app.footer(kFooter);
        m_app.set_version_flag("--version", VELOXA_VERSION);
        m_app.require_subcommand(0, 1);
        m_app.add_option("drawings", m_drawings, "drawings to open in the window");
        addScan();
        addDraw();
        addErase();
        addScript();
        addInfo();
        addPlan();
        addFolderList();
        addCheck();
        addLater("render", "a picture of the drawing");
    }

    CLI::App& app() { return m_app; }
    void run()
    {
        if (m_action)
            m_action();
        else
            comesLater("the desktop window");
    }

private:
    CLI::App& add(const char* name, const char* description, std::function<void()> action)
    {
        CLI::App& command = *m_app.add_subcommand(name, description);
        command.callback([this, action = std::move(action)] { m_action = action; });
        return command;
    }

    void addScan()
    {
        CLI::App& command = add("scan", "list the alignments, their cross-sections and the rows found on each",
                                [this] { scan(m_options.common, m_options.nearby); });
        addCommon(command, m_options.common);
        command.add_flag("--nearby", m_options.nearby, "look for objects near each section too");
    }

    void addOutput(CLI::App& command)
    {
        addCommon(command, m_options.common);
        command.add_option("-o", m_options.output, "where the result is saved; may be the drawing itself")
            ->required()
            ->type_name("OUT");
    }

    void addDraw()
    {
        CLI::App& command = add("draw", "draw the features onto the cross-sections and the plan",
                                [this]
                                {
                                    const Progress progress{"drawing " + m_options.common.drawing};
                                    print(drawDrawing(m_options), m_options.common.json);
                                });
        addOutput(command);
        command.add_option("--alignment", m_options.alignment, "the alignment to draw; the first by default")
            ->type_name("NAME");
        command.add_option("--sections", m_options.sections, "all, or positions counted from 1, such as 1,3-5")
            ->type_name("LIST");
        command.add_option("--library", m_options.library, "feature library that gives names and codes their symbols")
            ->type_name("FILE.dv");
        command.add_flag("--nearby", m_options.nearby, "look for objects near each section first");
        command.add_flag("--strict", m_options.strict, "fail when a symbol file is missing or cannot be read");
    }

    void addErase()
    {
        CLI::App& command = add("erase", "erase what was drawn for all sections of an alignment",
                                [this]
                                {
                                    const Progress progress{"erasing in " + m_options.common.drawing};
                                    print(eraseDrawing(m_options), m_options.common.json);
                                });
        addOutput(command);
        command.add_option("--alignment", m_options.alignment, "the alignment; the first by default")
            ->type_name("NAME");
    }

    void addPlan()
    {
        CLI::App& command = add("plan", "place symbols at all coded survey points of the plan",
                                [this]
                                {
                                    const Progress progress{"placing symbols in " + m_options.common.drawing};
                                    print(planDrawing(m_plan, m_options), m_options.common.json);
                                });
        addOutput(command);
        command.add_option("--table", m_plan, "the plan feature-code table")->required()->type_name("FILE.dvbd");
        command.add_flag("--strict", m_options.strict, "fail when a symbol file is missing or cannot be read");
    }

    void addScript()
    {
        CLI::App& command = add("script", "play a script: commands, clicks and typing without a display",
                                [this] { script(m_script, m_options.common); });
        command.add_option("file", m_script, "the script, one action a line")->required();
        addCommon(command, m_options.common);
        command.get_option("drawing")->required(false);
    }

    void addInfo()
    {
        CLI::App& command = add("info", "version, sizes, counts of entities by type and layer, blocks",
                                [this] { info(m_options.common); });
        addCommon(command, m_options.common);
    }

    void addCheck()
    {
        CLI::App& command = add("check", "tell what is missing before drawing: symbol files, rows, ground lines",
                                [this]
                                {
                                    const Progress progress{"checking " + m_options.common.drawing};
                                    check(m_plan, m_options);
                                });
        addCommon(command, m_options.common);
        command.add_option("--library", m_options.library, "feature library that gives names and codes their symbols")
            ->type_name("FILE.dv");
        command.add_option("--table", m_plan, "plan feature-code table")->type_name("FILE.dvbd");
        command.add_option("--alignment", m_options.alignment, "the alignment to check; all by default")
            ->type_name("NAME");
        command.add_flag("--nearby", m_options.nearby, "look for objects near each section too");
        command.add_flag("--strict", m_options.strict, "fail when a symbol file is missing or cannot be read");
    }

    void addFolderList()
    {
        CLI::App& command =
            add("folders", "show and change the list of folders in which symbol files are always looked for",
                [this] { symbolFolders(m_folders, m_options.common); });
        addSettings(command, m_options.common);
        addFolders(command, "--add", m_folders.added, "folder to put into the list (may be given more than once)");
        addFolders(command, "--remove", m_folders.removed, "folder to take out of it, before any is put in");
    }

    void addLater(const char* name, const char* description)
    {
        CLI::App& command = add(name, description, [name] { comesLater(std::string{"veloxa "} + name); });
        command.allow_extras();
    }

    CLI::App m_app;
    DrawOptions m_options;
    std::vector<std::string> m_drawings;
    std::string m_script;
    std::string m_plan;
    FolderChanges m_folders;
    std::function<void()> m_action;
};

} // namespace

int runCommandLine(int argc, char** argv)
{
    Arguments arguments;
    try
    {
        arguments.app().parse(argc, argv);
        arguments.run();
        std::cout.flush();
        if (!std::cout)
            throw Failure{"standard output could not be written"};
        return 0;
    }
    catch (const CLI::ParseError& error)
    {
        return arguments.app().exit(error) == 0 ? 0 : 2;
    }
    catch (const std::bad_alloc&)
    {
        std::cerr << "veloxa: not enough memory\n";
    }
    catch (const std::exception& error)
    {
        std::cerr << "veloxa: " << error.what() << '\n';
    }
    return 1;
}

} // namespace console
