#include "console/script/script_runner.h"

#include "console/report/dialog_json.h"
#include "console/report/drawing_json.h"
#include "console/report/report_parts.h"
#include "console/report/rows_json.h"
#include "console/text/shown_text.h"
#include "host/app/paths.h"
#include "host/ui/dialog.h"
#include "sections/database_cs.h"

#include <algorithm>
#include <charconv>
#include <iostream>

namespace console
{

namespace
{

int number(const std::string& word)
{
    int value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc{} || end != word.data() + word.size())
        throw Failure{"\"" + word + "\" is not a whole number"};
    return value;
}

int paletteColor(const std::string& word)
{
    constexpr int kLast = 256;
    const int color = number(word);
    if (color < 0 || color > kLast)
        throw Failure{word + " is no colour: they are 0 to " + std::to_string(kLast)};
    return color;
}

bool onOff(const std::string& word)
{
    if (word != "on" && word != "off")
        throw Failure{"\"" + word + "\" is neither on nor off"};
    return word == "on";
}

} // namespace

ScriptRunner::ScriptRunner(Program& program, std::vector<ScriptLine> lines, std::ostream& out)
    : m_program{program}, m_lines{std::move(lines)}, m_out{out}
{
    m_program.frontEnd().onModal = [this](CDialog& dialog) { playUntil(&dialog); };
    if (const AcApDocument* open = m_program.session().documents().curDocument())
        m_drawing = toUtf8(open->fileName());
}

const std::vector<ScriptRunner::Action>& ScriptRunner::actions()
{
    static const std::vector<Action> list = {
        {"open", 1, 1, true, &ScriptRunner::open},       {"save", 0, 1, true, &ScriptRunner::save},
        {"close", 0, 0, true, &ScriptRunner::close},     {"use", 1, 1, true, &ScriptRunner::use},
        {"command", 1, 9, true, &ScriptRunner::command}, {"click", 1, 1, false, &ScriptRunner::click},
        {"set", 2, 2, false, &ScriptRunner::set},        {"choose", 2, 2, false, &ScriptRunner::choose},
        {"tick", 3, 3, false, &ScriptRunner::tick},      {"tab", 1, 1, false, &ScriptRunner::tab},
        {"cell", 3, 3, false, &ScriptRunner::cell},      {"mark", 3, 3, false, &ScriptRunner::mark},
        {"press", 2, 2, false, &ScriptRunner::press},    {"resize", 2, 2, false, &ScriptRunner::resize},
        {"key", 1, 1, false, &ScriptRunner::key},        {"answer", 1, 2, false, &ScriptRunner::answer},
        {"print", 1, 1, false, &ScriptRunner::print},    {"echo", 0, 99, false, &ScriptRunner::echo},
    };
    return list;
}

void ScriptRunner::run()
{
    playUntil(nullptr);
}

/// Plays on until `modal` is closed; to the end of the script for null.
void ScriptRunner::playUntil(const CDialog* modal)
{
    while (m_next < m_lines.size() && (modal == nullptr || modal->isOpen()))
        play(m_lines[m_next++]);
    if (modal != nullptr && modal->isOpen())
        throw Failure{"line " + std::to_string(m_lines.empty() ? 1 : m_lines.back().number) +
                      ": the script ends with a dialog left open"};
}

void ScriptRunner::play(const ScriptLine& line)
{
    const Words words{line.words.begin() + 1, line.words.end()};
    try
    {
        const auto action = std::find_if(actions().begin(), actions().end(),
                                         [&](const Action& each) { return each.name == line.words.front(); });
        if (action == actions().end())
            throw Failure{"there is no action \"" + line.words.front() + "\""};
        if (words.size() < action->leastWords || words.size() > action->mostWords)
            throw Failure{"\"" + line.words.front() + "\" takes another number of words"};
        const CDialog* shown = m_program.frontEnd().currentDialog();
        if (action->outsideDialogs && shown != nullptr && shown->isModal())
            throw Failure{"\"" + line.words.front() + "\" has to wait until the dialog is closed"};
        (this->*action->play)(words);
        m_program.session().runPending();
        m_program.refuseDamage();
        tellSilentFailures(line.number);
    }
    catch (const std::exception& error)
    {
        const std::string place = "line " + std::to_string(line.number) + ": ";
        const std::string reason = error.what();
        // What went wrong in a dialog's own lines has its line already.
        throw Failure{reason.starts_with("line ") ? reason : place + reason};
    }
}

