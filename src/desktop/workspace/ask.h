#pragma once

#include "desktop/workspace/gate.h"

#include <QString>

#include <string>
#include <vector>

class QWidget;

namespace desktop
{

/// The questions that the window asks in boxes of its own. The gate is closed while one is open.
class Ask
{
public:
    Ask(QWidget& parent, Gate& gate) : m_parent{parent}, m_gate{gate} {}

    enum class Saving
    {
        kSave,
        kDiscard,
        kCancel
    };

    void tell(const QString& title, const QString& text, const QString& details = {});
    Saving saveChanges(const QString& name);
    /// The number of the button pressed, from 0; the last one also for Escape and a closed box.
    int choose(const QString& title, const QString& text, const std::vector<QString>& buttons);
    /// Paths of drawings to open.
    std::vector<std::string> drawingsToOpen(const std::string& folder);
    /// Where to save to; empty when the user cancels. `filters` as those of QFileDialog; a name without an ending gets
    /// `ending` (without its dot).
    std::string fileToSave(const QString& title, const std::string& proposal, const QString& filters,
                           const QString& ending);

private:
    QWidget& m_parent;
    Gate& m_gate;
};

} // namespace desktop
