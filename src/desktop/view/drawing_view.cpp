#include "desktop/view/drawing_view.h"

#include "picture/list/pick.h"
#include "picture/paint/painter.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace desktop
{

namespace
{

template <class Ids>
std::unordered_set<const ObjectRecord*> recordsOf(const Ids& ids)
{
    std::unordered_set<const ObjectRecord*> records;
    for (const AcDbObjectId id : ids)
        records.insert(id.record());
    return records;
}

constexpr double kPickPixels = 5.0;
constexpr double kDragPixels = 4.0;
constexpr double kWheelFactor = 1.25; ///< a step of 15 degrees
constexpr double kStepDelta = 120.0;  ///< of an angle, in eighths of a degree
constexpr double kArrowShare = 0.1;   ///< of the window
constexpr double kSmallest = 1e-9;    ///< heights of what can be shown, drawing units
constexpr double kLargest = 1e14;

} // namespace

DrawingView::DrawingView(QWidget* parent) : QWidget{parent}
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::CrossCursor);
    m_picture.setBackground(m_background);
    connect(&m_picture, &ViewPicture::changed, this, [this] { update(); });
    connect(&m_picture, &ViewPicture::becameSharp, this, &DrawingView::sharp);
}

DrawingView::~DrawingView()
{
    if (m_scene)
        m_scene->unwatch(this);
}

void DrawingView::setScene(std::shared_ptr<Scene> scene)
{
    if (m_scene)
        m_scene->unwatch(this);
    m_scene = std::move(scene);
    m_highlighted.clear();
    m_hidden.clear();
    m_hiddenLayers.clear();
    if (m_scene)
        m_scene->watch(this,
                       [this](const std::optional<Box2d>& changed)
                       {
                           showHidden();
                           showHighlighted();
                           // A layout may show model space too: its own box says nothing then.
                           m_picture.invalidate(m_space == nullptr ? changed : std::nullopt);
                           update();
                       });
    setSpace(nullptr);
}

void DrawingView::setSpace(const ObjectRecord* block)
{
    m_space = block;
    m_measured.clear();
    m_pressed.reset();
    m_picture.setSource(m_scene, m_space);
    showHidden();
    showHighlighted();
    zoomExtents();
    showFrame();
}

const picture::DisplayList* DrawingView::list() const
{
    return m_scene ? &m_scene->space(m_space) : nullptr;
}

void DrawingView::setFrame(const ViewFrame& frame)
{
    changeFrame(frame);
}

void DrawingView::changeFrame(const ViewFrame& frame)
{
    if (!std::isfinite(frame.centre.x) || !std::isfinite(frame.centre.y) || !(frame.height > 0.0))
        return;
    m_frame = frame;
    m_frame.height = std::clamp(frame.height, kSmallest, kLargest);
    showFrame();
    emit viewChanged();
}

void DrawingView::showFrame()
{
    m_picture.show(m_frame, size() * devicePixelRatioF(), devicePixelRatioF());
    update();
}

Box2d DrawingView::shownBox() const
{
    const double halfWidth = m_frame.height * width() / std::max(1, height()) / 2;
    const double half = m_frame.height / 2;
    return {m_frame.centre.x - halfWidth, m_frame.centre.y - half, m_frame.centre.x + halfWidth,
            m_frame.centre.y + half};
}

void DrawingView::zoomExtents()
{
    if (const picture::DisplayList* shown = list())
        zoomTo(m_scene->lists().shownBox(*shown), 0.02);
}

