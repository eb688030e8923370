#include "desktop/window/user_actions.h"

#include "desktop/command/command_line.h"
#include "desktop/command/zoom_command.h"
#include "desktop/documents/document_tab.h"
#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/panels/find_bar.h"
#include "desktop/panels/section_actions.h"
#include "desktop/render/picture_actions.h"
#include "desktop/view/drawing_view.h"
#include "desktop/window/main_window.h"
#include "desktop/workspace/recent_files.h"

#include <QAction>
#include <QMenuBar>

namespace desktop
{

namespace
{

/// Something the user can do, from a menu, by keys, or by its name on the command line.
struct UserAction
{
    const char* menu;
    const char* text; ///< in the menu
    const char* name; ///< on the command line; empty: only in the menu
    const char* aliases;
    const char* keys; ///< shortcuts, parted by "; "
    std::function<void(MainWindow&)> act;
    bool needsDrawing = true;
    bool isSeparated = false; ///< from what stands before it in the menu
    bool isChange = false;    ///< of the drawing: it can be taken back
};

void withTab(MainWindow& window, const std::function<void(DocumentTab&)>& act)
{
    if (DocumentTab* tab = window.currentTab(); tab != nullptr && tab->document() != nullptr)
        act(*tab);
}

void sayDialogsComeLater(MainWindow& window)
{
    window.say(msg("The dialogs of this command come with a later version; \"veloxa draw\" and \"veloxa plan\" draw."));
}

void undo(MainWindow& window, bool again)
{
    UndoStack& stack = window.currentDocument()->undo();
    const QString title = again ? stack.redoTitle() : stack.undoTitle();
    if (title.isEmpty())
        return window.say(again ? msg("There is nothing to do again") : msg("There is nothing to take back"));
    again ? stack.redo() : stack.undo();
    window.say((again ? msg("Done again: %1") : msg("Taken back: %1")).arg(title));
}

void listCommands(MainWindow& window)
{
    QStringList lines;
    for (const UserCommand& command : window.interpreter().commands())
        lines << command.name + (command.aliases.isEmpty() ? QString{} : " (" + command.aliases.join(", ") + ")") +
                     " – " + command.says;
    lines.sort();
    window.commandLine().append(lines.join('\n'));
    window.commandLine().showHistory(true);
}

std::vector<UserAction> fileActions()
{
    const char* menu = "&File";
    return {
        {menu, "&Open…", "OPEN", "", "Ctrl+O", [](MainWindow& w) { w.files().askToOpen(); }, false},
        {menu, "&Save", "SAVE", "QSAVE", "Ctrl+S",
         [](MainWindow& w) { withTab(w, [&](DocumentTab& tab) { w.files().save(tab); }); }},
        {menu, "Save &as…", "SAVEAS", "", "Ctrl+Shift+S",
         [](MainWindow& w) { withTab(w, [&](DocumentTab& tab) { w.files().saveAs(tab); }); }},
        {menu, "&Export pictures…", "EXPORT", "", "Ctrl+E",
         [](MainWindow& w) { withTab(w, [&](DocumentTab&) { exportDrawing(w); }); }, true, true},
        {menu, "&Print…", "PRINT", "PLOT", "Ctrl+P",
         [](MainWindow& w) { withTab(w, [&](DocumentTab&) { printDrawing(w); }); }},
        {menu, "&Close", "CLOSE", "", "Ctrl+W; Ctrl+F4",
         [](MainWindow& w)
         {
             if (DocumentTab* tab = w.currentTab())
                 w.files().close(*tab);
         },
         true, true},
    };
}

std::vector<UserAction> editActions()
{
    const char* menu = "&Edit";
    return {
        {menu, "&Take back", "UNDO", "U", "Ctrl+Z",
         [](MainWindow& w) { withTab(w, [&](DocumentTab&) { undo(w, false); }); }},
        {menu, "Do a&gain", "REDO", "", "Ctrl+Y; Ctrl+Shift+Z",
         [](MainWindow& w) { withTab(w, [&](DocumentTab&) { undo(w, true); }); }},
        {menu, "&Find…", "FIND", "TIM", "Ctrl+F", [](MainWindow& w) { w.findBar().start(); }, true, true},
        {menu, "Find &next", "", "", "F3", [](MainWindow& w) { w.findBar().step(1); }},
        {menu, "Find &previous", "", "", "Shift+F3", [](MainWindow& w) { w.findBar().step(-1); }},
    };
}

std::vector<UserAction> viewActions()
{
    const char* menu = "&View";
    return {
        {menu, "Zoom to &all", "", "", "Ctrl+0",
         [](MainWindow& w) { withTab(w, [](DocumentTab& tab) { tab.view().zoomExtents(); }); }},
        {menu, "&Zoom…", "ZOOM", "Z", "", [](MainWindow& w) { startZoom(w, w.interpreter()); }},
        {menu, "Zoom to a &window", "ZW", "", "Ctrl+Shift+W",
         [](MainWindow& w) { withTab(w, [](DocumentTab& tab) { tab.setTool(DrawingView::Tool::kWindow); }); }},
        {menu, "&Measure a distance", "DIST", "DI", "Ctrl+D",
         [](MainWindow& w)
         {
             withTab(w,
                     [&](DocumentTab& tab)
                     {
                         tab.setTool(DrawingView::Tool::kMeasure);
                         w.say(msg("Click the places to measure between; Escape ends"));
                     });
         },
         true, true},
        {menu, "&Cross-sections", "SECTIONS", "TN", "F4", [](MainWindow& w) { w.togglePanel("sectionsPanel"); }, false,
         true},
        {menu, "&Layers", "LAYER", "LA", "F5", [](MainWindow& w) { w.togglePanel("layersPanel"); }, false},
        {menu, "P&roperties", "PROPERTIES", "PR", "F6", [](MainWindow& w) { w.togglePanel("propertiesPanel"); }, false},
        {menu, "Plan and section side &by side", "SPLIT", "", "F7", [](MainWindow& w) { w.sections().toggleSplit(); }},
        {menu, "&Next section", "", "", "PgDown", [](MainWindow& w) { w.sections().step(1); }, true, true},
        {menu, "&Previous section", "", "", "PgUp", [](MainWindow& w) { w.sections().step(-1); }},
        {menu, "Before or after dra&wing", "BEFORE", "", "F8", [](MainWindow& w) { w.sections().toggleDrawn(); }},
        {menu, "&Dark or light", "THEME", "", "F9", [](MainWindow& w) { w.toggleTheme(); }, false, true},
        {menu, "&List of commands done", "HISTORY", "", "F2", [](MainWindow& w) { w.commandLine().toggleHistory(); },
         false},
    };
}

std::vector<UserAction> toolActions()
{
    const char* menu = "&Tools";
    return {
        {menu, "Draw on &cross-sections…", "DSS", "PLX_SV_DSS", "", sayDialogsComeLater},
        {menu, "&Objects near the sections", "ZE", "PLX_SV_ZE", "", sayDialogsComeLater},
        {menu, "Draw on the &plan…", "DVBD", "PLX_SV_DVBD", "", sayDialogsComeLater},
        {menu, "&Erase drawn features", "ERASEDRAWN", "", "", [](MainWindow& w) { w.sections().eraseDrawn(); }, true,
         true, true},
        {"&Help", "&Commands", "HELP", "?", "F1", listCommands, false},
    };
}

/// Menus and what stands in them, made once for a window.
class Menus
{
public:
    explicit Menus(MainWindow& window) : m_window{window} {}

