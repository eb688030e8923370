#include "picture/paint/canvas.h"

#include "picture/paint/image_store.h"

#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>

#include <algorithm>
#include <array>

namespace picture
{

namespace
{

constexpr size_t kMostGathered = 4'000;

/// Has all Vietnamese letters.
constexpr const char* kSearchFont = "DejaVu Sans";
constexpr int kSearchPixels = 100;

const QRawFont& searchFont()
{
    static const QRawFont font = []
    {
        QFont named{QString::fromLatin1(kSearchFont)};
        named.setPixelSize(kSearchPixels);
        named.setHintingPreference(QFont::PreferNoHinting);
        return QRawFont::fromFont(named);
    }();
    return font;
}

QColor toColor(Rgb rgb)
{
    return QColor::fromRgb(rgb);
}

} // namespace

Canvas::Canvas(QPainter& painter, Medium medium) : m_painter{&painter}, m_medium{medium} {}

Canvas::Canvas(QImage& image)
    : m_image{&image}, m_own{std::make_unique<QPainter>(&image)}, m_painter{m_own.get()}, m_medium{Medium::kPixels},
      // The image is nobody else's: its pixels stay where they are.
      m_raster{std::in_place, reinterpret_cast<uint32_t*>(image.bits()), image.width(), image.height(),
               static_cast<size_t>(image.bytesPerLine()) / sizeof(uint32_t)}
{
    m_painter->setRenderHint(QPainter::Antialiasing);
}

Canvas::~Canvas()
{
    flush();
}

void Canvas::setPen(Rgb color, double width)
{
    if (color == m_color && width == m_width)
        return;
    flush();
    m_color = color;
    m_width = width;
}

void Canvas::line(std::span<const Vertex> points, bool closed)
{
    if (points.size() < 2)
        return;
    if (isDirect())
        return m_raster->line(points, closed, m_color, std::max(1.0, m_width));
    for (const Vertex& point : points)
        m_points.push_back(onGrid(point));
    m_lines.emplace_back(m_points.size(), closed);
    if (m_points.size() > kMostGathered)
        flush();
}

void Canvas::speck(const Vertex& middle, double size)
{
    if (m_raster)
        return m_raster->speck(middle, size, m_color);
    const std::array<Vertex, 2> line{Vertex{middle.x - size / 2, middle.y}, Vertex{middle.x + size / 2, middle.y}};
    this->line(line);
}

void Canvas::flush()
{
    if (m_lines.empty())
        return;
    QPainterPath path;
    size_t at = 0;
    for (const auto& [end, closed] : m_lines)
    {
        path.moveTo(m_points[at].x, m_points[at].y);
        for (++at; at < end; ++at)
            path.lineTo(m_points[at].x, m_points[at].y);
        if (closed)
            path.closeSubpath();
    }
    QPen pen{toColor(m_color), m_width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
    pen.setCosmetic(m_width == 0.0);
    m_painter->strokePath(path, pen);
    m_points.clear();
    m_lines.clear();
}

void Canvas::area(std::span<const std::vector<Vertex>> loops, Rgb color, bool evenOdd)
{
    flush();
    QPainterPath path;
    path.setFillRule(evenOdd ? Qt::OddEvenFill : Qt::WindingFill);
    for (const std::vector<Vertex>& loop : loops)
    {
        for (size_t i = 0; i < loop.size(); ++i)
        {
            const Vertex at = onGrid(loop[i]);
            if (i == 0)
                path.moveTo(at.x, at.y);
            else
                path.lineTo(at.x, at.y);
        }
        path.closeSubpath();
    }
    m_painter->fillPath(path, toColor(color));
}

bool Canvas::image(const std::string& file, const Map2d& map, const std::vector<Vertex>& outline)
{
    const QImage pixels = storedImage(file);
    if (pixels.isNull())
        return false;
    flush();
    QPainterPath path;
    for (size_t i = 0; i < outline.size(); ++i)
        if (i == 0)
            path.moveTo(outline[i].x, outline[i].y);
        else
            path.lineTo(outline[i].x, outline[i].y);
    path.closeSubpath();
    const double across = 1.0 / pixels.width();
    const double down = 1.0 / pixels.height();
    m_painter->save();
    m_painter->setClipPath(path);
    m_painter->setRenderHint(QPainter::SmoothPixmapTransform);
    m_painter->setTransform(
        QTransform{map.xx * across, map.yx * across, -map.xy * down, -map.yy * down, map.dx + map.xy, map.dy + map.yy},
        true);
    m_painter->drawImage(QPointF{0.0, 0.0}, pixels);
    m_painter->restore();
    return true;
}

void Canvas::within(const Box2d& box, const std::function<void(Canvas&, const Vertex&)>& paint)
{
    flush();
    if (m_image == nullptr)
        return paint(*this, {0.0, 0.0});
    const QRect part = QRectF{QPointF{box.minX, box.minY}, QPointF{box.maxX, box.maxY}}.toRect() & m_image->rect();
    if (part.isEmpty())
        return;
    QImage piece{m_image->bits() + part.y() * m_image->bytesPerLine() + part.x() * static_cast<int>(sizeof(uint32_t)),
                 part.width(), part.height(), m_image->bytesPerLine(), m_image->format()};
    Canvas inner{piece};
    paint(inner, {static_cast<double>(part.x()), static_cast<double>(part.y())});
}

void Canvas::searchable(std::u16string_view text, const Map2d& map, double advance)
{
    if (!m_searchable || text.empty())
        return;
    flush();
    const QRawFont& font = searchFont();
    const QList<quint32> glyphs =
        font.glyphIndexesForString(QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())));
    const QList<QPointF> advances = font.advancesForGlyphIndexes(glyphs);
    QList<QPointF> places;
    double width = 0.0;
    for (const QPointF& each : advances)
    {
        places.push_back({width, 0.0});
        width += each.x();
    }
    if (!(width > 0.0))
        return;
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes(glyphs);
    run.setPositions(places);
    const double across = advance / width;
    const double up = 1.0 / font.capHeight();
    m_painter->save();
    m_painter->setTransform(QTransform{map.xx * across, map.yx * across, -map.xy * up, -map.yy * up, map.dx, map.dy},
                            true);
    m_painter->setPen(QColor{0, 0, 0, 0});
    m_painter->drawGlyphRun({0.0, 0.0}, run);
    m_painter->restore();
}

} // namespace picture
