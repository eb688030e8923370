// A script, played in a folder of its own. A first line "# room N" lets no file there grow beyond N bytes, as on a disk
// that is full.
#include "console/program/program.h"
#include "console/script/script_runner.h"
#include "fuzz/support/check.h"
#include "fuzz/support/desk.h"
#include "fuzz/support/lines.h"
#include "fuzz/support/mutator.h"
#include "fuzz/support/stage.h"
#include "host/db/ledger.h"

#include <array>
#include <charconv>
#include <iostream>
#include <sstream>

namespace
{

constexpr std::string_view kRoom = "# room ";

constexpr std::array<std::string_view, 46> kWords{"\nopen road.dxf\n",
                                                  "\ncommand DSS\n",
                                                  "\ncommand DVBD\n",
                                                  "\ncommand ZE\n",
                                                  "\ncommand zoom e\n",
                                                  "\nclick 1096\n",
                                                  "\nclick 1095\n",
                                                  "\nclick 1094\n",
                                                  "\nclick 1082\n",
                                                  "\nclick 1\n",
                                                  "\nclick 2\n",
                                                  "\nsave\n",
                                                  "\nsave drawn.dxf\n",
                                                  "\nclose\n",
                                                  "\nuse 1\n",
                                                  "\nanswer road.dv\n",
                                                  "\nanswer road.dvbd\n",
                                                  "\nanswer SYMBOL.dxf\n",
                                                  "\nanswer own.dv\n",
                                                  "\nanswer color 30\n",
                                                  "\nanswer cancel\n",
                                                  "\npress 1 1\n",
                                                  "\nmark 1 1 on\n",
                                                  "\ncell 2 2 1.5\n",
                                                  "\ntab 3\n",
                                                  "\nset 1102 6\n",
                                                  "\nchoose 1113 T2\n",
                                                  "\ntick 1099 0 off\n",
                                                  "\nprint dialog\n",
                                                  "\nprint rows\n",
                                                  "\nprint drawing\n",
                                                  "\nkey escape\n",
                                                  "\nresize 900 700\n",
                                                  "\n# room 4000\n",
                                                  "1113",
                                                  "1099",
                                                  "1100",
                                                  "\"",
                                                  "..",
                                                  "../road.dxf",
                                                  "/nowhere/a.dxf",
                                                  "missing.dxf",
                                                  "folder",
                                                  "drawn.pdf",
                                                  "road.dv",
                                                  "on"};

/// What stands in the first line about the room; none for no such line.
std::optional<size_t> roomOf(std::string_view script)
{
    size_t room = 0;
    if (!script.starts_with(kRoom))
        return std::nullopt;
    script.remove_prefix(kRoom.size());
    const bool isNumber = std::from_chars(script.data(), script.data() + script.size(), room).ec == std::errc{};
    return isNumber ? std::optional{room} : std::nullopt;
}

/// The script with no path that leads out of the folder, and what it saves.
std::vector<console::ScriptLine> keptInside(std::vector<console::ScriptLine> lines, Stage& stage)
{
    for (console::ScriptLine& line : lines)
    {
        const std::string& action = line.words.front();
        if (line.words.size() < 2 || (action != "open" && action != "save" && action != "answer"))
            continue;
        std::string& path = line.words[1];
        path.erase(0, path.rfind('/') + 1);
        if (action == "save")
            stage.isSaved(path);
        if (action == "answer")
            stage.isAnswered(path);
    }
    return lines;
}

void mustTellTheLine(std::string_view reason)
{
    constexpr std::string_view kLine = "line ";
    mustHold(reason.starts_with(kLine) && reason.size() > kLine.size() && std::isdigit(reason[kLine.size()]) != 0,
             "what stops a script has its line");
    mustHold(reason.find("exception") == std::string_view::npos, "what stops a script is told in words");
}

void play(std::string_view script, Stage& stage)
{
    console::CommonOptions options;
    options.settingsFolder = stage.settings();
    options.symbolFolders = {stage.work()};
    try
    {
        std::vector<console::ScriptLine> lines = keptInside(console::parseScript(script), stage);
        const Room room{roomOf(script)};
        console::Program program{options};
        std::ostringstream said;
        console::ScriptRunner{program, std::move(lines), said}.run();
    }
    catch (const console::Failure& failure)
    {
        mustTellTheLine(failure.what());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Stage stage;
    ledger() = {};
    play({reinterpret_cast<const char*>(data), size}, stage);
    const std::string left = ledger().describe();
    mustHold(left.empty(), left.c_str());
    stage.mustBeSound();
    return 0;
}

std::string changedInput(std::string_view input, unsigned seed)
{
    return mutateLines(input, ' ', kWords, seed);
}
