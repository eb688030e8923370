#include "picture/paint/painter.h"

#include "kernel/curve/arc_chords.h"
#include "picture/paint/clip.h"
#include "picture/paint/copies.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace picture
{

namespace
{

/// Things in blocks that are painted on one page, each time counted: what is beyond is left out, and told.
constexpr size_t kMostSpent = 1'000'000;
constexpr double kBarHeight = 3.0;   ///< specks: the lines of lower texts would run into each other, they are bars
constexpr double kPointShare = 0.05; ///< of the page's height, for points without a size
constexpr double kSurveyArm = 0.25;  ///< metres

} // namespace

Painter::Painter(const DrawingLists& lists, Canvas& canvas, const Appearance& appearance, const Box2d& page,
                 Notes& notes)
    : m_lists{lists}, m_canvas{canvas}, m_appearance{appearance}, m_page{page}, m_notes{notes}, m_stroker{canvas,
                                                                                                          m_appearance,
                                                                                                          page}
{
}

void Painter::paint(const DisplayList& list, const Map2d& toPage)
{
    const std::optional<Map2d> back = toPage.inverse();
    if (!back)
        return;
    // Points are as large as they are on the page, wherever they stand.
    const double dots = std::max(halfDot(false, toPage.stretch()), halfDot(true, toPage.stretch()));
    const Box2d& reach = m_stroker.reach();
    paint(list, toPage,
          list.itemsIn(back->boxAround({reach.minX - dots, reach.minY - dots, reach.maxX + dots, reach.maxY + dots})));
}

void Painter::paint(const DisplayList& list, const Map2d& toPage, const std::vector<uint32_t>& items)
{
    constexpr uint32_t kBetweenLooks = 255;
    m_pens.clear();
    for (uint32_t look = 0; look < m_lists.looks().count(); ++look)
        m_pens.push_back(penOf(look, nullptr));
    const Scope scope = scopeOf(list, toPage, nullptr);
    uint32_t painted = 0;
    for (const uint32_t item : items)
    {
        if ((++painted & kBetweenLooks) == 0 && m_stop != nullptr && m_stop->load(std::memory_order_relaxed))
            break;
        if (m_hidden == nullptr || !m_hidden->hasItem(item))
            paintItem(scope, item);
    }
    m_canvas.flush();
}

Painter::Scope Painter::scopeOf(const DisplayList& list, const Map2d& toPage, const Pen* around) const
{
    return {list, toPage, around, isPixels() ? m_appearance.speck / toPage.stretch() : 0.0};
}

bool Painter::spend()
{
    if (++m_spent == kMostSpent)
        m_notes.texts.insert("blocks in blocks are painted up to a million parts: the rest is left out");
    return m_spent < kMostSpent;
}

/// The look with what is open taken from its layer or the block around it; what is hidden is as on a frozen layer.
Pen Painter::penOf(uint32_t look, const Pen* around) const
{
    Pen pen = m_lists.looks().pen(look, around);
    if (m_hidden != nullptr && m_hidden->hasLayer(pen.layer))
    {
        pen.shown = false;
        pen.frozen = true;
    }
    return pen;
}

void Painter::paintItem(const Scope& scope, uint32_t index)
{
    const DisplayList::Item& item = scope.list.items()[index];
    if (paintAsSpeck(scope, index))
        return;
    for (const Primitive& primitive : scope.list.primitives(item))
    {
        const bool isTop = scope.around == nullptr;
        if (!isTop && !spend())
            return;
        const Pen inBlock = isTop ? Pen{} : penOf(primitive.look, scope.around);
        const Pen& pen = isTop ? m_pens[primitive.look] : inBlock;
        // What is in a block on a layer of its own is shown even where the reference's layer is off, not frozen.
        if (!(pen.shown || (primitive.kind == Primitive::kBlock && !pen.frozen)))
            continue;
        if (primitive.kind != Primitive::kBlock)
            usePen(pen);
        paintPrimitive(scope, primitive, pen);
    }
}

void Painter::paintContents(const Scope& scope)
{
    constexpr size_t kDeepest = 300;
    if (m_depth >= kDeepest)
        return;
    ++m_depth;
    for (uint32_t i = 0; i < scope.list.items().size() && m_spent < kMostSpent; ++i)
        paintItem(scope, i);
    --m_depth;
}

/// Whether the item is smaller than can be told and was painted as the speck it is.
bool Painter::paintAsSpeck(const Scope& scope, uint32_t index)
{
    const Box2d& box = scope.list.box(index);
    if (!(box.maxX - box.minX < scope.speck && box.maxY - box.minY < scope.speck) || box.isEmpty())
        return false;
    const DisplayList::Item& item = scope.list.items()[index];
    if (item.isScreenSized != 0 && (m_lists.pointStyle().mode > 1 || scope.list.isEndless()))
        return false;
    const std::optional<Pen> pen = firstPen(scope.list, item, scope.around, 0);
    if (!pen)
        return false;
    usePen(*pen);
    m_canvas.speck(scope.toPage * Vertex{(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2}, m_appearance.speck);
    return true;
}

/// What the first thing that an item shows is drawn with; nothing when that is not soon found.
std::optional<Pen> Painter::firstPen(const DisplayList& list, const DisplayList::Item& item, const Pen* around,
                                     size_t depth) const
{
    constexpr size_t kDeepest = 4;
    constexpr size_t kMostTried = 8;
    size_t tried = 0;
    for (const Primitive& primitive : list.primitives(item))
    {
        const Pen pen = around == nullptr ? m_pens[primitive.look] : penOf(primitive.look, around);
        if (primitive.kind != Primitive::kBlock && pen.shown)
            return pen;
        if (++tried > kMostTried)
            break;
        if (primitive.kind != Primitive::kBlock || pen.frozen || depth >= kDeepest)
            continue;
        const DisplayList& inner = m_lists.list(list.block(primitive).block);
        for (size_t i = 0; i < std::min(inner.items().size(), kMostTried); ++i)
            if (const std::optional<Pen> found = firstPen(inner, inner.items()[i], &pen, depth + 1))
                return found;
    }
    return std::nullopt;
}

Rgb Painter::colorOf(const Pen& pen) const
{
    if (m_appearance.ink)
        return *m_appearance.ink;
    const Rgb foreground = inkOn(m_appearance.background);
    if (pen.color.value == Color::kBackground)
        return m_appearance.background;
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
    case Primitive::kImage:
        return paintImage(scope, primitive);
    case Primitive::kView:
        return paintView(scope, primitive);
    }
}

/// Brings the points of a path onto the page, arcs as chords too short to be told from them.
void Painter::putOnPage(const Scope& scope, const Primitive& primitive)
{
    const std::span<const Vertex> vertices = scope.list.vertices(primitive);
    m_points.clear();
    if (primitive.kind == Primitive::kPath)
    {
        for (const Vertex& vertex : vertices)
            m_points.push_back(scope.toPage * vertex);
        return;
    }
    const size_t count = vertices.size() / 2;
    for (size_t i = 0; i < count; ++i)
    {
        const Vertex& from = vertices[2 * i];
        m_points.push_back(scope.toPage * from);
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
            m_points.push_back(scope.toPage * Vertex{on.x, on.y});
        }
    }
}

