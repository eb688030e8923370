#include "console/command_line.h"

#include "console/command_words.h"
#include "console/commands/commands.h"
#include "console/commands/import_survey.h"
#include "console/commands/import_words.h"
#include "console/program/desktop_program.h"
#include "console/text/shown_text.h"
#include "store/text/text.h"

#include <CLI/CLI.hpp>
#include <array>
#include <filesystem>
#include <iostream>
#include <sstream>

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

/// What the user typed is no usage of the program: exit status 2.
class WrongUsage : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

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

void addOverwrite(CLI::App& command, CommonOptions& options)
{
    command.add_flag("--overwrite", options.overwrite,
                     "replace a drawing that was changed on disk since it was opened");
}

void addOutput(CLI::App& command, DrawOptions& options)
{
    addCommon(command, options.common);
    command.add_option("-o", options.output, "where the result is saved (.dxf); may be the drawing itself")
        ->required()
        ->type_name("OUT");
    addOverwrite(command, options.common);
}

/// A name from the command line, whose bytes need not be UTF-8.
std::string nameOfBytes(const std::string& bytes)
{
    return toUtf8(lettersForBytes(keepBytes(bytes)));
}

void addAlignment(CLI::App& command, DrawOptions& options, const char* description)
{
    command.add_option("--alignment", options.alignment, description)->type_name("NAME")->transform(nameOfBytes, "");
}

void addLibrary(CLI::App& command, DrawOptions& options)
{
    command.add_option("--library", options.library, "feature library that gives names and codes their symbols")
        ->type_name("FILE.dv");
}

CLI::Option* addTable(CLI::App& command, TableOptions& options)
{
    return command.add_option("--table", options.table, "the plan feature-code table")->type_name("FILE.dvbd");
}

void addNearby(CLI::App& command, bool& nearby)
{
    command.add_flag("--nearby", nearby, "look for objects near each section too");
}

void addStrict(CLI::App& command, DrawOptions& options)
{
    command.add_flag("--strict", options.strict, "fail when a symbol file is missing or cannot be read");
}

void declareScan(CLI::App& command, ScanOptions& options)
{
    addCommon(command, options.common);
    addNearby(command, options.nearby);
}

void declareDraw(CLI::App& command, DrawOptions& options)
{
    addOutput(command, options);
    addAlignment(command, options, "the alignment to draw; the first by default");
    command.add_option("--sections", options.sections, "all, or positions counted from 1, such as 1,3-5")
        ->type_name("LIST");
    addLibrary(command, options);
    addNearby(command, options.nearby);
    addStrict(command, options);
}

void declareErase(CLI::App& command, DrawOptions& options)
{
    addOutput(command, options);
    addAlignment(command, options, "the alignment; the first by default");
}

void declarePlan(CLI::App& command, TableOptions& options)
{
    addOutput(command, options.draw);
    addTable(command, options)->required();
    addStrict(command, options.draw);
}

void declareCheck(CLI::App& command, TableOptions& options)
{
    addCommon(command, options.draw.common);
    addLibrary(command, options.draw);
    addTable(command, options);
    addAlignment(command, options.draw, "the alignment to check; all by default");
    addNearby(command, options.draw.nearby);
    addStrict(command, options.draw);
    command.add_flag("--all", options.all, "print all lists in full");
}

void declareScript(CLI::App& command, ScriptOptions& options)
{
    command.add_option("file", options.file, "the script, one action a line")->required();
    addCommon(command, options.common);
    command.get_option("drawing")->required(false);
    addOverwrite(command, options.common);
}

void declareFolders(CLI::App& command, FolderOptions& options)
{
    addSettings(command, options.common);
    addFolders(command, "--add", options.added, "folder to put into the list (may be given more than once)");
    addFolders(command, "--remove", options.removed, "folder to take out of it, before any is put in");
}

/// Everything the command line can say: each command with its own options and what runs it.
class CommandLine
{
public:
    CommandLine() : m_app{kDescription, "veloxa"}
    {
        m_app.footer(kFooter);
        m_app.set_version_flag("--version", VELOXA_VERSION);
        m_app.require_subcommand(0, 1);
        m_app.add_option("drawings", m_drawings, "drawings to open in the window");
        add("scan", "list the alignments, their cross-sections and the rows found on each", declareScan, runScan);
        add("draw", "draw the features onto the cross-sections and the plan", declareDraw, runDraw);
        add("erase", "erase what was drawn for all sections of an alignment", declareErase, runErase);
        add("script", "play a script: commands, clicks and typing without a display", declareScript, runScript);
        add("info", "version, sizes, counts of entities by type and layer, blocks", addCommon, runInfo);
        add("plan", "place symbols at all coded survey points of the plan", declarePlan, runPlan);
        add("import", "make a drawing of survey files: LandXML, tables of points or sections, drawings", declareImport,
            runImport);
        add("folders", "show and change the list of folders in which symbol files are always looked for",
            declareFolders, runFolders);
        add("check", "tell what is missing before drawing: symbol files, rows, ground lines", declareCheck, runCheck);
        addRender();
        addHelp();
    }

