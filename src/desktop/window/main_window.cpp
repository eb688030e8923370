#include "desktop/window/main_window.h"

#include "desktop/command/command_line.h"
#include "desktop/documents/document_tab.h"
#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/panels/find_bar.h"
#include "desktop/panels/layer_panel.h"
#include "desktop/panels/palette_dialog.h"
#include "desktop/panels/property_panel.h"
#include "desktop/panels/section_actions.h"
#include "desktop/recovery/recovery.h"
#include "desktop/view/drawing_view.h"
#include "disk/replace.h"
#include "picture/page/sections.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace desktop
{

namespace
{

std::vector<std::string> drawingsIn(const QMimeData& data)
{
    std::vector<std::string> paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            paths.push_back(nativeOf(url.toLocalFile()));
    return paths;
}

} // namespace

MainWindow::MainWindow(host::SessionOptions options)
    : Workspace{static_cast<QWidget&>(*this)}, m_desk{std::move(options)}, m_theme{storedTheme()}, m_files{*this}
{
    setWindowTitle("Veloxa");
    setAcceptDrops(true);
    applyTheme(m_theme);
    buildCentre();
    buildPanels();
    buildStatusBar();
    m_recovery = std::make_unique<Recovery>(*this);
    connectCommandLine();
    connectFindBar();
    m_desk.frontEnd().onDrawingChanged = [this] { m_hostViewMoved = true; };
    m_desk.frontEnd().onMessage = [this](const std::u16string& text) { ask().tell("Veloxa", toQString(text)); };
    qApp->installEventFilter(this);
    resize(1400, 900);
    resizeDocks({findChild<QDockWidget*>("sectionsPanel"), findChild<QDockWidget*>("propertiesPanel")}, {270, 280},
                Qt::Horizontal);
    restoreGeometry(QSettings{}.value("geometry").toByteArray());
    restoreState(QSettings{}.value("panels").toByteArray());
}

MainWindow::~MainWindow()
{
    jobs().wait();
    qApp->removeEventFilter(this);
    const QSignalBlocker quiet{m_tabs};
    while (m_tabs->count() > 0)
        delete m_tabs->widget(0);
}

void MainWindow::buildCentre()
{
    auto* centre = new QWidget;
    auto* column = new QVBoxLayout{centre};
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_pages = new QStackedWidget;
    m_tabs = new QTabWidget;
    m_tabs->setDocumentMode(true);
    m_tabs->setTabsClosable(true);
    m_tabs->setMovable(true);
    m_tabs->setFocusPolicy(Qt::NoFocus);
    auto* start = new QLabel{msg("Open a drawing (Ctrl+O), or drop one here")};
    start->setAlignment(Qt::AlignCenter);
    m_pages->addWidget(start);
    m_pages->addWidget(m_tabs);
    m_findBar = new FindBar;
    m_commandLine = new CommandLine;
    for (QWidget* part :
         {static_cast<QWidget*>(m_pages), static_cast<QWidget*>(m_findBar), static_cast<QWidget*>(m_commandLine)})
        column->addWidget(part, part == m_pages ? 1 : 0);
    setCentralWidget(centre);
    connect(m_tabs, &QTabWidget::currentChanged, this, [this] { frontChanged(); });
    connect(m_tabs, &QTabWidget::tabCloseRequested, this,
            [this](int index) { perform([this, index] { m_files.close(*tabAt(index)); }); });
}

void MainWindow::buildPanels()
{
    const auto addPanel = [this](const char* name, const QString& title, QWidget* panel, Qt::DockWidgetArea area)
    {
        auto* dock = new QDockWidget{title};
        dock->setObjectName(name);
        dock->setWidget(panel);
        addDockWidget(area, dock);
        connect(dock, &QDockWidget::visibilityChanged, this,
                [this](bool isVisible)
                {
                    if (isVisible)
                        gate().whenOpen([this] { refreshPanels(); });
                });
        return dock;
    };
    m_properties = new PropertyPanel;
    m_layers = new LayerPanel;
    m_sectionPanel = new SectionPanel;
    m_sectionActions = std::make_unique<SectionActions>(*this, *m_sectionPanel);
    m_sectionActions->onSection = [this](const QString& name) { m_sectionName->setText(name); };
    m_sectionActions->onEntity = [this](AcDbObjectId entity) { select(entity); };
    addPanel("sectionsPanel", msg("Cross-sections"), m_sectionPanel, Qt::LeftDockWidgetArea)->hide();
    addPanel("propertiesPanel", msg("Properties"), m_properties, Qt::RightDockWidgetArea);
    addPanel("layersPanel", msg("Layers"), m_layers, Qt::RightDockWidgetArea);
    m_layers->change = [this](const QString& title, const std::function<void()>& act) { change(title, act); };
    m_layers->askColor = [this](int current)
    {
        const Gate::Hold hold{gate()};
        return choosePaletteColor(*this, current);
    };
}

/// What the panels show of the drawing in front; those that are not seen wait.
void MainWindow::refreshPanels()
{
    if (m_layers->isVisible())
        m_layers->show(currentDocument());
    if (m_sectionPanel->isVisible())
        m_sectionActions->refresh();
}

void MainWindow::buildStatusBar()
{
    m_measured = new QLabel;
    m_measured->setObjectName("measured");
    m_coordinates = new QLabel;
    m_coordinates->setObjectName("coordinates");
    m_coordinates->setMinimumWidth(fontMetrics().horizontalAdvance("000000000.000, 000000000.000"));
    m_sectionName = new QLabel;
    m_sectionName->setObjectName("sectionName");
    m_place = new QLabel;
    m_place->setObjectName("place");
    statusBar()->addPermanentWidget(m_sectionName);
    statusBar()->addPermanentWidget(m_measured);
    statusBar()->addPermanentWidget(m_place);
    statusBar()->addPermanentWidget(m_coordinates);
}

void MainWindow::connectCommandLine()
{
    m_interpreter.onEcho = [this](const QString& text) { m_commandLine->append(text); };
    m_interpreter.onPromptChanged = [this] { m_commandLine->setPrompt(m_interpreter.prompt()); };
    m_commandLine->completions = [this](const QString& begin) { return m_interpreter.completions(begin); };
    m_commandLine->takesBlanks = [this] { return m_interpreter.takesWholeLine(); };
    m_commandLine->onEscape = [this] { escape(); };
    m_commandLine->onConfirmed = [this](const QString& line) { m_interpreter.submit(line); };
}

void MainWindow::connectFindBar()
{
    m_findBar->search = [this](const QString& words)
    {
        DocumentTab* tab = currentTab();
        return tab != nullptr && tab->document() != nullptr
                   ? searchDrawing(*tab->document()->scene(), tab->view().space(), words)
                   : std::vector<Match>{};
    };
    m_findBar->show = [this](const Match& match)
    {
        if (DocumentTab* tab = currentTab(); tab != nullptr && !match.entity.isErased())
        {
            tab->lookAt(match.box);
            select(match.entity);
        }
    };
    m_findBar->onClosed = [this]
    {
        if (DocumentTab* tab = currentTab())
            tab->view().setFocus();
    };
}

void MainWindow::opened(DocumentTab& tab)
{
    connectTab(tab);
    if (!tab.document()->isChanged())
        m_recovery->drop(tab);
    if (!picture::alignmentsOf(tab.document()->database()).empty())
        findChild<QDockWidget*>("sectionsPanel")->show();
    frontChanged();
}

void MainWindow::saved(DocumentTab& tab)
{
    m_recovery->drop(tab);
}

void MainWindow::connectTab(DocumentTab& tab)
{
    connectView(tab, tab.view());
    connectView(tab, tab.sectionView());
    connect(&tab.view(), &DrawingView::viewChanged, this, [&tab] { tab.tellHostOfView(); });
    tab.tellHostOfView();
}

void MainWindow::showPlace(DocumentTab& tab, const DrawingView& view, double x, double y)
{
    m_coordinates->setText(QString::number(x, 'f', 3) + ", " + QString::number(y, 'f', 3));
    m_place->setText(m_sectionActions->whatIsAt(tab, {x, y}, &view == &tab.sectionView()));
}

void MainWindow::connectView(DocumentTab& tab, DrawingView& view)
{
    view.disconnect(this);
    view.setBackground(backgroundOf(m_theme));
    connect(&view, &DrawingView::cursorMoved, this,
            [this, &tab, &view](double x, double y) { showPlace(tab, view, x, y); });
    connect(&view, &DrawingView::cursorLeft, this,
            [this]
            {
                m_coordinates->clear();
                m_place->clear();
            });
    connect(&view, &DrawingView::picked, this,
            [this](AcDbObjectId entity, double x, double y) { picked(entity, x, y); });
    connect(&view, &DrawingView::windowDrawn, this,
            [this, &tab](const Box2d& box, bool isCrossing) { boxed(tab, box, isCrossing); });
    connect(&view, &DrawingView::measured, this,
            [this, &tab, &view](double piece, double total, double dx, double dy)
            {
                const double unit = &view == &tab.sectionView() ? m_sectionActions->unitOf(tab) : 1.0;
                m_measured->setText(msg("Distance %1 (ΔX %2, ΔY %3), together %4")
                                        .arg(piece * unit, 0, 'f', 3)
                                        .arg(dx * unit, 0, 'f', 3)
                                        .arg(dy * unit, 0, 'f', 3)
                                        .arg(total * unit, 0, 'f', 3));
            });
    connect(&view, &DrawingView::toolChanged, this,
            [this, &tab, &view]
            {
                tab.setTool(view.tool());
                if (view.tool() != DrawingView::Tool::kMeasure && !m_measured->text().isEmpty())
                {
                    say(m_measured->text());
                    m_measured->clear();
                }
            });
}

void MainWindow::perform(const std::function<void()>& action)
{
    if (!gate().isOpen())
        return say(msg("Something is being done already"));
    QString failure;
    {
        const Gate::Hold hold{gate()};
        try
        {
            action();
        }
        catch (const std::bad_alloc&)
        {
            failure = msg("There is not enough memory.");
        }
        catch (const std::exception& error)
        {
            failure = QString::fromUtf8(error.what());
        }
        drawingsMayHaveChanged();
    }
    if (!failure.isEmpty())
        ask().tell("Veloxa", failure);
}

void MainWindow::change(const QString& title, const std::function<void()>& action)
{
    perform(
        [this, &title, &action]
        {
            if (OpenDocument* document = currentDocument())
            {
                UndoStack::Recording recording{document->undo(), title};
                m_recovery->changed();
                try
                {
                    action();
                }
                catch (...)
                {
                    recording.giveUp();
                    throw;
                }
            }
        });
}

/// Shows what a command did: new entities, the view that it left, the mark of what was changed.
void MainWindow::drawingsMayHaveChanged()
{
    for (DocumentTab* tab : openTabs())
        tab->document()->scene()->refresh();
    if (DocumentTab* tab = currentTab(); tab != nullptr && m_hostViewMoved)
        tab->showViewOfHost();
    m_hostViewMoved = false;
    m_findBar->forget();
    m_layers->refresh();
    showTitles();
}

void MainWindow::say(const QString& text)
{
    constexpr int kMilliseconds = 8000;
    statusBar()->showMessage(text, kMilliseconds);
    m_commandLine->append(text);
}

DocumentTab* MainWindow::tabAt(int index) const
{
    return static_cast<DocumentTab*>(m_tabs->widget(index));
}

DocumentTab* MainWindow::currentTab() const
{
    return tabAt(m_tabs->currentIndex());
}

OpenDocument* MainWindow::currentDocument() const
{
    DocumentTab* tab = currentTab();
    return tab != nullptr ? tab->document() : nullptr;
}

std::vector<DocumentTab*> MainWindow::openTabs() const
{
    std::vector<DocumentTab*> open;
    for (int i = 0; i < m_tabs->count(); ++i)
        if (tabAt(i)->document() != nullptr)
            open.push_back(tabAt(i));
    return open;
}

DocumentTab* MainWindow::tabOf(const std::string& path) const
{
    for (int i = 0; i < m_tabs->count(); ++i)
        if (tabAt(i)->path() == path || disk::isSameFile(tabAt(i)->path(), path))
            return tabAt(i);
    return nullptr;
}

void MainWindow::open(const std::vector<std::string>& paths)
{
    gate().whenOpen(
        [this, paths]
        {
            perform(
                [this, &paths]
                {
                    for (const std::string& path : paths)
                        m_files.open(path);
                });
        });
}

DocumentTab& MainWindow::addTab(const std::string& path)
{
    auto* tab = new DocumentTab{path};
    m_tabs->addTab(tab, QFileInfo{shownPath(path)}.fileName());
    m_pages->setCurrentWidget(m_tabs);
    showTab(*tab);
    return *tab;
}

void MainWindow::showTab(DocumentTab& tab)
{
    m_tabs->setCurrentWidget(&tab);
}

void MainWindow::removeTab(DocumentTab& tab)
{
    m_interpreter.cancel();
    m_recovery->drop(tab);
    m_tabs->removeTab(m_tabs->indexOf(&tab));
    delete &tab;
    if (m_tabs->count() == 0)
        m_pages->setCurrentIndex(0);
    frontChanged();
}

void MainWindow::frontChanged()
{
    m_interpreter.cancel();
    m_findBar->forget();
    if (OpenDocument* document = currentDocument())
        m_desk.documents().setCurrent(&document->host());
    select(AcDbObjectId::kNull);
    m_sectionName->clear();
    m_layers->show(nullptr);
    m_sectionPanel->show(nullptr);
    refreshPanels();
    showTitles();
    focusDrawing();
}

/// Unless the user is typing somewhere.
void MainWindow::focusDrawing()
{
    const QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr || !focus->isVisible() || !focus->testAttribute(Qt::WA_InputMethodEnabled))
        if (DocumentTab* tab = currentTab())
            tab->view().setFocus();
}

