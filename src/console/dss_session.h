#pragma once

#include "console/program.h"
#include "console/report.h"

#include <string>
#include <vector>

class CDialog;
struct ItemReferenceLine;

namespace console
{

/// What the user of `draw` and `erase` asked for.
struct DrawOptions
{
    CommonOptions common;
    std::string output;
    std::string alignment; ///< empty: the first
    std::string sections = "all";
    std::string library; ///< empty: none
    bool nearby = false;
    bool strict = false;
};

/// Plays a user of the DSS dialog: runs the command, chooses an alignment, ticks sections, opens the settings, draws,
/// undoes, closes. Everything it does, someone at the screen could.
class DssSession
{
public:
    /// Runs DSS.
    explicit DssSession(Program& program);

    /// Chooses an alignment, the first one for an empty name. Failure when the drawing has none, or none of that name.
    void choose(const std::string& alignment);
    const ItemReferenceLine& line() const;
    void tick(const std::vector<size_t>& sections);
    /// Opens the settings, loads a feature library when one is given, and confirms.
    void confirmSettings(const std::string& library);
    /// What stood in the general settings where a number should be, as sentences; known once they were confirmed.
    const std::vector<std::string>& wordsForNumbers() const { return m_wordsForNumbers; }
    void draw();
    void undo();
    void close();

private:
    CDialog& dialog() const;
    void click(int id);

    Program& m_program;
    std::u16string m_alignment;
    std::vector<std::string> m_wordsForNumbers;
};

/// The subcommands; each answers what it did and has saved the drawing.
Report drawDrawing(const DrawOptions& options);
Report eraseDrawing(const DrawOptions& options);

} // namespace console