void Painter::paintPath(const Scope& scope, const Primitive& primitive, const Pen& pen)
{
    putOnPage(scope, primitive);
    const Linetype& linetype = m_lists.looks().linetype(pen.linetype);
    if (linetype.dashes.empty())
        return m_stroker.line(m_points, primitive.closed, m_appearance.gap);
    const double scale = scope.toPage.stretch() * m_lists.linetypeScale() * pen.linetypeScale;
    m_stroker.dashed(m_points, primitive.closed, linetype, scale);
}

void Painter::paintStrokes(const Scope& scope, const Primitive& primitive)
{
    const std::span<const Vertex> vertices = scope.list.vertices(primitive);
    for (size_t i = 0; i + 1 < vertices.size(); i += 2)
        m_stroker.line(std::array{scope.toPage * vertices[i], scope.toPage * vertices[i + 1]}, false, m_appearance.gap);
}

void Painter::paintArea(const Scope& scope, const Primitive& primitive, const Pen& pen)
{
    const std::span<const Vertex> vertices = scope.list.vertices(primitive);
    const double gap = m_appearance.gap * m_appearance.gap;
    std::vector<std::vector<Vertex>> loops;
    Box2d box;
    for (size_t i = 0; i < vertices.size();)
    {
        const auto count = static_cast<size_t>(vertices[i++].x);
        m_points.clear();
        for (size_t k = 0; k < count; ++k)
        {
            const Vertex at = scope.toPage * vertices[i++];
            box.add(at.x, at.y);
            const bool isApart = m_points.empty() ||
                                 std::pow(at.x - m_points.back().x, 2) + std::pow(at.y - m_points.back().y, 2) >= gap;
            if (isApart || count <= 4)
                m_points.push_back(at);
        }
        if (std::vector<Vertex> kept = clipLoop(m_points, m_page); kept.size() > 2)
            loops.push_back(std::move(kept));
    }
    if (!box.isEmpty() && isPixels() && std::max(box.maxX - box.minX, box.maxY - box.minY) < m_appearance.speck)
        return m_stroker.speck(box);
    if (loops.empty())
        return;
    if (m_appearance.ink)
    {
        // What stands out does not cover what lies in it.
        for (const std::vector<Vertex>& loop : loops)
            m_stroker.line(loop, true, m_appearance.gap);
        return;
    }
    m_canvas.area(loops, colorOf(pen), primitive.kind == Primitive::kArea);
    // A sliver may cover no pixel: its outline does.
    if (isPixels() && std::min(box.maxX - box.minX, box.maxY - box.minY) < m_appearance.speck)
        m_stroker.line(loops.front(), true, 0.5 * m_appearance.speck);
}

