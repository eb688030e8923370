#include "picture/list/pick.h"

#include <algorithm>

namespace picture
{

namespace
{

constexpr size_t kDeepest = 16;
constexpr double kMostCopies = 10'000.0;

double distanceToSegment(const Vertex& p, const Vertex& a, const Vertex& b)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double square = dx * dx + dy * dy;
    const double along = square > 0.0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0) : 0.0;
    return std::hypot(p.x - a.x - along * dx, p.y - a.y - along * dy);
}

/// Whether a place lies inside loops by the even-odd rule.
bool isInside(const Vertex& p, std::span<const Vertex> vertices)
{
    bool inside = false;
    for (size_t i = 0; i < vertices.size();)
    {
        const auto count = static_cast<size_t>(vertices[i++].x);
        for (size_t k = 0; k < count; ++k)
        {
            const Vertex& a = vertices[i + k];
            const Vertex& b = vertices[i + (k + 1 < count ? k + 1 : 0)];
            if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (b.x - a.x) * (p.y - a.y) / (b.y - a.y))
                inside = !inside;
        }
        i += count;
    }
    return inside;
}

class Picker
{
public:
    Picker(const DrawingLists& lists, const Hidden* hidden) : m_lists{lists}, m_hidden{hidden} {}

    bool hits(const DisplayList& list, uint32_t item, const Vertex& at, double reach, const Pen* around, size_t depth)
    {
        const auto primitives = list.primitives(list.items()[item]);
        return std::any_of(primitives.begin(), primitives.end(),
                           [&](const Primitive& primitive) { return hits(list, primitive, at, reach, around, depth); });
    }

private:
    bool hits(const DisplayList& list, const Primitive& primitive, const Vertex& at, double reach, const Pen* around,
              size_t depth)
    {
        const Pen pen = m_lists.looks().pen(primitive.look, around);
        if (m_hidden != nullptr && m_hidden->hasLayer(pen.layer))
            return false;
        if (primitive.kind == Primitive::kBlock)
            return !pen.frozen && hitsBlock(list, primitive, at, reach, pen, depth);
        return pen.shown && hitsShape(list, primitive, at, reach);
    }

    static bool hitsShape(const DisplayList& list, const Primitive& primitive, const Vertex& at, double reach)
    {
        if (primitive.kind == Primitive::kText)
        {
            const PlacedText& text = list.text(primitive);
            const std::optional<Map2d> back = text.map().inverse();
            const Vertex in = back ? *back * at : Vertex{};
            return back && in.x >= 0.0 && in.x <= text.advance && in.y >= -0.2 && in.y <= 1.1;
        }
        if (primitive.kind == Primitive::kImage)
            return hitsOutline(list.image(primitive).outline, at, reach);
        if (primitive.kind == Primitive::kView)
            return false; // its frame is a path
        const std::span<const Vertex> v = list.vertices(primitive);
        const auto isNear = [&](const Vertex& a, const Vertex& b) { return distanceToSegment(at, a, b) <= reach; };
        switch (primitive.kind)
        {
        case Primitive::kPath:
            for (size_t i = 1; i < v.size(); ++i)
                if (isNear(v[i - 1], v[i]))
                    return true;
            return !v.empty() && isNear(v.back(), primitive.closed ? v.front() : v.back());
        case Primitive::kStrokes:
            for (size_t i = 1; i < v.size(); i += 2)
                if (isNear(v[i - 1], v[i]))
                    return true;
            return false;
        case Primitive::kArcs:
            return hitsArcs(v, primitive.closed, at, reach);
        case Primitive::kArea:
        case Primitive::kBand:
            return isInside(at, v);
        case Primitive::kRay:
        case Primitive::kInfinite:
        {
            const double along = (at.x - v[0].x) * v[1].x + (at.y - v[0].y) * v[1].y;
            const double far = primitive.kind == Primitive::kRay ? std::max(0.0, along) : along;
            return isNear(v[0], {v[0].x + far * v[1].x, v[0].y + far * v[1].y});
        }
        default:
            return isNear(v[0], v[0]);
        }
    }

    static bool hitsOutline(std::span<const Vertex> outline, const Vertex& at, double reach)
    {
        for (size_t i = 0; i < outline.size(); ++i)
            if (distanceToSegment(at, outline[i], outline[i + 1 < outline.size() ? i + 1 : 0]) <= reach)
                return true;
        return false;
    }

    static bool hitsArcs(std::span<const Vertex> v, bool closed, const Vertex& at, double reach)
    {
        const size_t count = v.size() / 2;
        for (size_t i = 0; i + (closed ? 0 : 1) < count; ++i)
        {
            const Vertex& from = v[2 * i];
            const Vertex& to = v[2 * (i + 1 < count ? i + 1 : 0)];
            const Segment2d arc{{from.x, from.y}, {to.x, to.y}, v[2 * i + 1].x};
            if (arc.isUsable() ? arc.isNear({at.x, at.y}, reach) : distanceToSegment(at, from, to) <= reach)
                return true;
        }
        return false;
    }

    bool hitsBlock(const DisplayList& list, const Primitive& primitive, const Vertex& at, double reach, const Pen& pen,
                   size_t depth)
    {
        const PlacedBlock& placed = list.block(primitive);
        const Grid* grid = list.grid(placed);
        if (depth >= kDeepest)
            return false;
        if (grid == nullptr)
            return hitsCopy(placed, {}, at, reach, pen, depth);
        if (static_cast<double>(grid->columns) * grid->rows > kMostCopies)
            return true;
        for (uint32_t row = 0; row < grid->rows; ++row)
            for (uint32_t column = 0; column < grid->columns; ++column)
                if (hitsCopy(placed,
                             {column * grid->columnStep.x + row * grid->rowStep.x,
                              column * grid->columnStep.y + row * grid->rowStep.y},
                             at, reach, pen, depth))
                    return true;
        return false;
    }

    bool hitsCopy(const PlacedBlock& placed, const Vertex& by, const Vertex& at, double reach, const Pen& pen,
                  size_t depth)
    {
        const std::optional<Map2d> back = placed.map.inverse();
        if (!back)
            return false;
        const DisplayList& inner = m_lists.list(placed.block);
        const Vertex in = *back * Vertex{at.x - by.x, at.y - by.y};
        const double near = reach * back->stretch();
        for (const uint32_t item : inner.itemsIn({in.x - near, in.y - near, in.x + near, in.y + near}))
            if (hits(inner, item, in, near, &pen, depth + 1))
                return true;
        return false;
    }

    const DrawingLists& m_lists;
    const Hidden* m_hidden;
};

} // namespace

std::optional<uint32_t> pickItem(const DrawingLists& lists, const DisplayList& list, const Vertex& at, double reach,
                                 const Hidden* hidden)
{
    const std::vector<uint32_t> near = list.itemsIn({at.x - reach, at.y - reach, at.x + reach, at.y + reach});
    Picker picker{lists, hidden};
    for (auto item = near.rbegin(); item != near.rend(); ++item)
        if ((hidden == nullptr || !hidden->hasItem(*item)) && picker.hits(list, *item, at, reach, nullptr, 0))
            return *item;
    return std::nullopt;
}

} // namespace picture
