#include "picture/paint/clip.h"

namespace picture
{

bool clipLine(Vertex& a, Vertex& b, const Box2d& box)
{
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    double first = 0.0;
    double last = 1.0;
    const auto cut = [&](double direction, double room)
    {
        if (direction == 0.0)
            return room >= 0.0;
        const double at = room / direction;
        if (direction < 0.0)
            first = std::max(first, at);
        else
            last = std::min(last, at);
        return first <= last;
    };
    if (!cut(-dx, a.x - box.minX) || !cut(dx, box.maxX - a.x) || !cut(-dy, a.y - box.minY) || !cut(dy, box.maxY - a.y))
        return false;
    const Vertex from = a;
    if (last < 1.0)
        b = {from.x + dx * last, from.y + dy * last};
    if (first > 0.0)
        a = {from.x + dx * first, from.y + dy * first};
    return true;
}

namespace
{

/// Keeps the part of the loop on the side where `depth` is not negative.
template <typename Depth>
std::vector<Vertex> cutSide(const std::vector<Vertex>& loop, const Depth& depth)
{
    std::vector<Vertex> kept;
    for (size_t i = 0; i < loop.size(); ++i)
    {
        const Vertex& a = loop[i];
        const Vertex& b = loop[i + 1 < loop.size() ? i + 1 : 0];
        const double from = depth(a);
        const double to = depth(b);
        if (from >= 0.0)
            kept.push_back(a);
        if ((from >= 0.0) != (to >= 0.0))
        {
            const double at = from / (from - to);
            kept.push_back({a.x + (b.x - a.x) * at, a.y + (b.y - a.y) * at});
        }
    }
    return kept;
}

} // namespace

std::vector<Vertex> clipLoop(const std::vector<Vertex>& loop, const Box2d& box)
{
    Box2d around;
    for (const Vertex& vertex : loop)
        around.add(vertex.x, vertex.y);
    if (around.isEmpty() || around.isApart(box, 0.0))
        return {};
    if (around.minX >= box.minX && around.maxX <= box.maxX && around.minY >= box.minY && around.maxY <= box.maxY)
        return loop;
    std::vector<Vertex> kept = cutSide(loop, [&](const Vertex& v) { return v.x - box.minX; });
    kept = cutSide(kept, [&](const Vertex& v) { return box.maxX - v.x; });
    kept = cutSide(kept, [&](const Vertex& v) { return v.y - box.minY; });
    return cutSide(kept, [&](const Vertex& v) { return box.maxY - v.y; });
}

} // namespace picture