/// Half the size of a point's mark on the page.
double Painter::halfDot(bool isSurvey, double scale) const
{
    if (isSurvey)
        return std::max(kSurveyArm * m_lists.metre() * scale, m_appearance.speck);
    if (m_lists.pointStyle().mode <= 1)
        return m_appearance.speck;
    const double page = m_appearance.pageHeight > 0.0 ? m_appearance.pageHeight : m_page.maxY - m_page.minY;
    const double given = m_lists.pointStyle().size;
    return given > 0.0 ? given * scale / 2 : (given < 0.0 ? -given / 100.0 : kPointShare) * page / 2;
}

void Painter::paintDot(const Vertex& at, bool isSurvey, double scale)
{
    const double half = halfDot(isSurvey, scale);
    const Box2d& reach = m_stroker.reach();
    if (Box2d{at.x - 2 * half, at.y - 2 * half, at.x + 2 * half, at.y + 2 * half}.isApart(reach, 0.0))
        return;
    const int mode = isSurvey ? 3 : m_lists.pointStyle().mode;
    const auto line = [&](double x1, double y1, double x2, double y2)
    {
        const std::array<Vertex, 2> points{Vertex{at.x + x1, at.y + y1}, Vertex{at.x + x2, at.y + y2}};
        m_stroker.line(points, false, 0.0);
    };
    if (isSurvey && isPixels() && kSurveyArm * m_lists.metre() * scale < m_appearance.speck)
        return m_stroker.speck({at.x, at.y, at.x, at.y});
    switch (mode & 7)
    {
    case 0:
        m_stroker.speck({at.x, at.y, at.x, at.y});
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
        m_stroker.line(circle, true, 0.0);
    }
    if ((mode & 64) != 0)
    {
        const std::array<Vertex, 4> square{Vertex{at.x - half, at.y - half}, Vertex{at.x + half, at.y - half},
                                           Vertex{at.x + half, at.y + half}, Vertex{at.x - half, at.y + half}};
        m_stroker.line(square, true, 0.0);
    }
}

void Painter::paintStraight(const Scope& scope, const Primitive& primitive)
{
    const std::span<const Vertex> vertices = scope.list.vertices(primitive);
    const Vertex base = scope.toPage * vertices[0];
    const Vertex towards{scope.toPage.xx * vertices[1].x + scope.toPage.xy * vertices[1].y,
                         scope.toPage.yx * vertices[1].x + scope.toPage.yy * vertices[1].y};
    const double size = std::hypot(towards.x, towards.y);
    const double far = std::hypot(base.x, base.y) + m_stroker.reach().magnitude() * 4;
    if (!(size > 0.0) || !std::isfinite(far))
        return;
    const Vertex unit{towards.x / size, towards.y / size};
    const double back = primitive.kind == Primitive::kInfinite ? -far : 0.0;
    Vertex from{base.x + unit.x * back, base.y + unit.y * back};
    Vertex to{base.x + unit.x * far, base.y + unit.y * far};
    if (clipLine(from, to, m_stroker.reach()))
        m_canvas.line(std::array<Vertex, 2>{from, to});
}

void Painter::paintText(const Scope& scope, const Primitive& primitive, const Pen& pen)
{
    const PlacedText& text = scope.list.text(primitive);
    const Map2d map = scope.toPage * text.map();
    const Box2d box = map.boxAround({0.0, -0.5, std::max<double>(text.advance, 0.5), 1.5});
    if (box.isEmpty() || box.isApart(m_stroker.reach(), 0.0))
        return;
    const double height = std::hypot(map.xy, map.yy);
    const std::u16string_view letters = scope.list.letters(text);
    // On paper a text stays a text, however small.
    if (isPixels() && height < kBarHeight * m_appearance.speck)
        paintBar(map, text.advance, height, pen);
    else
        paintGlyphs(letters, scope.list.font(text), map, pen);
    m_canvas.searchable(letters, map, text.advance);
}

/// What a text too low to be read looks like.
void Painter::paintBar(const Map2d& map, double advance, double height, const Pen& pen)
{
    constexpr double kInkShare = 0.6; // of the height, for the body of small letters
    m_canvas.setPen(colorOf(pen), std::max(m_appearance.thinLine, kInkShare * height));
    m_stroker.line(std::array{map * Vertex{0.0, 0.5}, map * Vertex{advance, 0.5}}, false, m_appearance.speck);
}