    /// Takes the words of the command line and does what they say.
    void run(int argc, char** argv)
    {
        if (argc < 2)
            openEmptyWindow(argv);
        if (const std::string first = argv[1]; !first.starts_with('-') && !isFileWord(first))
            if (find(first).get_name() == "render")
                becomeDesktop(argv);
        m_app.parse(argc, argv);
        if (m_action)
            m_action();
        else
            openWindow(argv);
    }

    /// Prints what ended the reading of the words, a help text or a mistake in them; answers the exit status.
    int tell(const CLI::ParseError& end) const
    {
        std::ostringstream message;
        const bool asked = m_app.exit(end, std::cout, message) == 0;
        std::cerr << shownText(message.str());
        return asked ? 0 : 2;
    }

private:
    template <class Options>
    void add(const char* name, const char* description, void (*declare)(CLI::App&, Options&),
             void (*action)(const Options&))
    {
        CLI::App& command = *m_app.add_subcommand(name, description);
        const auto options = std::make_shared<Options>();
        declare(command, *options);
        command.callback([this, options, action] { m_action = [options, action] { action(*options); }; });
    }

    /// Only named here: the program that draws reads its words.
    void addRender() { m_app.add_subcommand("render", "pictures of drawings and their cross-sections: SVG, PDF, PNG"); }

    void addHelp()
    {
        CLI::App& command = *m_app.add_subcommand("help", "this text, or all about one command");
        const auto topic = std::make_shared<std::string>();
        command.add_option("command", *topic, "the command");
        command.callback([this, topic] { m_action = [this, topic] { std::cout << helpOn(*topic); }; });
    }

    std::string helpOn(const std::string& topic)
    {
        if (topic == "render")
        {
            std::array<std::string, 3> words{"veloxa", topic, "--help"};
            std::array<char*, 4> pointers{words[0].data(), words[1].data(), words[2].data(), nullptr};
            becomeDesktop(pointers.data());
        }
        if (!topic.empty())
            return find(topic).help(m_app.get_name());
        // The program's own help() would give that of the command that is running: "help".
        return m_app.get_formatter()->make_help(&m_app, m_app.get_name(), CLI::AppFormatMode::Normal);
    }

    static void openEmptyWindow(char** words)
    {
        if (!hasDisplay())
            throw WrongUsage{"no command (\"veloxa help\" lists them), and no display for the window"};
        becomeDesktop(words);
    }

    void openWindow(char** words) const
    {
        for (const std::string& drawing : m_drawings)
            if (std::error_code error; !std::filesystem::exists(drawing, error))
                throw Failure{drawing + ": no such file"};
        becomeDesktop(words);
    }

    CLI::App& find(const std::string& name)
    {
        std::vector<std::string> names;
        for (CLI::App* command : m_app.get_subcommands([](CLI::App*) { return true; }))
        {
            if (command->get_name() == name)
                return *command;
            names.push_back(command->get_name());
        }
        throw WrongUsage{"unknown command \"" + name + "\"; the nearest is \"" + nearestWord(name, names) +
                         "\" (\"veloxa help\" lists all)"};
    }

    CLI::App m_app;
    std::vector<std::string> m_drawings;
    std::function<void()> m_action;
};

/// One line on standard error.
int failed(std::string_view reason, int status)
{
    std::cerr << shownLine("veloxa: " + std::string{reason});
    return status;
}

} // namespace

int runCommandLine(int argc, char** argv)
{
    CommandLine commandLine;
    try
    {
        commandLine.run(argc, argv);
        std::cout.flush();
        return std::cout ? 0 : failed("standard output could not be written", 1);
    }
    catch (const CLI::ParseError& end)
    {
        return commandLine.tell(end);
    }
    catch (const WrongUsage& wrong)
    {
        return failed(wrong.what(), 2);
    }
    catch (const std::bad_alloc&)
    {
        return failed("not enough memory", 1);
    }
    catch (const std::exception& error)
    {
        return failed(error.what(), 1);
    }
}

} // namespace console
