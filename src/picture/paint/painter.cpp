#include "picture/paint/painter.h"

#include "kernel/curve/arc_chords.h"
#include "picture/paint/clip.h"
#include "picture/paint/dashes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace picture
{

namespace
{

/// Things painted on one page, contents of blocks counted each time: what is beyond is left out, and told.
constexpr size_t kMostSpent = 4'000'000;
constexpr double kMostDashes = 20'000.0;
constexpr double kShortestDash = 1.5; ///< pixels for a whole pattern; finer ones are drawn as a line
constexpr double kBarHeight = 3.0;    ///< specks: the lines of lower texts would run into each other, they are bars
constexpr double kPointShare = 0.05;  ///< of the page's height, for points without a size
constexpr double kSurveyArm = 0.25;   ///< metres

double distance(const Vertex& a, const Vertex& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

} // namespace

Painter::Painter(DrawingLists& lists, Canvas& canvas, const Appearance& appearance, const Box2d& page)
    : m_lists{lists}, m_canvas{canvas}, m_appearance{appearance}, m_page{page}, m_reach{page}
{
    const double reach = 4.0 * appearance.thinLine + 2.2 * appearance.unitsPerMillimetre;
    m_reach = {page.minX - reach, page.minY - reach, page.maxX + reach, page.maxY + reach};
}

void Painter::paint(DisplayList& list, const Map2d& toPage)
{
    const Scope scope{list, toPage, nullptr, 0};
    const double det = toPage.xx * toPage.yy - toPage.xy * toPage.yx;
    if (!std::isfinite(det) || det == 0.0)
        return;
    const double left = (m_reach.minX - toPage.dx) / toPage.xx;
    const double right = (m_reach.maxX - toPage.dx) / toPage.xx;
    const double low = (m_reach.minY - toPage.dy) / toPage.yy;
    const double high = (m_reach.maxY - toPage.dy) / toPage.yy;
    const Box2d window{std::min(left, right), std::min(low, high), std::max(left, right), std::max(low, high)};
    for (const uint32_t item : list.itemsIn(window))
        paintItem(scope, item);
    m_canvas.flush();
}

bool Painter::spend()
{
    if (++m_spent == kMostSpent)
        m_lists.notes().texts.insert("blocks in blocks are painted up to four million parts: the rest is left out");
    return m_spent < kMostSpent;
}

void Painter::paintItem(const Scope& scope, uint32_t index)
{
    const DisplayList::Item& item = scope.list.items()[index];
    for (const Primitive& primitive : scope.list.primitives(item))
    {
        if (!spend())
            return;
        const Pen pen = m_lists.looks().pen(primitive.look, scope.around);
        // What is in a block on a layer of its own is shown even where the reference's layer is off, not frozen.
        const bool isShown =
            pen.shown || (primitive.kind == Primitive::kBlock && !m_lists.looks().layers()[pen.layer].frozen);
        if (!isShown)
            continue;
        if (primitive.kind != Primitive::kBlock)
            usePen(pen);
        paintPrimitive(scope, primitive, pen);
    }
}

Rgb Painter::colorOf(const Pen& pen) const
{
    const Rgb foreground = inkOn(m_appearance.background);
    if (m_appearance.monochrome || pen.color.value < 0)
        return foreground;
    const auto color = static_cast<Rgb>(pen.color.value);
    return color == m_appearance.background && color == 0xFFFFFF ? foreground : color;
}

void Painter::usePen(const Pen& pen)
{
    double width = m_appearance.thinLine;
    if (m_appearance.unitsPerMillimetre > 0.0 && m_lists.showsWeights())
    {
        constexpr int kUsualWeight = 25;
        const int weight = pen.weight < 0 ? kUsualWeight : pen.weight;
        width = std::max(width, weight / 100.0 * m_appearance.unitsPerMillimetre);
    }
    m_canvas.setPen(colorOf(pen), width);
}

void Painter::paintPrimitive(const Scope& scope, const Primitive& primitive, const Pen& pen)
{
    switch (primitive.kind)
    {
    case Primitive::kPath:
    case Primitive::kArcs:
        return paintPath(scope, primitive, pen);
    case Primitive::kStrokes:
        return paintStrokes(scope, primitive);
    case Primitive::kArea:
    case Primitive::kBand:
        return paintArea(scope, primitive, pen);
    case Primitive::kDot:
    case Primitive::kSurvey:
        return paintDot(scope.toPage * scope.list.vertices(primitive)[0], primitive.kind == Primitive::kSurvey,
                        scope.toPage.stretch());
    case Primitive::kRay:
    case Primitive::kInfinite:
        return paintStraight(scope, primitive);
    case Primitive::kText:
        return paintText(scope, primitive, pen);
    case Primitive::kBlock:
        return paintBlock(scope, primitive, pen);
    }
}

/// The points of a path on the page, arcs as chords too short to be told from them.
std::vector<Vertex> Painter::onPage(const Scope& scope, const Primitive& primitive) const
{
    const std::span<const Vertex> vertices = scope.list.vertices(primitive);
    std::vector<Vertex> points;
    points.reserve(vertices.size());
    if (primitive.kind == Primitive::kPath)
    {
        for (const Vertex& vertex : vertices)
            points.push_back(scope.toPage * vertex);
        return points;
    }
    const size_t count = vertices.size() / 2;
    for (size_t i = 0; i < count; ++i)
    {
        const Vertex& from = vertices[2 * i];
        points.push_back(scope.toPage * from);
        const double bulge = vertices[2 * i + 1].x;
        if (bulge == 0.0 || (i + 1 == count && !primitive.closed))
            continue;
        const Vertex& to = vertices[i + 1 == count ? 0 : 2 * (i + 1)];
        const Segment2d arc{{from.x, from.y}, {to.x, to.y}, bulge};
        if (!arc.isUsable())
            continue;
        const int chords = chordsWithin(arc, m_appearance.tolerance / scope.toPage.stretch());
        for (int k = 1; k < chords; ++k)
        {
            const AcGePoint2d on = arc.at(static_cast<double>(k) / chords);
            points.push_back(scope.toPage * Vertex{on.x, on.y});
        }
    }
    return points;
}

/// Draws a line as far as it is on the page; points nearer together than `gap` become one.
void Painter::stroke(const std::vector<Vertex>& points, bool closed, double gap)
{
    Box2d box;
    for (const Vertex& point : points)
        box.add(point.x, point.y);
    if (box.isEmpty() || box.isApart(m_reach, 0.0))
        return;
    if (std::max(box.maxX - box.minX, box.maxY - box.minY) < gap)
        return paintSpeck(box);
    const bool isInside =
        box.minX >= m_reach.minX && box.maxX <= m_reach.maxX && box.minY >= m_reach.minY && box.maxY <= m_reach.maxY;
    m_run.clear();
    const auto add = [&](const Vertex& v)
    {
        if (m_run.empty() || distance(m_run.back(), v) >= gap)
            m_run.push_back(v);
    };
    if (isInside)
    {
        for (const Vertex& point : points)
            add(point);
        if (!closed && (m_run.back().x != points.back().x || m_run.back().y != points.back().y))
            m_run.push_back(points.back());
        return m_canvas.line(m_run, closed);
    }
    const size_t pieces = closed ? points.size() : points.size() - 1;
    for (size_t i = 0; i < pieces; ++i)
    {
        Vertex from = points[i];
        Vertex to = points[i + 1 < points.size() ? i + 1 : 0];
        const Vertex end = to;
        if (!clipLine(from, to, m_reach))
            continue;
        if (m_run.empty() || distance(m_run.back(), from) > gap)
        {
            m_canvas.line(m_run);
            m_run.assign(1, from);
        }
        m_run.push_back(to);
        if (to.x != end.x || to.y != end.y)
        {
            m_canvas.line(m_run);
            m_run.clear();
        }
    }
    m_canvas.line(m_run);
}

/// What is smaller than can be told stays to be seen as a speck.
void Painter::paintSpeck(const Box2d& box)
{
    const double half = m_appearance.speck / 2;
    const Vertex middle{(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2};
    const std::array<Vertex, 2> speck{Vertex{middle.x - half, middle.y}, Vertex{middle.x + half, middle.y}};
    m_canvas.line(speck);
}

void Painter::paintPath(const Scope& scope, const Primitive& primitive, const Pen& pen)
{
    const double gap = m_appearance.gap;
    const std::vector<Vertex> points = onPage(scope, primitive);
    const Linetype& linetype = m_lists.looks().linetype(pen.linetype);
    const double scale = scope.toPage.stretch() * m_lists.linetypeScale() * pen.linetypeScale;
    const double period = linetype.length * scale;
    double length = 0.0;
    if (!linetype.dashes.empty())
        for (size_t i = 1; i < points.size(); ++i)
            length += distance(points[i - 1], points[i]);
    const bool isDashed = !linetype.dashes.empty() && period > kShortestDash * m_appearance.speck &&
                          length / period * static_cast<double>(linetype.dashes.size()) < kMostDashes;
    if (!isDashed)
        return stroke(points, primitive.closed, gap);
    walkDashes(linetype, scale, points, primitive.closed,
               [&](std::span<const Vertex> dash) {
                   stroke({dash.begin(), dash.end()}, false, gap);
               });
}

void Painter::paintStrokes(const Scope& scope, const Primitive& primitive)
{
    const std::span<const Vertex> vertices = scope.list.vertices(primitive);
    for (size_t i = 0; i + 1 < vertices.size() && spend(); i += 2)
        stroke({scope.toPage * vertices[i], scope.toPage * vertices[i + 1]}, false, m_appearance.gap);
}

void Painter::paintArea(const Scope& scope, const Primitive& primitive, const Pen& pen)
{
    const std::span<const Vertex> vertices = scope.list.vertices(primitive);
    std::vector<std::vector<Vertex>> loops;
    Box2d box;
    for (size_t i = 0; i < vertices.size();)
    {
        const auto count = static_cast<size_t>(vertices[i++].x);
        std::vector<Vertex> loop;
        for (size_t k = 0; k < count; ++k)
        {
            loop.push_back(scope.toPage * vertices[i++]);
            box.add(loop.back().x, loop.back().y);
        }
        if (std::vector<Vertex> kept = clipLoop(loop, m_page); kept.size() > 2)
            loops.push_back(std::move(kept));
    }
    const double pixel = m_appearance.speck;
    if (loops.empty())
        return;
    m_canvas.area(loops, colorOf(pen), primitive.kind == Primitive::kArea);
    // A sliver may cover no pixel: its outline does.
    if (m_canvas.medium() == Medium::kPixels && std::min(box.maxX - box.minX, box.maxY - box.minY) < pixel)
        stroke(loops.front(), true, 0.5 * pixel);
}

void Painter::paintDot(const Vertex& at, bool isSurvey, double scale)
{
    if (at.x < m_reach.minX || at.x > m_reach.maxX || at.y < m_reach.minY || at.y > m_reach.maxY)
        return;
    const int mode = isSurvey ? 3 : m_lists.pointStyle().mode;
    const double given = m_lists.pointStyle().size;
    double half = given > 0.0 ? given * scale / 2
                              : (given < 0.0 ? -given / 100.0 : kPointShare) * (m_page.maxY - m_page.minY) / 2;
    if (isSurvey)
        half = std::max(kSurveyArm * m_lists.metre() * scale, m_appearance.speck);
    const auto line = [&](double x1, double y1, double x2, double y2)
    {
        const std::array<Vertex, 2> points{Vertex{at.x + x1, at.y + y1}, Vertex{at.x + x2, at.y + y2}};
        m_canvas.line(points);
    };
    switch (mode & 7)
    {
    case 0:
        paintSpeck({at.x, at.y, at.x, at.y});
        break;
    case 2:
        line(-2 * half, 0, 2 * half, 0);
        line(0, -2 * half, 0, 2 * half);
        break;
    case 3:
        line(-half, -half, half, half);
        line(-half, half, half, -half);
        break;
    case 4:
        line(0, 0, 0, -half);
        break;
    default:
        break;
    }
    if ((mode & 32) != 0)
    {
        std::vector<Vertex> circle;
        circle.reserve(32);
        for (int i = 0; i < 32; ++i)
            circle.push_back(
                {at.x + half * std::cos(i * std::numbers::pi / 16), at.y + half * std::sin(i * std::numbers::pi / 16)});
        m_canvas.line(circle, true);
    }
    if ((mode & 64) != 0)
    {
        const std::array<Vertex, 4> square{Vertex{at.x - half, at.y - half}, Vertex{at.x + half, at.y - half},
                                           Vertex{at.x + half, at.y + half}, Vertex{at.x - half, at.y + half}};
        m_canvas.line(square, true);
    }
}

void Painter::paintStraight(const Scope& scope, const Primitive& primitive)
{
    const std::span<const Vertex> vertices = scope.list.vertices(primitive);
    const Vertex base = scope.toPage * vertices[0];
    const Vertex towards{scope.toPage.xx * vertices[1].x + scope.toPage.xy * vertices[1].y,
                         scope.toPage.yx * vertices[1].x + scope.toPage.yy * vertices[1].y};
    const double size = std::hypot(towards.x, towards.y);
    const double far = std::hypot(base.x, base.y) + m_reach.magnitude() * 4;
    if (!(size > 0.0) || !std::isfinite(far))
        return;
    const Vertex unit{towards.x / size, towards.y / size};
    const double back = primitive.kind == Primitive::kInfinite ? -far : 0.0;
    Vertex from{base.x + unit.x * back, base.y + unit.y * back};
    Vertex to{base.x + unit.x * far, base.y + unit.y * far};
    if (clipLine(from, to, m_reach))
        m_canvas.line(std::array<Vertex, 2>{from, to});
}

void Painter::paintText(const Scope& scope, const Primitive& primitive, const Pen& pen)
{
    const PlacedText& text = scope.list.text(primitive);
    const Map2d map = scope.toPage * text.map();
    const Box2d box = map.boxAround({0.0, -0.5, std::max<double>(text.advance, 0.5), 1.5});
    if (box.isEmpty() || box.isApart(m_reach, 0.0))
        return;
    const double height = std::hypot(map.xy, map.yy);
    const std::u16string_view letters = scope.list.letters(text);
    const double right = text.advance;
    if (height < m_appearance.speck)
        stroke({map * Vertex{0.0, 0.5}, map * Vertex{right, 0.5}}, false, m_appearance.speck);
    else if (height < kBarHeight * m_appearance.speck)
    {
        const std::vector<Vertex> bar{map * Vertex{0.0, 0.2}, map * Vertex{right, 0.2}, map * Vertex{right, 0.8},
                                      map * Vertex{0.0, 0.8}};
        m_canvas.area({&bar, 1}, colorOf(pen), true);
    }
    else
        paintGlyphs(letters, scope.list.font(text), map, pen);
    m_canvas.searchable(letters, map, text.advance);
}

void Painter::paintGlyphs(std::u16string_view letters, const Font& font, const Map2d& map, const Pen& pen)
{
    const double gap = std::min(m_appearance.gap, 0.3 * m_appearance.speck);
    double along = 0.0;
    std::vector<std::vector<Vertex>> outlines;
    for (const char32_t character : charactersOf(letters))
    {
        const Glyph* glyph = shownGlyph(font, character);
        if (glyph == nullptr)
            continue;
        for (const std::vector<Vertex>& path : glyph->paths)
        {
            std::vector<Vertex> points;
            points.reserve(path.size());
            for (const Vertex& vertex : path)
                points.push_back(map * Vertex{vertex.x + along, vertex.y});
            if (!font.isFilled())
                stroke(points, false, gap);
            else if (std::vector<Vertex> kept = clipLoop(points, m_page); kept.size() > 2)
                outlines.push_back(std::move(kept));
        }
        along += glyph->advance;
    }
    if (!outlines.empty())
        m_canvas.area(outlines, colorOf(pen), false);
}

void Painter::paintBlock(const Scope& scope, const Primitive& primitive, const Pen& pen)
{
    const PlacedBlock& placed = scope.list.block(primitive);
    if (const Grid* grid = scope.list.grid(placed))
        return paintCopies(scope, placed, *grid, pen);
    DisplayList& list = m_lists.list(placed.block);
    const Scope inner{list, scope.toPage * placed.map, &pen, scope.depth + 1};
    const Box2d box = inner.toPage.boxAround(list.box());
    if (box.isEmpty() || (box.isApart(m_reach, 0.0) && !list.isEndless()))
        return;
    if (!list.isEndless() && m_canvas.medium() == Medium::kPixels &&
        std::max(box.maxX - box.minX, box.maxY - box.minY) < m_appearance.speck)
    {
        usePen(pen);
        return paintSpeck(box);
    }
    for (uint32_t i = 0; i < list.items().size(); ++i)
        paintItem(inner, i);
}

/// Rows and columns: only the copies that are on the page; where they stand closer than pixels, the ground they cover.
void Painter::paintCopies(const Scope& scope, const PlacedBlock& placed, const Grid& grid, const Pen& pen)
{
    constexpr double kMostCopies = 20'000.0;
    DisplayList& list = m_lists.list(placed.block);
    const Map2d first = scope.toPage * placed.map;
    const Map2d& toPage = scope.toPage;
    const auto stepOf = [&toPage](const Vertex& v) {
        return Vertex{toPage.xx * v.x + toPage.xy * v.y, toPage.yx * v.x + toPage.yy * v.y};
    };
    const Vertex column = stepOf(grid.columnStep);
    const Vertex row = stepOf(grid.rowStep);
    const Box2d box = first.boxAround(list.box());
    if (box.isEmpty())
        return;
    const double copies = static_cast<double>(grid.columns) * grid.rows;
    if (copies > kMostCopies)
    {
        m_lists.notes().texts.insert("rows and columns of more than 20,000 copies are drawn as the area they cover");
        const Vertex right{column.x * (grid.columns - 1), column.y * (grid.columns - 1)};
        const Vertex up{row.x * (grid.rows - 1), row.y * (grid.rows - 1)};
        const Vertex at{box.minX, box.minY};
        const std::vector<Vertex> ground{at,
                                         {at.x + right.x, at.y + right.y},
                                         {at.x + right.x + up.x, at.y + right.y + up.y},
                                         {at.x + up.x, at.y + up.y}};
        usePen(pen);
        if (const std::vector<Vertex> kept = clipLoop(ground, m_page); kept.size() > 2)
            m_canvas.area({&kept, 1}, colorOf(pen), true);
        return stroke(ground, true, 0.0);
    }
    for (uint32_t r = 0; r < grid.rows; ++r)
        for (uint32_t c = 0; c < grid.columns; ++c)
        {
            const Vertex by{column.x * c + row.x * r, column.y * c + row.y * r};
            if (Box2d{box.minX + by.x, box.minY + by.y, box.maxX + by.x, box.maxY + by.y}.isApart(m_reach, 0.0))
                continue;
            Map2d map = first;
            map.dx += by.x;
            map.dy += by.y;
            const Scope inner{list, map, &pen, scope.depth + 1};
            for (uint32_t i = 0; i < list.items().size(); ++i)
                paintItem(inner, i);
        }
}

} // namespace picture
