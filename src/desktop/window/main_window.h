#pragma once

#include "desktop/command/interpreter.h"
#include "desktop/desk/desk.h"
#include "desktop/documents/file_actions.h"
#include "desktop/window/theme.h"
#include "desktop/workspace/workspace.h"

#include <QMainWindow>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QLabel;
class QStackedWidget;
class QTabWidget;

namespace desktop
{

class CommandLine;
class DocumentTab;
class DrawingView;
class FindBar;
class LayerPanel;
class OpenDocument;
class PropertyPanel;
class Recovery;
class SectionActions;
class SectionPanel;

/// The program's window: drawings in tabs, with the panels beside them and the command line below. What the parts of
/// the window have to do with one another goes through here.
class MainWindow : public QMainWindow, public Workspace
{
public:
    explicit MainWindow(host::SessionOptions options = {});
    ~MainWindow() override;

    FileActions& files() { return m_files; }
    Recovery& recovery() { return *m_recovery; }
    Interpreter& interpreter() { return m_interpreter; }
    CommandLine& commandLine() { return *m_commandLine; }
    FindBar& findBar() { return *m_findBar; }
    SectionActions& sections() { return *m_sectionActions; }
    QTabWidget& tabs() { return *m_tabs; }

    /// Opens drawings, each in a tab; one that is open already is shown. Waits while something is being done.
    void open(const std::vector<std::string>& paths);

    void perform(const std::function<void()>& action) override;
    void change(const QString& title, const std::function<void()>& action) override;
    void say(const QString& text) override;
    host::Session& session() override { return m_desk.session(); }
    DocumentTab* currentTab() const override;
    std::vector<DocumentTab*> openTabs() const override;
    DocumentTab* tabOf(const std::string& path) const override;
    DocumentTab& addTab(const std::string& path) override;
    void showTab(DocumentTab& tab) override;
    void removeTab(DocumentTab& tab) override;
    void opened(DocumentTab& tab) override;
    void saved(DocumentTab& tab) override;
    /// The drawing in front; null when there is none, or it is not read yet.
    OpenDocument* currentDocument() const;

    void select(AcDbObjectId entity);
    /// Gives up what is begun: a question of a command, a tool, the selection.
    void escape();
    void toggleTheme();
    /// In front of other windows.
    void comeUp();
    /// Shows a panel by its name, or hides it.
    void togglePanel(const char* name);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildCentre();
    void buildPanels();
    void buildStatusBar();
    void connectCommandLine();
    void connectFindBar();
    void connectTab(DocumentTab& tab);
    void connectView(DocumentTab& tab, DrawingView& view);
    void showPlace(DocumentTab& tab, const DrawingView& view, double x, double y);
    void refreshPanels();
    bool meansCommandLine(const QKeyEvent& key) const;
    DocumentTab* tabAt(int index) const;
    void frontChanged();
    void focusDrawing();
    void showTitles();
    void drawingsMayHaveChanged();
    void picked(AcDbObjectId entity, double x, double y);
    void boxed(DocumentTab& tab, const Box2d& box, bool isCrossing);

    Desk m_desk;
    Theme m_theme;
    Interpreter m_interpreter;
    QStackedWidget* m_pages = nullptr;
    QTabWidget* m_tabs = nullptr;
    CommandLine* m_commandLine = nullptr;
    FindBar* m_findBar = nullptr;
    PropertyPanel* m_properties = nullptr;
    LayerPanel* m_layers = nullptr;
    SectionPanel* m_sectionPanel = nullptr;
    std::unique_ptr<SectionActions> m_sectionActions;
    std::unique_ptr<Recovery> m_recovery;
    QLabel* m_sectionName = nullptr;
    QLabel* m_coordinates = nullptr;
    QLabel* m_measured = nullptr;
    QLabel* m_place = nullptr;
    bool m_hostViewMoved = false; ///< by a command, and not shown yet
    FileActions m_files;
};

} // namespace desktop
