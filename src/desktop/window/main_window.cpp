#include "desktop/window/main_window.h"

#include "desktop/documents/document_tab.h"
#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/view/drawing_view.h"
#include "desktop/window/recent_files.h"
#include "disk/replace.h"

#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QUrl>

#include <filesystem>

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
    : m_ask{*this, m_gate}, m_desk{std::move(options)}, m_theme{storedTheme()}, m_pages{new QStackedWidget},
      m_tabs{new QTabWidget}
{
    setWindowTitle("Veloxa");
    setAcceptDrops(true);
    m_tabs->setDocumentMode(true);
    m_tabs->setTabsClosable(true);
    m_tabs->setMovable(true);
    m_pages->addWidget(buildStartPage());
    m_pages->addWidget(m_tabs);
    setCentralWidget(m_pages);
    buildMenus();
    buildStatusBar();
    connect(m_tabs, &QTabWidget::currentChanged, this, [this] { frontChanged(); });
    connect(m_tabs, &QTabWidget::tabCloseRequested, this,
            [this](int index) { perform([this, index] { closeTab(*tabAt(index)); }); });
    m_desk.frontEnd().onDrawingChanged = [this] { viewOfHostMoved(); };
    m_desk.frontEnd().onMessage = [this](const std::u16string& text) { m_ask.tell("Veloxa", toQString(text)); };
    useTheme(m_theme);
    resize(1280, 800);
    restoreGeometry(QSettings{}.value("geometry").toByteArray());
}

MainWindow::~MainWindow()
{
    const QSignalBlocker quiet{m_tabs};
    while (m_tabs->count() > 0)
        delete m_tabs->widget(0);
}

