#pragma once

#include "console/program/program.h"
#include "console/script/script.h"

#include <ostream>
#include <set>
#include <string>
#include <vector>

class CDialog;

namespace console
{

/// Plays a script in a program. Failure with the line number when an action cannot be done or a modal dialog is left
/// open at the end.
class ScriptRunner
{
public:
    ScriptRunner(Program& program, std::vector<ScriptLine> lines, std::ostream& out);

    void run();

private:
    using Words = std::vector<std::string>;
    struct Action
    {
        const char* name;
        size_t leastWords;
        size_t mostWords;
        bool outsideDialogs; ///< cannot be done while a modal dialog is open, as at a screen
        void (ScriptRunner::*play)(const Words& words);
    };
    static const std::vector<Action>& actions();

    void playUntil(const CDialog* modal);
    void play(const ScriptLine& line);
    void tellSilentFailures(size_t line);
    CDialog& dialog() const;
    AcApDocument& document() const;

    void open(const Words& words);
    void save(const Words& words);
    void close(const Words& words);
    void use(const Words& words);
    void command(const Words& words);
    void click(const Words& words);
    void set(const Words& words);
    void choose(const Words& words);
    void tick(const Words& words);
    void tab(const Words& words);
    void cell(const Words& words);
    void mark(const Words& words);
    void press(const Words& words);
    void resize(const Words& words);
    void key(const Words& words);
    void answer(const Words& words);
    void print(const Words& words);
    void echo(const Words& words);

    Program& m_program;
    std::vector<ScriptLine> m_lines;
    size_t m_next = 0;
    std::ostream& m_out;
    std::set<std::string> m_told; ///< on standard error, each once
    std::string m_drawing;        ///< path of the current drawing as the script gave it
};

} // namespace console