void MainWindow::showTitles()
{
    for (int i = 0; i < m_tabs->count(); ++i)
    {
        const QString name = QFileInfo{shownPath(tabAt(i)->path())}.fileName();
        const bool changed = tabAt(i)->document() != nullptr && tabAt(i)->document()->isChanged();
        m_tabs->setTabText(i, (changed ? "* " : "") + QString{name}.replace('&', "&&"));
        m_tabs->setTabToolTip(i, shownPath(tabAt(i)->path()));
    }
    DocumentTab* front = currentTab();
    setWindowTitle(front == nullptr ? QString{"Veloxa"} : QFileInfo{shownPath(front->path())}.fileName() + " – Veloxa");
}

void MainWindow::select(AcDbObjectId entity)
{
    m_properties->showEntity(entity);
    if (DocumentTab* tab = currentTab())
        tab->highlight(entity.isNull() ? std::vector<AcDbObjectId>{} : std::vector{entity});
}

void MainWindow::picked(AcDbObjectId entity, double x, double y)
{
    if (!m_interpreter.takePoint({x, y}))
        select(entity);
}

void MainWindow::boxed(DocumentTab& tab, const Box2d& box, bool isCrossing)
{
    const std::vector<AcDbObjectId> entities = tab.entitiesIn(box, isCrossing);
    tab.highlight(entities);
    m_properties->showEntities(entities);
}

