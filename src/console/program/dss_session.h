#pragma once

#include "console/program/program.h"
#include "console/program/stored_settings.h"

#include <optional>
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
    /// Whether the drawing keeps settings for the alignment.
    bool keepsSettings() const;
    /// Looks for the objects near the sections, within the alignment's distances.
    void lookNearby();
    /// Opens the settings, loads a feature library when one is given, and confirms. What the drawing keeps for the
    /// alignment is in force until another one's settings are confirmed or the dialog is closed, and reaches neither
    /// the user's stored settings nor, by its distances, the objects near the sections.
    void confirmSettings(const std::string& library);
    /// What is to be said of the settings that were confirmed last, as sentences.
    const std::vector<std::string>& settingsNotes() const { return m_settingsNotes; }
    void draw();
    void undo();
    void close();

private:
    CDialog& dialog() const;
    void click(int id);
    void takeKeptSettings();
    void restoreSettings();

    Program& m_program;
    std::u16string m_alignment;
    std::vector<std::string> m_settingsNotes;
    std::optional<std::pair<double, double>> m_lookedWithin; ///< the distances of the last look for nearby objects
    std::optional<StoredSettings> m_stored;                  ///< while what the drawing keeps is in force
};

} // namespace console
