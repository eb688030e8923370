#pragma once

#include "desktop/desk/desk.h"
#include "desktop/documents/jobs.h"
#include "desktop/window/ask.h"
#include "desktop/window/gate.h"
#include "desktop/window/theme.h"

#include <QMainWindow>

#include <functional>
#include <string>
#include <vector>

class QLabel;
class QMenu;
class QStackedWidget;
class QTabWidget;

namespace desktop
{

class DocumentTab;
class DrawingView;
class OpenDocument;
struct ReadDrawing;

/// The program's window: drawings in tabs, menus, status bar.
class MainWindow : public QMainWindow
{
public:
    explicit MainWindow(host::SessionOptions options = {});
    ~MainWindow() override;

    Desk& desk() { return m_desk; }
    Gate& gate() { return m_gate; }
    Jobs& jobs() { return m_jobs; }
    QTabWidget& tabs() { return *m_tabs; }

    /// Opens drawings, each in a tab; one that is open already is shown. Waits while something is being done.
    void open(const std::vector<std::string>& paths);
    /// The tab in front; null when there is none.
    DocumentTab* currentTab() const;
    /// The drawing in front; null when there is none, or it is not read yet.
    OpenDocument* currentDocument() const;

    /// Does something the user asked for: nothing else begins meanwhile, and a failure is told.
    void perform(const std::function<void()>& action);
    /// Tells in the status bar.
    void say(const QString& text);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildMenus();
    void buildStatusBar();
    QWidget* buildStartPage();
    QAction* add(QMenu* menu, const char* name, const QString& text, const QKeySequence& keys,
                 const std::function<void()>& action);
    void fillRecent(QMenu& menu);

    void askToOpen();
    void openOne(const std::string& path);
    void read(DocumentTab& tab, Outcome<ReadDrawing> outcome);
    void removeTab(DocumentTab& tab);
    bool closeTab(DocumentTab& tab);
    DocumentTab* tabOf(const std::string& path) const;
    DocumentTab* tabAt(int index) const;
    void frontChanged();
    void showTitles();
    void useTheme(Theme theme);
    void viewMoved(DocumentTab& tab);
    void viewOfHostMoved();

    Gate m_gate;
    Ask m_ask;
    Desk m_desk;
    Theme m_theme;
    QStackedWidget* m_pages;
    QTabWidget* m_tabs;
    QLabel* m_coordinates = nullptr;
    Jobs m_jobs; ///< last: its threads end before what they report to
};

} // namespace desktop