/// Tells what failed since the last action without a word from the module.
void ScriptRunner::tellSilentFailures(size_t line)
{
    std::vector<std::string> failures;
    for (const std::string& path : m_program.session().unwrittenFiles())
        failures.push_back(unkeptNote(path));
    for (const UnreadableSymbol& symbol : unreadableSymbols(m_program.session()))
        failures.push_back(unreadableNote(symbol.reason));
    for (const std::string& failure : failures)
        if (m_told.insert(failure).second)
            std::cerr << shownLine("line " + std::to_string(line) + ": " + failure);
}

CDialog& ScriptRunner::dialog() const
{
    CDialog* dialog = m_program.frontEnd().currentDialog();
    if (dialog == nullptr)
        throw Failure{"no dialog is open"};
    return *dialog;
}

AcApDocument& ScriptRunner::document() const
{
    AcApDocument* document = m_program.session().documents().curDocument();
    if (document == nullptr)
        throw Failure{"no drawing is open"};
    return *document;
}

void ScriptRunner::open(const Words& words)
{
    m_program.open(words[0]);
    m_drawing = words[0];
}

void ScriptRunner::save(const Words& words)
{
    const std::string own = nativePath(document().fileName());
    if (const std::string said = m_program.save(words.empty() ? own : words[0]); !said.empty())
        std::cerr << shownLine(said);
}

void ScriptRunner::close(const Words&)
{
    m_program.session().documents().close(&document());
    const AcApDocument* current = m_program.session().documents().curDocument();
    m_drawing = current != nullptr ? toUtf8(current->fileName()) : std::string{};
}

void ScriptRunner::use(const Words& words)
{
    AcApDocManager& documents = m_program.session().documents();
    const int position = number(words[0]);
    if (position < 1 || static_cast<size_t>(position) > documents.count())
        throw Failure{"there is no drawing " + words[0] + "; open are " + std::to_string(documents.count())};
    documents.setCurrent(documents.at(static_cast<size_t>(position) - 1));
    m_drawing = toUtf8(document().fileName());
}

void ScriptRunner::command(const Words& words)
{
    document();
    std::string line;
    for (const std::string& word : words)
        line += (line.empty() ? "" : " ") + word;
    m_program.command(toUtf16(line));
}

void ScriptRunner::click(const Words& words)
{
    require(dialog().userClick(number(words[0])));
}

void ScriptRunner::set(const Words& words)
{
    require(dialog().userSetText(number(words[0]), toUtf16(words[1])));
}

void ScriptRunner::choose(const Words& words)
{
    require(dialog().userChoose(number(words[0]), toUtf16(words[1])));
}

void ScriptRunner::tick(const Words& words)
{
    require(dialog().userTick(number(words[0]), number(words[1]), onOff(words[2])));
}

void ScriptRunner::tab(const Words& words)
{
    require(dialog().userTab(number(words[0])));
}

void ScriptRunner::cell(const Words& words)
{
    require(dialog().userCell(number(words[0]), number(words[1]), toUtf16(words[2])));
}

void ScriptRunner::mark(const Words& words)
{
    require(dialog().userMark(number(words[0]), number(words[1]), onOff(words[2])));
}

void ScriptRunner::press(const Words& words)
{
    require(dialog().userPress(number(words[0]), number(words[1])));
}

void ScriptRunner::resize(const Words& words)
{
    require(dialog().userResize(number(words[0]), number(words[1])));
}

void ScriptRunner::key(const Words& words)
{
    if (words[0] != "escape" && words[0] != "enter")
        throw Failure{"there is no key \"" + words[0] + "\" (escape or enter)"};
    require(dialog().userKey(words[0] == "enter" ? UserKey::kEnter : UserKey::kEscape));
}

void ScriptRunner::answer(const Words& words)
{
    if (words.size() == 2 && words[0] != "color")
        throw Failure{"an answer is a path, \"color\" and a number, or cancel"};
    if (words.size() == 2)
        m_program.frontEnd().queue({std::nullopt, paletteColor(words[1])});
    else if (words[0] == "cancel")
        m_program.frontEnd().queue({});
    else
        m_program.frontEnd().queue({modulePath(words[0]), std::nullopt});
}

void ScriptRunner::print(const Words& words)
{
    if (words[0] == "dialog")
        m_out << oneLine(dialogJson(dialog())) << '\n';
    else if (words[0] == "rows")
        m_out << oneLine(rowsJson(g_DatabaseCS, m_drawing)) << '\n';
    else if (words[0] == "drawing")
        m_out << oneLine(drawingJson(*document().database())) << '\n';
    else
        throw Failure{"there is nothing to print of the name \"" + words[0] + "\" (dialog, rows or drawing)"};
}

void ScriptRunner::echo(const Words& words)
{
    for (size_t i = 0; i < words.size(); ++i)
        m_out << (i == 0 ? "" : " ") << words[i];
    m_out << '\n';
}

} // namespace console