void DrawingView::zoomTo(const Box2d& box, double margin)
{
    if (box.isEmpty())
        return;
    const double aspect = static_cast<double>(std::max(1, width())) / std::max(1, height());
    const double least = std::max(box.magnitude() * 1e-9, kSmallest);
    const double needed = std::max(box.maxY - box.minY, (box.maxX - box.minX) / aspect) * (1.0 + 2.0 * margin);
    changeFrame(
        {{(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2}, needed > least ? needed : std::max(1.0, least)});
}

void DrawingView::zoomBy(double factor, QPointF about)
{
    const picture::Vertex fixed = toWorld(about);
    ViewFrame frame = m_frame;
    frame.height = std::clamp(frame.height / factor, kSmallest, kLargest);
    const double share = frame.height / m_frame.height;
    frame.centre = {fixed.x + (m_frame.centre.x - fixed.x) * share, fixed.y + (m_frame.centre.y - fixed.y) * share};
    changeFrame(frame);
}

void DrawingView::pan(QPointF pixels)
{
    const double unit = m_frame.height / std::max(1, height());
    // What is there is carried over pixel by pixel.
    const double ratio = devicePixelRatioF();
    ViewFrame frame = m_frame;
    frame.centre.x -= std::round(pixels.x() * ratio) / ratio * unit;
    frame.centre.y += std::round(pixels.y() * ratio) / ratio * unit;
    changeFrame(frame);
}

void DrawingView::setHighlighted(std::vector<AcDbObjectId> entities)
{
    m_highlighted = std::move(entities);
    showHighlighted();
}

void DrawingView::showHighlighted()
{
    const picture::DisplayList* shown = list();
    m_picture.setHighlighted(shown != nullptr ? shown->itemsOf(recordsOf(m_highlighted)) : std::vector<uint32_t>{});
    update();
}

Box2d DrawingView::boxOf(const std::vector<AcDbObjectId>& entities) const
{
    Box2d box;
    if (const picture::DisplayList* shown = list())
        for (const uint32_t item : shown->itemsOf(recordsOf(entities)))
            if (!shown->box(item).isEmpty())
                box.add(shown->box(item));
    return box;
}

void DrawingView::setHidden(std::unordered_set<AcDbObjectId> entities, std::set<std::u16string> layers)
{
    if (entities == m_hidden && layers == m_hiddenLayers)
        return;
    m_hidden = std::move(entities);
    m_hiddenLayers = std::move(layers);
    showHidden();
    m_picture.invalidate(std::nullopt);
    update();
}

/// Turns what is hidden into marks by the numbers that the picture knows.
void DrawingView::showHidden()
{
    const picture::DisplayList* shown = list();
    std::shared_ptr<picture::Hidden> hidden;
    if (shown != nullptr && !(m_hidden.empty() && m_hiddenLayers.empty()))
    {
        hidden = std::make_shared<picture::Hidden>();
        hidden->items.resize(shown->items().size());
        for (const uint32_t item : shown->itemsOf(recordsOf(m_hidden)))
            hidden->items[item] = true;
        for (const picture::Layer& layer : m_scene->lists().looks().layers())
            hidden->layers.push_back(std::any_of(m_hiddenLayers.begin(), m_hiddenLayers.end(),
                                                 [&](const auto& name) { return equalNoCase(name, layer.name); }));
    }
    m_picture.setHidden(hidden);
}

void DrawingView::setBackground(picture::Rgb background)
{
    m_background = background;
    m_picture.setBackground(background);
    update();
}

void DrawingView::setCrosshair(bool on)
{
    m_hasCrosshair = on;
    update();
}

AcDbObjectId DrawingView::pick(QPointF at) const
{
    const picture::DisplayList* shown = list();
    if (shown == nullptr)
        return AcDbObjectId::kNull;
    const double reach = kPickPixels * m_frame.height / std::max(1, height());
    const std::optional<uint32_t> item =
        picture::pickItem(m_scene->lists(), *shown, toWorld(at), reach, m_picture.hidden());
    return item ? AcDbObjectId{shown->items()[*item].entity} : AcDbObjectId::kNull;
}

picture::Vertex DrawingView::toWorld(QPointF at) const
{
    return m_frame.toWorld(at.x(), at.y(), width(), std::max(1, height()));
}

QPointF DrawingView::toWidget(const picture::Vertex& world) const
{
    const picture::Vertex at = m_frame.toPixels(width(), std::max(1, height())) * world;
    return {at.x, at.y};
}

void DrawingView::setTool(Tool tool)
{
    if (tool == m_tool)
        return;
    m_tool = tool;
    m_pressed.reset();
    m_measured.clear();
    update();
    emit toolChanged();
}

bool DrawingView::cancel()
{
    const bool isBegun = m_pressed.has_value() || !m_measured.empty();
    m_pressed.reset();
    m_measured.clear();
    update();
    if (!isBegun && m_tool == Tool::kPick)
        return false;
    if (!isBegun)
        setTool(Tool::kPick);
    return true;
}

bool DrawingView::handleKey(int key, Qt::KeyboardModifiers modifiers)
{
    if ((modifiers & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (key)
    {
    case Qt::Key_Left:
        pan({kArrowShare * width(), 0.0});
        return true;
    case Qt::Key_Right:
        pan({-kArrowShare * width(), 0.0});
        return true;
    case Qt::Key_Up:
        pan({0.0, kArrowShare * height()});
        return true;
    case Qt::Key_Down:
        pan({0.0, -kArrowShare * height()});
        return true;
    default:
        return false;
    }
}

void DrawingView::keyPressEvent(QKeyEvent* event)
{
    const bool isTaken = event->key() == Qt::Key_Escape ? cancel() : handleKey(event->key(), event->modifiers());
    if (!isTaken)
        event->ignore();
}

void DrawingView::wheelEvent(QWheelEvent* event)
{
    const double steps = event->angleDelta().y() / kStepDelta;
    if (steps != 0.0)
        zoomBy(std::pow(kWheelFactor, steps), event->position());
    event->accept();
}

void DrawingView::mousePressEvent(QMouseEvent* event)
{
    setFocus();
    const QPointF at = event->position();
    if (event->button() == Qt::MiddleButton)
    {
        m_dragged = at;
        setCursor(Qt::ClosedHandCursor);
    }
    else if (event->button() == Qt::RightButton && m_tool != Tool::kPick)
        setTool(Tool::kPick);
    else if (event->button() != Qt::LeftButton)
        event->ignore();
    else if (m_tool == Tool::kMeasure)
    {
        m_measured.push_back(toWorld(at));
        update();
    }
    else if (m_tool == Tool::kWindow && m_pressed)
        finishWindow(at);
    else
    {
        m_pressed = at;
        m_isDown = true;
    }
}

void DrawingView::mouseMoveEvent(QMouseEvent* event)
{
    m_cursor = event->position();
    if (m_dragged)
    {
        const QPointF by = *m_cursor - *m_dragged;
        m_dragged = *m_cursor;
        pan(by);
    }
    const picture::Vertex at = toWorld(*m_cursor);
    emit cursorMoved(at.x, at.y);
    if (!m_measured.empty())
        tellMeasured(at);
    update();
}

void DrawingView::tellMeasured(const picture::Vertex& at)
{
    double total = 0.0;
    for (size_t i = 1; i < m_measured.size(); ++i)
        total += std::hypot(m_measured[i].x - m_measured[i - 1].x, m_measured[i].y - m_measured[i - 1].y);
    const double dx = at.x - m_measured.back().x;
    const double dy = at.y - m_measured.back().y;
    emit measured(std::hypot(dx, dy), total + std::hypot(dx, dy), dx, dy);
}

void DrawingView::mouseReleaseEvent(QMouseEvent* event)
{
    const QPointF at = event->position();
    if (event->button() == Qt::MiddleButton)
    {
        m_dragged.reset();
        setCursor(Qt::CrossCursor);
    }
    if (event->button() != Qt::LeftButton || !m_isDown)
        return;
    m_isDown = false;
    if (!m_pressed)
        return;
    const bool isDrag = (at - *m_pressed).manhattanLength() > kDragPixels;
    if (isDrag)
        return finishWindow(at);
    if (m_tool == Tool::kWindow)
        return;
    m_pressed.reset();
    const picture::Vertex world = toWorld(at);
    emit picked(pick(at), world.x, world.y);
}

void DrawingView::finishWindow(QPointF at)
{
    const QPointF from = *m_pressed;
    m_pressed.reset();
    Box2d box;
    for (const QPointF& corner : {from, at})
    {
        const picture::Vertex world = toWorld(corner);
        box.add(world.x, world.y);
    }
    update();
    if (m_tool == Tool::kPick)
    {
        emit windowDrawn(box, at.x() < from.x());
        return;
    }
    if (std::fabs(at.x() - from.x()) < 1.0 || std::fabs(at.y() - from.y()) < 1.0)
        return;
    setTool(Tool::kPick);
    zoomTo(box, 0.0);
}

void DrawingView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::MiddleButton)
        zoomExtents();
    else
        mousePressEvent(event);
}

void DrawingView::leaveEvent(QEvent* event)
{
    m_cursor.reset();
    update();
    emit cursorLeft();
    QWidget::leaveEvent(event);
}

void DrawingView::resizeEvent(QResizeEvent* event)
{
    showFrame();
    QWidget::resizeEvent(event);
    emit viewChanged();
}

void DrawingView::paintEvent(QPaintEvent*)
{
    QPainter painter{this};
    m_picture.paint(painter);
    paintTool(painter);
}

void DrawingView::paintTool(QPainter& painter)
{
    const QColor ink = QColor::fromRgb(picture::inkOn(m_background));
    const QColor accent{0x3D, 0x8B, 0xFD};
    if (m_pressed && m_cursor && (*m_cursor - *m_pressed).manhattanLength() > kDragPixels)
    {
        painter.setPen(QPen{accent, 1.0, m_cursor->x() < m_pressed->x() ? Qt::DashLine : Qt::SolidLine});
        painter.setBrush(QColor{accent.red(), accent.green(), accent.blue(), 40});
        painter.drawRect(QRectF{*m_pressed, *m_cursor}.normalized());
    }
    if (!m_measured.empty())
    {
        painter.setPen(QPen{accent, 1.5});
        QPolygonF line;
        for (const picture::Vertex& vertex : m_measured)
            line << toWidget(vertex);
        if (m_cursor && m_tool == Tool::kMeasure)
            line << *m_cursor;
        painter.drawPolyline(line);
    }
    if (m_hasCrosshair && m_cursor && !m_dragged)
    {
        painter.setPen(QPen{QColor{ink.red(), ink.green(), ink.blue(), 110}, 1.0});
        painter.drawLine(QPointF{m_cursor->x(), 0.0}, QPointF{m_cursor->x(), static_cast<double>(height())});
        painter.drawLine(QPointF{0.0, m_cursor->y()}, QPointF{static_cast<double>(width()), m_cursor->y()});
    }
}

} // namespace desktop