void Painter::paintGlyphs(std::u16string_view letters, const Font& font, const Map2d& map, const Pen& pen)
{
    const double gap = std::min(m_appearance.gap, 0.3 * m_appearance.speck);
    double along = 0.0;
    std::vector<std::vector<Vertex>> outlines;
    while (!letters.empty())
    {
        const Glyph* glyph = shownGlyph(font, takeCharacter(letters));
        if (glyph == nullptr)
            continue;
        for (const std::vector<Vertex>& path : glyph->paths)
        {
            m_points.clear();
            for (const Vertex& vertex : path)
                m_points.push_back(map * Vertex{vertex.x + along, vertex.y});
            if (!font.isFilled())
                m_stroker.line(m_points, false, gap);
            else if (std::vector<Vertex> kept = clipLoop(m_points, m_page); kept.size() > 2)
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
    const DisplayList& list = m_lists.list(placed.block);
    const Map2d toPage = scope.toPage * placed.map;
    const Box2d box = toPage.boxAround(list.box());
    const bool mayReach = list.isEndless() || (list.isScreenSized() && m_lists.pointStyle().mode > 1);
    if (!mayReach && (box.isEmpty() || box.isApart(m_stroker.reach(), 0.0)))
        return;
    paintContents(scopeOf(list, toPage, &pen));
}

void Painter::paintImage(const Scope& scope, const Primitive& primitive)
{
    const PlacedImage& image = scope.list.image(primitive);
    m_points.clear();
    for (const Vertex& vertex : image.outline)
        m_points.push_back(scope.toPage * vertex);
    const std::vector<Vertex> seen = clipLoop(m_points, m_page);
    if (seen.size() < 3)
        return;
    if (m_appearance.ink || !m_canvas.image(image.file, scope.toPage * image.map, seen))
        m_stroker.line(m_points, true, 0.0);
}

/// What is seen through a window of a layout: painted as a page of its own, cut to the window.
void Painter::paintView(const Scope& scope, const Primitive& primitive)
{
    const PlacedView& view = scope.list.view(primitive);
    Box2d frame = scope.toPage.boxAround(view.frame);
    frame = {std::max(frame.minX, m_page.minX), std::max(frame.minY, m_page.minY), std::min(frame.maxX, m_page.maxX),
             std::min(frame.maxY, m_page.maxY)};
    if (m_isInView || frame.minX >= frame.maxX || frame.minY >= frame.maxY)
        return;
    Hidden hidden{{}, m_hidden != nullptr ? m_hidden->layers : std::vector<bool>{}};
    const std::vector<Layer>& layers = m_lists.looks().layers();
    hidden.layers.resize(layers.size());
    for (size_t i = 0; i < layers.size(); ++i)
        for (const std::u16string& name : view.frozenLayers)
            if (equalNoCase(name, layers[i].name))
                hidden.layers[i] = true;
    m_canvas.within(
        frame,
        [&](Canvas& canvas, const Vertex& corner)
        {
            const Box2d page{frame.minX - corner.x, frame.minY - corner.y, frame.maxX - corner.x,
                             frame.maxY - corner.y};
            Painter inner{m_lists, canvas, m_appearance, page, m_notes};
            inner.m_isInView = true;
            inner.hide(&hidden);
            inner.setStop(m_stop);
            inner.paint(m_lists.list(view.list), Map2d::translation({-corner.x, -corner.y}) * scope.toPage * view.map);
        });
}

/// Rows and columns: only the copies that are on the page; where they are beyond counting, the ground they cover.
void Painter::paintCopies(const Scope& scope, const PlacedBlock& placed, const Grid& grid, const Pen& pen)
{
    const DisplayList& list = m_lists.list(placed.block);
    const Map2d first = scope.toPage * placed.map;
    const Box2d box = first.boxAround(list.box());
    if (box.isEmpty())
        return;
    const Copies copies{grid, scope.toPage, box, m_stroker.reach()};
    if (!copies.areCountable())
    {
        m_notes.texts.insert("rows and columns of more than 200,000 copies in view are drawn as the area they cover");
        const std::vector<Vertex> ground = copies.ground();
        usePen(pen);
        if (const std::vector<Vertex> kept = clipLoop(ground, m_page); kept.size() > 2)
            m_canvas.area({&kept, 1}, colorOf(pen), true);
        return m_stroker.line(ground, true, 0.0);
    }
    copies.visit(
        [&](const Vertex& by)
        {
            Map2d map = first;
            map.dx += by.x;
            map.dy += by.y;
            paintContents(scopeOf(list, map, &pen));
        });
}

} // namespace picture