void MainWindow::escape()
{
    const bool wasAsking = m_interpreter.cancel();
    DocumentTab* tab = currentTab();
    const bool planHadTool = tab != nullptr && tab->view().cancel();
    const bool sectionHadTool = tab != nullptr && tab->sectionView().cancel();
    const bool hadTool = planHadTool || sectionHadTool;
    if (!wasAsking && !hadTool)
        select(AcDbObjectId::kNull);
}

void MainWindow::toggleTheme()
{
    m_theme = m_theme == Theme::kDark ? Theme::kLight : Theme::kDark;
    storeTheme(m_theme);
    applyTheme(m_theme);
    for (int i = 0; i < m_tabs->count(); ++i)
        for (DrawingView* view : {&tabAt(i)->view(), &tabAt(i)->sectionView()})
            view->setBackground(backgroundOf(m_theme));
}

void MainWindow::comeUp()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void MainWindow::togglePanel(const char* name)
{
    if (auto* dock = findChild<QDockWidget*>(name))
        dock->setVisible(!dock->isVisible());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (!gate().isOpen())
        return;
    perform(
        [this, event]
        {
            if (!m_files.closeAll())
                return;
            QSettings{}.setValue("geometry", saveGeometry());
            QSettings{}.setValue("panels", saveState());
            event->accept();
        });
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (gate().isOpen() && !drawingsIn(*event->mimeData()).empty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    open(drawingsIn(*event->mimeData()));
    event->acceptProposedAction();
}

/// Typing anywhere in the window goes to the command line.
bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || watched != QApplication::focusWidget() || !isActiveWindow() ||
        QApplication::activePopupWidget() != nullptr || QApplication::activeModalWidget() != nullptr)
        return QMainWindow::eventFilter(watched, event);
    auto& key = *static_cast<QKeyEvent*>(event);
    if (!meansCommandLine(key))
        return QMainWindow::eventFilter(watched, event);
    m_commandLine->type(key);
    return true;
}

bool MainWindow::meansCommandLine(const QKeyEvent& key) const
{
    const QWidget* focus = QApplication::focusWidget();
    const bool isDrawing = focus == this || dynamic_cast<const DrawingView*>(focus) != nullptr;
    if (focus == nullptr || focus->window() != this || focus->testAttribute(Qt::WA_InputMethodEnabled))
        return false;
    if (key.key() == Qt::Key_Escape || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter ||
        key.key() == Qt::Key_Space)
        return isDrawing;
    const bool isLetter = !key.text().isEmpty() && key.text().front().isPrint();
    return isLetter && (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
}

} // namespace desktop