QWidget* MainWindow::buildStartPage()
{
    auto* label = new QLabel{msg("Open a drawing (Ctrl+O), or drop one here")};
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QAction* MainWindow::add(QMenu* menu, const char* name, const QString& text, const QKeySequence& keys,
                         const std::function<void()>& action)
{
    QAction* made = menu->addAction(text);
    made->setObjectName(name);
    made->setShortcut(keys);
    connect(made, &QAction::triggered, this, [this, action] { perform(action); });
    return made;
}

void MainWindow::buildMenus()
{
    QMenu* file = menuBar()->addMenu(msg("&File"));
    add(file, "open", msg("&Open…"), QKeySequence::Open, [this] { askToOpen(); });
    QMenu* recent = file->addMenu(msg("Open &recent"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { fillRecent(*recent); });
    file->addSeparator();
    add(file, "close", msg("&Close"), QKeySequence::Close,
        [this]
        {
            if (DocumentTab* tab = currentTab())
                closeTab(*tab);
        });
    // Not through perform: the window closes by its own event.
    QAction* quit = file->addAction(msg("&Quit"));
    quit->setShortcut(QKeySequence::Quit);
    connect(quit, &QAction::triggered, this, [this] { close(); });

    QMenu* view = menuBar()->addMenu(msg("&View"));
    add(view, "zoomExtents", msg("Zoom to &all"), QKeySequence{Qt::CTRL | Qt::Key_0},
        [this]
        {
            if (DocumentTab* tab = currentTab())
                tab->view().zoomExtents();
        });
    view->addSeparator();
    add(view, "theme", msg("&Dark or light"), QKeySequence{Qt::Key_F9},
        [this] { useTheme(m_theme == Theme::kDark ? Theme::kLight : Theme::kDark); });
}

void MainWindow::buildStatusBar()
{
    m_coordinates = new QLabel;
    m_coordinates->setObjectName("coordinates");
    m_coordinates->setMinimumWidth(fontMetrics().horizontalAdvance("000000000.000, 000000000.000"));
    statusBar()->addPermanentWidget(m_coordinates);
}

void MainWindow::fillRecent(QMenu& menu)
{
    menu.clear();
    for (const std::string& path : recentFiles())
        connect(menu.addAction(shownPath(path).replace('&', "&&")), &QAction::triggered, this,
                [this, path] { open({path}); });
    if (menu.isEmpty())
        menu.addAction(msg("None yet"))->setEnabled(false);
}

void MainWindow::perform(const std::function<void()>& action)
{
    if (!m_gate.isOpen())
        return say(msg("Something is being done already"));
    QString failure;
    {
        const Gate::Hold hold{m_gate};
        try
        {
            action();
        }
        catch (const std::exception& error)
        {
            failure = QString::fromUtf8(error.what());
        }
    }
    showTitles();
    if (!failure.isEmpty())
        m_ask.tell("Veloxa", failure);
}

void MainWindow::say(const QString& text)
{
    constexpr int kMilliseconds = 8000;
    statusBar()->showMessage(text, kMilliseconds);
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

DocumentTab* MainWindow::tabOf(const std::string& path) const
{
    for (int i = 0; i < m_tabs->count(); ++i)
        if (tabAt(i)->path() == path || disk::isSameFile(tabAt(i)->path(), path))
            return tabAt(i);
    return nullptr;
}

void MainWindow::askToOpen()
{
    const std::vector<std::string> recent = recentFiles();
    const DocumentTab* front = currentTab();
    const std::filesystem::path near = front != nullptr ? front->path() : recent.empty() ? "" : recent.front();
    for (const std::string& path : m_ask.drawingsToOpen(near.parent_path().string()))
        openOne(path);
}

void MainWindow::open(const std::vector<std::string>& paths)
{
    m_gate.whenOpen(
        [this, paths]
        {
            perform(
                [this, &paths]
                {
                    for (const std::string& path : paths)
                        openOne(path);
                });
        });
}

void MainWindow::openOne(const std::string& path)
{
    if (DocumentTab* open = tabOf(path))
        return m_tabs->setCurrentWidget(open);
    auto* tab = new DocumentTab{path};
    m_tabs->addTab(tab, QFileInfo{shownPath(path)}.fileName());
    m_tabs->setCurrentWidget(tab);
    m_pages->setCurrentWidget(m_tabs);
    const Jobs::Handle job =
        m_jobs.start<ReadDrawing>([path](const std::stop_token&) { return readDrawing(path); },
                                  [this, tab](Outcome<ReadDrawing> outcome)
                                  {
                                      const auto read = std::make_shared<Outcome<ReadDrawing>>(std::move(outcome));
                                      m_gate.whenOpen([this, tab, read] { this->read(*tab, std::move(*read)); });
                                  });
    tab->setCancel([job] { (*job)(); });
}

void MainWindow::read(DocumentTab& tab, Outcome<ReadDrawing> outcome)
{
    if (!outcome.result)
        removeTab(tab);
    if (outcome.cancelled)
        return say(msg("Reading was cancelled"));
    if (!outcome.result)
        return m_ask.tell(msg("The drawing could not be opened"), QString::fromUtf8(outcome.reason.c_str()));
    perform(
        [&]
        {
            tab.setDocument(std::make_unique<OpenDocument>(std::move(*outcome.result)));
            DrawingView& view = tab.view();
            view.setBackground(backgroundOf(m_theme));
            connect(&view, &DrawingView::cursorMoved, this,
                    [this](double x, double y)
                    { m_coordinates->setText(QString::number(x, 'f', 3) + ", " + QString::number(y, 'f', 3)); });
            connect(&view, &DrawingView::cursorLeft, this, [this] { m_coordinates->clear(); });
            connect(&view, &DrawingView::viewChanged, this, [this, &tab] { viewMoved(tab); });
            addRecentFile(tab.path());
            if (tab.document()->needsName())
                say(msg("A copy, converted from DWG: saved, it becomes a DXF"));
            frontChanged();
        });
}

void MainWindow::removeTab(DocumentTab& tab)
{
    m_tabs->removeTab(m_tabs->indexOf(&tab));
    delete &tab;
    if (m_tabs->count() == 0)
        m_pages->setCurrentIndex(0);
}

bool MainWindow::closeTab(DocumentTab& tab)
{
    removeTab(tab);
    return true;
}

void MainWindow::frontChanged()
{
    if (OpenDocument* document = currentDocument())
        m_desk.documents().setCurrent(&document->host());
    showTitles();
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

void MainWindow::useTheme(Theme theme)
{
    m_theme = theme;
    storeTheme(theme);
    applyTheme(theme);
    for (int i = 0; i < m_tabs->count(); ++i)
        tabAt(i)->view().setBackground(backgroundOf(theme));
}

void MainWindow::viewMoved(DocumentTab&) {}

void MainWindow::viewOfHostMoved() {}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!m_gate.isOpen())
        return event->ignore();
    QSettings{}.setValue("geometry", saveGeometry());
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (m_gate.isOpen() && !drawingsIn(*event->mimeData()).empty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    open(drawingsIn(*event->mimeData()));
    event->acceptProposedAction();
}

} // namespace desktop
