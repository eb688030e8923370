#include "picture/paint/stroker.h"

#include "picture/paint/clip.h"
#include "picture/paint/dashes.h"

#include <algorithm>
#include <cmath>

namespace picture
{

namespace
{

constexpr double kMostDashes = 20'000.0;
constexpr double kShortestDash = 1.5; ///< specks for a whole pattern; finer ones are drawn as a line

double distance(const Vertex& a, const Vertex& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

bool isNear(const Vertex& a, const Vertex& b, double square)
{
    const double dx = a.x - b.x;
    const double dy = a.y - b.y;
    return dx * dx + dy * dy < square;
}

} // namespace

Stroker::Stroker(Canvas& canvas, const Appearance& appearance, const Box2d& page)
    : m_canvas{canvas}, m_appearance{appearance}
{
    const double reach = 4.0 * appearance.thinLine + 2.2 * appearance.unitsPerMillimetre;
    m_reach = {page.minX - reach, page.minY - reach, page.maxX + reach, page.maxY + reach};
}

void Stroker::speck(const Box2d& box)
{
    m_canvas.speck({(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2}, m_appearance.speck);
}

void Stroker::line(std::span<const Vertex> points, bool closed, double gap)
{
    Box2d box;
    for (const Vertex& point : points)
        box.add(point.x, point.y);
    if (box.isEmpty() || box.isApart(m_reach, 0.0))
        return;
    if (std::max(box.maxX - box.minX, box.maxY - box.minY) < gap)
        return speck(box);
    const bool isInside =
        box.minX >= m_reach.minX && box.maxX <= m_reach.maxX && box.minY >= m_reach.minY && box.maxY <= m_reach.maxY;
    if (!isInside && !m_canvas.cutsByItself())
        return cutLine(points, closed, gap);
    m_run.assign(1, points.front());
    const double square = gap * gap;
    for (const Vertex& point : points.subspan(1))
        if (!isNear(m_run.back(), point, square))
            m_run.push_back(point);
    if (!closed && (m_run.back().x != points.back().x || m_run.back().y != points.back().y))
        m_run.push_back(points.back());
    m_canvas.line(m_run, closed);
}

void Stroker::cutLine(std::span<const Vertex> points, bool closed, double gap)
{
    m_run.clear();
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

void Stroker::dashed(std::span<const Vertex> points, bool closed, const Linetype& linetype, double scale)
{
    const double gap = m_appearance.gap;
    const double period = linetype.length * scale;
    double length = 0.0;
    for (size_t i = 1; i < points.size(); ++i)
        length += distance(points[i - 1], points[i]);
    if (!(period > kShortestDash * m_appearance.speck) ||
        !(length / period * static_cast<double>(linetype.dashes.size()) < kMostDashes))
        return line(points, closed, gap);
    walkDashes(linetype, scale, points, closed, [this, gap](std::span<const Vertex> dash) { line(dash, false, gap); });
}

} // namespace picture
