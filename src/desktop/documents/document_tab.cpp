#include "desktop/documents/document_tab.h"

#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/view/drawing_view.h"
#include "host/app/document.h"

#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QStackedLayout>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>

namespace desktop
{

namespace
{

bool isSame(const ViewFrame& a, const ViewFrame& b)
{
    return a.centre.x == b.centre.x && a.centre.y == b.centre.y && a.height == b.height;
}

} // namespace

DocumentTab::DocumentTab(std::string path) : m_path{std::move(path)}, m_pages{new QStackedLayout{this}}
{
    m_pages->addWidget(waitingPage());
    m_pages->addWidget(drawingPage());
}

DocumentTab::~DocumentTab()
{
    m_view->setScene(nullptr);
    m_sectionView->setScene(nullptr);
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
    QObject::connect(cancel, &QPushButton::clicked, this, [this] { cancelReading(); });
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
    m_sectionView = new DrawingView;
    m_sectionView->setObjectName("section");
    m_sectionView->hide();
    m_splitter = new QSplitter;
    m_splitter->setChildrenCollapsible(false);
    m_splitter->addWidget(m_view);
    m_splitter->addWidget(m_sectionView);
    m_view->installEventFilter(this);
    column->addWidget(m_splitter, 1);
    column->addWidget(m_spaces);
    QObject::connect(m_spaces, &QTabBar::currentChanged, this, [this](int index) { showSpace(index); });
    return page;
}

void DocumentTab::setReading(std::function<void()> cancel)
{
    m_cancel = std::move(cancel);
    m_pages->setCurrentIndex(m_cancel || !m_document ? 0 : 1);
}

void DocumentTab::cancelReading()
{
    if (const std::function<void()> act = m_cancel)
        act();
}

void DocumentTab::setDocument(std::unique_ptr<OpenDocument> document)
{
    const bool isAgain = m_document != nullptr;
    const ViewFrame before = m_view->frame();
    m_view->setScene(nullptr);
    m_sectionView->setScene(nullptr);
    m_sections = {};
    m_hiddenEntities.clear();
    m_hiddenLayers.clear();
    m_document = std::move(document);
    fillSpaces();
    m_pages->setCurrentIndex(1);
    m_view->setScene(m_document->scene());
    if (isSplit())
        m_sectionView->setScene(m_document->scene());
    if (isAgain)
        m_view->setFrame(before);
    else
        m_fitted = m_view->frame();
}

/// The panels come up around the view when the drawing is there already.
bool DocumentTab::eventFilter(QObject* watched, QEvent* event)
{
    const auto fit = [this]
    {
        if (!m_fitted || !isSame(*m_fitted, m_view->frame()))
            return m_fitted.reset();
        m_view->zoomExtents();
        m_fitted = m_view->frame();
    };
    if (event->type() == QEvent::Resize && m_fitted)
        QMetaObject::invokeMethod(this, fit, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
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

void DocumentTab::setSplit(bool on)
{
    if (on == isSplit())
        return;
    m_sectionView->setVisible(on);
    m_sectionView->setScene(on ? m_document->scene() : nullptr);
    m_sectionView->setHidden(m_hiddenEntities, m_hiddenLayers);
    if (on)
        m_splitter->setSizes({m_splitter->width() / 2, m_splitter->width() / 2});
}

void DocumentTab::highlight(const std::vector<AcDbObjectId>& entities)
{
    m_view->setHighlighted(entities);
    m_sectionView->setHighlighted(entities);
}

void DocumentTab::setTool(DrawingView::Tool tool)
{
    m_view->setTool(tool);
    m_sectionView->setTool(tool);
}

void DocumentTab::hide(std::unordered_set<AcDbObjectId> entities, std::set<std::u16string> layers)
{
    m_hiddenEntities = std::move(entities);
    m_hiddenLayers = std::move(layers);
    m_view->setHidden(m_hiddenEntities, m_hiddenLayers);
    if (isSplit())
        m_sectionView->setHidden(m_hiddenEntities, m_hiddenLayers);
}

bool DocumentTab::isSplit() const
{
    return !m_sectionView->isHidden();
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

void DocumentTab::showViewOfHost()
{
    const AcGeExtents shown = m_document->host().view().shown();
    if (!shown.isValid())
        return;
    showModelSpace();
    m_followsHost = true;
    m_view->zoomTo({shown.minPoint().x, shown.minPoint().y, shown.maxPoint().x, shown.maxPoint().y}, 0.0);
    m_followsHost = false;
}

void DocumentTab::tellHostOfView()
{
    if (!m_document || m_followsHost || !showsModelSpace() || m_view->height() == 0)
        return;
    const Box2d shown = m_view->shownBox();
    m_document->host().view().setAspect(static_cast<double>(m_view->width()) / m_view->height());
    m_document->host().view().lookAt({shown.minX, shown.minY}, {shown.maxX, shown.maxY});
}

void DocumentTab::lookAt(const Box2d& box)
{
    constexpr double kSmallest = 0.02; ///< shares of the view's height
    constexpr double kMargin = 6.0;
    if (box.isEmpty())
        return;
    const double height = std::max(box.maxY - box.minY, 0.25 * (box.maxX - box.minX));
    const double share = height / m_view->frame().height;
    if (height > 0.0 && (share < kSmallest || share > 1.0))
        return m_view->zoomTo(box, kMargin);
    m_view->setFrame({{(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2}, m_view->frame().height});
}

std::vector<AcDbObjectId> DocumentTab::entitiesIn(const Box2d& box, bool isCrossing)
{
    std::vector<AcDbObjectId> found;
    const picture::DisplayList& list = m_document->scene()->space(m_view->space());
    for (const uint32_t item : list.itemsIn(box))
    {
        const Box2d& own = list.box(item);
        const AcDbObjectId id{list.items()[item].entity};
        const bool isInside =
            own.minX >= box.minX && own.maxX <= box.maxX && own.minY >= box.minY && own.maxY <= box.maxY;
        if (!id.isErased() && (isCrossing || isInside))
            found.push_back(id);
    }
    return found;
}

} // namespace desktop
