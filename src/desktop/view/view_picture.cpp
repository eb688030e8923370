#include "desktop/view/view_picture.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace desktop
{

namespace
{

constexpr int kTileSide = 400; ///< pixels, about
constexpr picture::Rgb kHighlight = 0x2F8CFF;
constexpr double kHighlightWidth = 2.5;
constexpr double kOffPixels = 0.02; ///< a shift that is so near to whole pixels is one

bool isWhole(double pixels)
{
    return std::fabs(pixels - std::round(pixels)) < kOffPixels;
}

/// Runs something on the thread of an object, unless the object is gone by then.
template <class Call>
void post(QObject* target, Call&& call)
{
    QMetaObject::invokeMethod(target, std::forward<Call>(call), Qt::QueuedConnection);
}

} // namespace

picture::Map2d ViewPicture::Grid::toPixels(QPoint from) const
{
    return {scale, 0.0, 0.0, -scale, -corner.x * scale - from.x(), corner.y * scale - from.y()};
}

Box2d ViewPicture::Grid::boxOf(const QRect& pixels) const
{
    return {corner.x + pixels.left() / scale, corner.y - (pixels.bottom() + 1) / scale,
            corner.x + (pixels.right() + 1) / scale, corner.y - pixels.top() / scale};
}

ViewPicture::ViewPicture() = default;

ViewPicture::~ViewPicture()
{
    if (m_scene)
        m_scene->queue().finish(this);
}

void ViewPicture::setSource(std::shared_ptr<Scene> scene, const ObjectRecord* space)
{
    if (m_scene)
        m_scene->queue().finish(this);
    m_scene = std::move(scene);
    m_list = m_scene ? &m_scene->space(space) : nullptr;
    m_highlighted.clear();
    m_hidden.reset();
    m_still = {};
    m_overview = {};
    m_highlights = {};
    m_tiles.clear();
    ++m_gridNumber;
    m_grid.scale = 0.0;
}

void ViewPicture::setBackground(picture::Rgb background)
{
    if (m_background == background)
        return;
    m_background = background;
    // What was painted on another ground would flash up.
    m_still = {};
    m_overview = {};
    for (auto& [place, tile] : m_tiles)
        tile.image = {};
    invalidate(std::nullopt);
}

void ViewPicture::setHighlighted(std::vector<uint32_t> items)
{
    m_highlighted = std::move(items);
    askForHighlights();
}

void ViewPicture::invalidate(const std::optional<Box2d>& box)
{
    ++m_state;
    // Painting reaches a little over the box: the widths of lines, marks of points.
    constexpr double kAround = 8.0;
    for (auto& [place, tile] : m_tiles)
        if (tile.painted + 1 == m_state && box && m_grid.boxOf(rectOf(place)).isApart(*box, kAround / m_grid.scale))
            tile.painted = m_state;
    m_overview = {};
    askForTiles();
    askForHighlights();
}

void ViewPicture::show(const ViewFrame& frame, QSize pixels, double ratio)
{
    m_ratio = ratio;
    const double scale = pixels.height() / frame.height;
    const picture::Vertex corner{frame.centre.x - pixels.width() / 2.0 / scale, frame.centre.y + frame.height / 2};
    const double right = (corner.x - m_grid.corner.x) * scale;
    const double down = (m_grid.corner.y - corner.y) * scale;
    const bool isSame = m_grid.scale > 0.0 && std::fabs(scale / m_grid.scale - 1.0) < 1e-12 && isWhole(right) &&
                        isWhole(down) && std::max(std::fabs(right), std::fabs(down)) < 1e8;
    if (!isSame)
    {
        keepStill();
        m_pixels = pixels;
        startGrid(corner, scale);
    }
    else
        m_offset = {static_cast<int>(std::lround(right)), static_cast<int>(std::lround(down))};
    m_pixels = pixels;
    askForTiles();
    askForHighlights();
}

void ViewPicture::startGrid(const picture::Vertex& corner, double scale)
{
    if (m_scene)
        m_scene->queue().cancel(this);
    ++m_gridNumber;
    m_tiles.clear();
    m_offset = {0, 0};
    // The first picture is a whole number of tiles, so that nothing beyond it is painted.
    const auto sideFor = [](int pixels)
    {
        const int count = std::max(1, (pixels + kTileSide / 2) / kTileSide);
        return std::max(1, (pixels + count - 1) / count);
    };
    m_grid = {corner, scale, {sideFor(m_pixels.width()), sideFor(m_pixels.height())}};
}

/// Keeps what is seen as a picture to be carried along, if there is anything new in it.
void ViewPicture::keepStill()
{
    if (!m_hasFreshTiles || m_pixels.isEmpty() || !(m_grid.scale > 0.0))
        return;
    const bool isWhole = isSharp();
    Still still{QImage{m_pixels, QImage::Format_RGB32},
                {m_grid.corner.x + m_offset.x() / m_grid.scale, m_grid.corner.y - m_offset.y() / m_grid.scale},
                m_grid.scale};
    const double ratio = std::exchange(m_ratio, 1.0);
    const Still highlights = std::exchange(m_highlights, {});
    {
        QPainter painter{&still.image};
        paint(painter);
    }
    m_ratio = ratio;
    m_highlights = highlights;
    m_still = std::move(still);
    m_hasFreshTiles = false;
    const Box2d seen = m_grid.boxOf({m_offset, m_pixels});
    const Box2d& all = m_list->box();
    if (isWhole && !all.isEmpty() && seen.minX <= all.minX && seen.minY <= all.minY && seen.maxX >= all.maxX &&
        seen.maxY >= all.maxY)
        m_overview = m_still;
}

QRect ViewPicture::rectOf(Place place) const
{
    return {QPoint{place.first * m_grid.tile.width(), place.second * m_grid.tile.height()}, m_grid.tile};
}

bool ViewPicture::isCurrent(Place place) const
{
    const auto tile = m_tiles.find(place);
    return tile != m_tiles.end() && tile->second.painted == m_state;
}

/// The tiles that are seen, those about the middle of the window first.
std::vector<ViewPicture::Place> ViewPicture::shownPlaces() const
{
    std::vector<Place> places;
    if (m_grid.tile.isEmpty() || m_pixels.isEmpty())
        return places;
    const auto floorOf = [](int pixels, int side) { return (pixels >= 0 ? pixels : pixels - side + 1) / side; };
    const QRect seen{m_offset, m_pixels};
    for (int row = floorOf(seen.top(), m_grid.tile.height()); row <= floorOf(seen.bottom(), m_grid.tile.height());
         ++row)
        for (int column = floorOf(seen.left(), m_grid.tile.width());
             column <= floorOf(seen.right(), m_grid.tile.width()); ++column)
            places.emplace_back(column, row);
    const QPoint middle = seen.center();
    const auto away = [&](Place place) { return (rectOf(place).center() - middle).manhattanLength(); };
    std::stable_sort(places.begin(), places.end(), [&](Place a, Place b) { return away(a) < away(b); });
    return places;
}

bool ViewPicture::isSharp() const
{
    if (m_list == nullptr)
        return true;
    const std::vector<Place> places = shownPlaces();
    return std::all_of(places.begin(), places.end(), [this](Place place) { return isCurrent(place); });
}

void ViewPicture::askForTiles()
{
    if (m_list == nullptr || !(m_grid.scale > 0.0))
        return;
    m_scene->queue().cancelWaiting(this);
    std::vector<PaintQueue::Job> jobs;
    for (const Place& place : shownPlaces())
    {
        Tile& tile = m_tiles[place];
        const bool isBeingPainted = tile.asked == m_state && tile.hasBegun && *tile.hasBegun;
        if (tile.painted == m_state || isBeingPainted)
            continue;
        tile.asked = m_state;
        tile.hasBegun = std::make_shared<std::atomic<bool>>(false);
        jobs.push_back(tileJob(place, tile.hasBegun));
    }
    forgetFarTiles();
    m_scene->queue().add(this, std::move(jobs));
}

picture::Appearance ViewPicture::appearance() const
{
    picture::Appearance look;
    look.background = m_background;
    // A line stays a hair's breadth where pixels are small.
    look.thinLine = std::max(1.0, 0.8 * m_ratio);
    look.speck = std::max(1.0, std::round(0.8 * m_ratio));
    look.unitsPerMillimetre = 96.0 / 25.4 * m_ratio;
    look.pageHeight = m_pixels.height();
    return look;
}

PaintQueue::Job ViewPicture::tileJob(Place place, const std::shared_ptr<std::atomic<bool>>& hasBegun)
{
    const QRect rect = rectOf(place);
    return [this, place, hasBegun, size = rect.size(), toPixels = m_grid.toPixels(rect.topLeft()), grid = m_gridNumber,
            state = m_state, look = appearance(), hidden = m_hidden, scene = m_scene.get(),
            list = m_list](const std::atomic<bool>& stop)
    {
        *hasBegun = true;
        QImage image{size, QImage::Format_RGB32};
        image.fill(0xFF000000 | look.background);
        picture::Notes notes;
        {
            picture::Canvas canvas{image};
            const Box2d page{0.0, 0.0, static_cast<double>(size.width()), static_cast<double>(size.height())};
            picture::Painter painter{scene->lists(), canvas, look, page, notes};
            painter.hide(hidden.get());
            painter.setStop(&stop);
            painter.paint(*list, toPixels);
        }
        if (stop)
        {
            *hasBegun = false;
            post(this, [this, grid] { retry(grid); });
        }
        else
            post(this, [this, grid, place, state, image, notes] { takeTile(grid, place, state, image, notes); });
    };
}

/// Painting was given up: not for us when the grid is another one by now.
void ViewPicture::retry(uint64_t grid)
{
    if (grid == m_gridNumber)
        askForTiles();
}

void ViewPicture::takeTile(uint64_t grid, Place place, uint64_t state, const QImage& image, const picture::Notes& notes)
{
    if (grid != m_gridNumber)
        return;
    if (m_scene)
        m_scene->addNotes(notes);
    Tile& tile = m_tiles[place];
    if (state < tile.painted)
        return;
    tile.image = image;
    tile.painted = state;
    m_hasFreshTiles = true;
    emit changed();
    if (isSharp())
        emit becameSharp();
}

void ViewPicture::forgetFarTiles()
{
    const QRect near =
        QRect{m_offset, m_pixels}.adjusted(-m_pixels.width(), -m_pixels.height(), m_pixels.width(), m_pixels.height());
    std::erase_if(m_tiles, [&](const auto& entry) { return !rectOf(entry.first).intersects(near); });
}

void ViewPicture::askForHighlights()
{
    ++m_highlightsAsked;
    if (m_highlighted.empty() || m_list == nullptr || !(m_grid.scale > 0.0))
    {
        if (!std::exchange(m_highlights, {}).image.isNull())
            emit changed();
        return;
    }
    picture::Appearance look = appearance();
    look.ink = kHighlight;
    look.thinLine = kHighlightWidth;
    look.speck = std::round(3.0 * look.speck);
    Still still{QImage{},
                {m_grid.corner.x + m_offset.x() / m_grid.scale, m_grid.corner.y - m_offset.y() / m_grid.scale},
                m_grid.scale};
    const auto job = [this, still, look, size = m_pixels, toPixels = m_grid.toPixels(m_offset),
                      asked = m_highlightsAsked, items = m_highlighted, scene = m_scene.get(),
                      list = m_list](const std::atomic<bool>& stop)
    {
        Still painted = still;
        painted.image = QImage{size, QImage::Format_ARGB32_Premultiplied};
        painted.image.fill(0);
        picture::Notes notes;
        {
            picture::Canvas canvas{painted.image};
            const Box2d page{0.0, 0.0, static_cast<double>(size.width()), static_cast<double>(size.height())};
            picture::Painter painter{scene->lists(), canvas, look, page, notes};
            painter.setStop(&stop);
            painter.paint(*list, toPixels, items);
        }
        if (!stop)
            post(this, [this, asked, painted] { takeHighlights(asked, painted); });
    };
    m_scene->queue().add(this, {job}, true);
}

void ViewPicture::takeHighlights(uint64_t asked, const Still& still)
{
    if (asked != m_highlightsAsked)
        return;
    m_highlights = still;
    emit changed();
}

void ViewPicture::paint(QPainter& painter)
{
    const auto isThere = [this](Place place)
    {
        const auto tile = m_tiles.find(place);
        return tile != m_tiles.end() && !tile->second.image.isNull();
    };
    const std::vector<Place> places = shownPlaces();
    if (m_list == nullptr || !std::all_of(places.begin(), places.end(), isThere))
    {
        painter.fillRect(QRectF{QPointF{}, QSizeF{m_pixels} / m_ratio}, QColor::fromRgb(m_background));
        paintStill(painter, m_overview);
        paintStill(painter, m_still);
    }
    for (const Place& place : places)
        if (isThere(place))
        {
            QImage& image = m_tiles[place].image;
            image.setDevicePixelRatio(m_ratio);
            painter.drawImage(QPointF{rectOf(place).topLeft() - m_offset} / m_ratio, image);
        }
    paintStill(painter, m_highlights);
}

void ViewPicture::paintStill(QPainter& painter, const Still& still) const
{
    if (still.image.isNull() || !(m_grid.scale > 0.0))
        return;
    const double grow = m_grid.scale / still.scale;
    const double left = (still.corner.x - m_grid.corner.x) * m_grid.scale - m_offset.x();
    const double top = (m_grid.corner.y - still.corner.y) * m_grid.scale - m_offset.y();
    // Only what is seen of it: enormous rectangles are beyond the painter's own arithmetic.
    const QRectF seen = QRectF{-left / grow, -top / grow, m_pixels.width() / grow, m_pixels.height() / grow} &
                        QRectF{still.image.rect()};
    if (seen.isEmpty())
        return;
    const QRectF target{left + seen.left() * grow, top + seen.top() * grow, seen.width() * grow, seen.height() * grow};
    painter.drawImage(QRectF{target.topLeft() / m_ratio, target.size() / m_ratio}, still.image, seen);
}

} // namespace desktop