    void add(const UserAction& each)
    {
        QMenu& menu = menuOf(each.menu);
        if (each.isSeparated)
            menu.addSeparator();
        const auto act = [window = &m_window, each]
        {
            if (each.needsDrawing && window->currentTab() == nullptr)
                return window->say(msg("No drawing is open"));
            if (each.isChange)
                window->change(msg(each.text).remove('&'), [&] { each.act(*window); });
            else
                window->perform([&] { each.act(*window); });
        };
        QAction* action = menu.addAction(msg(each.text));
        action->setObjectName(each.text);
        action->setShortcuts(QKeySequence::listFromString(each.keys));
        QObject::connect(action, &QAction::triggered, &m_window, act);
        if (*each.name != '\0')
            m_window.interpreter().add({each.name, QString{each.aliases}.split(',', Qt::SkipEmptyParts),
                                        msg(each.text).remove('&').remove("…"), act});
    }

    QMenu& menuOf(const char* name)
    {
        for (QAction* action : m_window.menuBar()->actions())
            if (action->menu()->objectName() == name)
                return *action->menu();
        QMenu* menu = m_window.menuBar()->addMenu(msg(name));
        menu->setObjectName(name);
        return *menu;
    }

private:
    MainWindow& m_window;
};

void addRecentFiles(MainWindow& window, QMenu& menu)
{
    QMenu* recent = menu.addMenu(msg("Open &recent"));
    const auto fill = [&window, recent]
    {
        recent->clear();
        for (const std::string& path : recentFiles())
            QObject::connect(recent->addAction(shownPath(path).replace('&', "&&")), &QAction::triggered, &window,
                             [&window, path] { window.open({path}); });
        if (recent->isEmpty())
            recent->addAction(msg("None yet"))->setEnabled(false);
    };
    QObject::connect(recent, &QMenu::aboutToShow, &window, fill);
}

void addQuit(MainWindow& window, QMenu& menu)
{
    // Not through the gate's way: the window closes by an event of its own.
    QAction* quit = menu.addAction(msg("&Quit"));
    quit->setShortcut(QKeySequence{"Ctrl+Q"});
    const auto act = [&window] { window.close(); };
    QObject::connect(quit, &QAction::triggered, &window, act);
    window.interpreter().add({"QUIT", {"EXIT"}, msg("&Quit").remove('&'), act});
}

} // namespace

void addUserActions(MainWindow& window)
{
    Menus menus{window};
    for (const auto& group : {fileActions(), editActions(), viewActions(), toolActions()})
        for (const UserAction& each : group)
            menus.add(each);
    addRecentFiles(window, menus.menuOf("&File"));
    addQuit(window, menus.menuOf("&File"));
}

} // namespace desktop
