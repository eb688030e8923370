#include "desktop/documents/document_tab.h"

#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/view/drawing_view.h"

#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedLayout>
#include <QTabBar>
#include <QVBoxLayout>

namespace desktop
{

DocumentTab::DocumentTab(std::string path) : m_path{std::move(path)}, m_pages{new QStackedLayout{this}}
{
    m_pages->addWidget(waitingPage());
    m_pages->addWidget(drawingPage());
}

DocumentTab::~DocumentTab()
{
    m_view->setScene(nullptr);
}

QWidget* DocumentTab::waitingPage()
{
    constexpr int kWidth = 360;
    auto* page = new QWidget;
    auto* column = new QVBoxLayout{page};
    auto* label = new QLabel{msg("Reading %1 …").arg(QFileInfo{shownPath(m_path)}.fileName())};
    auto* bar = new QProgressBar;
    auto* cancel = new QPushButton{msg("Cancel")};
    bar->setRange(0, 0);
    bar->setFixedWidth(kWidth);
    cancel->setObjectName("cancelReading");
    column->addStretch();
    for (QWidget* widget : {static_cast<QWidget*>(label), static_cast<QWidget*>(bar), static_cast<QWidget*>(cancel)})
        column->addWidget(widget, 0, Qt::AlignHCenter);
    column->addStretch();
    QObject::connect(cancel, &QPushButton::clicked, this,
                     [this]
                     {
                         if (const std::function<void()> act = m_cancel)
                             act();
                     });
    return page;
}

QWidget* DocumentTab::drawingPage()
{
    auto* page = new QWidget;
    auto* column = new QVBoxLayout{page};
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_view = new DrawingView;
    m_view->setObjectName("plan");
    m_spaces = new QTabBar;
    m_spaces->setObjectName("spaces");
    m_spaces->setShape(QTabBar::RoundedSouth);
    m_spaces->setExpanding(false);
    m_spaces->setDrawBase(false);
    m_spaces->setFocusPolicy(Qt::NoFocus);
    column->addWidget(m_view, 1);
    column->addWidget(m_spaces);
    QObject::connect(m_spaces, &QTabBar::currentChanged, this, [this](int index) { showSpace(index); });
    return page;
}

void DocumentTab::setDocument(std::unique_ptr<OpenDocument> document)
{
    m_document = std::move(document);
    fillSpaces();
    m_view->setScene(m_document->scene());
    m_pages->setCurrentIndex(1);
}

void DocumentTab::fillSpaces()
{
    const QSignalBlocker quiet{m_spaces};
    while (m_spaces->count() > 0)
        m_spaces->removeTab(0);
    for (const DrawingSpace& space : m_document->scene()->spaces())
        m_spaces->addTab(m_spaces->count() == 0 ? msg("Model") : toQString(space.name));
}

void DocumentTab::showSpace(int index)
{
    const std::vector<DrawingSpace> spaces = m_document->scene()->spaces();
    if (index < 0 || static_cast<size_t>(index) >= spaces.size())
        return;
    m_view->setSpace(index == 0 ? nullptr : spaces[static_cast<size_t>(index)].block);
    const QSignalBlocker quiet{m_spaces};
    m_spaces->setCurrentIndex(index);
}

bool DocumentTab::showsModelSpace() const
{
    return m_spaces->currentIndex() <= 0;
}

void DocumentTab::showModelSpace()
{
    if (!showsModelSpace())
        showSpace(0);
}

} // namespace desktop
