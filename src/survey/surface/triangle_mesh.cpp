#include "survey/surface/triangle_mesh.h"

#include <algorithm>

namespace survey
{

namespace
{

__extension__ using Wide = __int128;

int64_t squared(const GridPoint& v)
{
    return v.x * v.x + v.y * v.y;
}

int64_t crossed(const GridPoint& a, const GridPoint& b)
{
    return a.x * b.y - a.y * b.x;
}

/// Whether `p` lies inside the circle through a, b and c, which run counter-clockwise.
bool isInCircleOf(const GridPoint& a, const GridPoint& b, const GridPoint& c, const GridPoint& p)
{
    const GridPoint u{a.x - p.x, a.y - p.y};
    const GridPoint v{b.x - p.x, b.y - p.y};
    const GridPoint w{c.x - p.x, c.y - p.y};
    return Wide{squared(u)} * crossed(v, w) + Wide{squared(v)} * crossed(w, u) + Wide{squared(w)} * crossed(u, v) > 0;
}

/// Whether `p`, on the line through a and b, lies between them.
bool isBetween(const GridPoint& a, const GridPoint& b, const GridPoint& p)
{
    return (a.x - p.x) * (b.x - p.x) + (a.y - p.y) * (b.y - p.y) < 0;
}

} // namespace

TriangleMesh::TriangleMesh(std::span<const GridPoint> points, std::array<uint32_t, 3> corners)
    : m_points{points}, m_triangleAt(points.size(), kNowhere)
{
    if (side(corners[0], corners[1], corners[2]) < 0)
        std::swap(corners[1], corners[2]);
    const auto [a, b, c] = corners;
    m_triangles.reserve(2 * points.size());
    m_triangles.push_back({{a, b, c}, {1, 2, 3}});
    m_triangles.push_back({{kNowhere, c, b}, {0, 3, 2}});
    m_triangles.push_back({{kNowhere, a, c}, {0, 1, 3}});
    m_triangles.push_back({{kNowhere, b, a}, {0, 2, 1}});
    m_mark.assign(m_triangles.size(), kNowhere);
    for (const uint32_t corner : corners)
        m_triangleAt[corner] = 0;
}

bool TriangleMesh::isOutside(uint32_t triangle) const
{
    const std::array<uint32_t, 3>& corners = m_triangles[triangle].corners;
    return corners[0] == kNowhere || corners[1] == kNowhere || corners[2] == kNowhere;
}

bool TriangleMesh::isInCircle(uint32_t triangle, uint32_t point) const
{
    const std::array<uint32_t, 3>& corners = m_triangles[triangle].corners;
    const auto far = std::find(corners.begin(), corners.end(), kNowhere);
    if (far == corners.end())
        return isInCircleOf(m_points[corners[0]], m_points[corners[1]], m_points[corners[2]], m_points[point]);
    const auto index = static_cast<size_t>(far - corners.begin());
    const uint32_t from = corners[(index + 1) % 3];
    const uint32_t to = corners[(index + 2) % 3];
    const int64_t outward = side(from, to, point);
    return outward > 0 || (outward == 0 && isBetween(m_points[from], m_points[to], m_points[point]));
}

/// A triangle whose circle has the point inside: the one it lies in, or one outside whose hull edge it sees.
uint32_t TriangleMesh::locate(uint32_t point) const
{
    uint32_t triangle = m_last;
    while (!isOutside(triangle))
    {
        const Triangle& here = m_triangles[triangle];
        size_t edge = 0;
        while (edge < 3 && side(here.corners[(edge + 1) % 3], here.corners[(edge + 2) % 3], point) >= 0)
            ++edge;
        if (edge == 3)
            break;
        triangle = here.neighbours[edge];
    }
    return triangle;
}

/// Gathers the triangles whose circles have the point inside, and the edges around them.
void TriangleMesh::openHole(uint32_t first, uint32_t point)
{
    m_hole.assign(1, first);
    m_rim.clear();
    m_mark[first] = point;
    for (size_t i = 0; i < m_hole.size(); ++i)
    {
        const Triangle& triangle = m_triangles[m_hole[i]];
        for (size_t edge = 0; edge < 3; ++edge)
        {
            const uint32_t behind = triangle.neighbours[edge];
            if (m_mark[behind] == point)
                continue;
            if (isInCircle(behind, point))
            {
                m_mark[behind] = point;
                m_hole.push_back(behind);
            }
            else
                m_rim.push_back({triangle.corners[(edge + 1) % 3], triangle.corners[(edge + 2) % 3], behind});
        }
    }
}

/// Joins the point with every edge of the rim. The hole has two triangles less than its rim has edges.
void TriangleMesh::fillHole(uint32_t point)
{
    for (int more = 0; more < 2; ++more)
    {
        m_hole.push_back(static_cast<uint32_t>(m_triangles.size()));
        m_triangles.emplace_back();
        m_mark.push_back(kNowhere);
    }
    for (size_t i = 0; i < m_rim.size(); ++i)
    {
        const auto [from, to, behind] = m_rim[i];
        const auto starts = [&](uint32_t vertex)
        {
            const auto found =
                std::find_if(m_rim.begin(), m_rim.end(), [&](const Rim& rim) { return rim.from == vertex; });
            return m_hole[static_cast<size_t>(found - m_rim.begin())];
        };
        const auto ends = [&](uint32_t vertex)
        {
            const auto found =
                std::find_if(m_rim.begin(), m_rim.end(), [&](const Rim& rim) { return rim.to == vertex; });
            return m_hole[static_cast<size_t>(found - m_rim.begin())];
        };
        m_triangles[m_hole[i]] = {{from, to, point}, {starts(to), ends(from), behind}};
        for (size_t edge = 0; edge < 3; ++edge)
            if (m_triangles[behind].corners[(edge + 1) % 3] == to &&
                m_triangles[behind].corners[(edge + 2) % 3] == from)
                m_triangles[behind].neighbours[edge] = m_hole[i];
        if (from != kNowhere)
            m_triangleAt[from] = m_hole[i];
        if (from != kNowhere && to != kNowhere)
            m_last = m_hole[i];
    }
    m_triangleAt[point] = m_last;
}

void TriangleMesh::insert(uint32_t point)
{
    openHole(locate(point), point);
    fillHole(point);
}

TriangleMesh::Corner TriangleMesh::at(uint32_t vertex) const
{
    const uint32_t triangle = m_triangleAt[vertex];
    uint32_t index = 0;
    while (m_triangles[triangle].corners[index] != vertex)
        ++index;
    return {triangle, index};
}

TriangleMesh::Corner TriangleMesh::turned(const Corner& corner) const
{
    // The neighbour across the edge from the corner after next to the corner itself.
    const uint32_t vertex = this->vertex(corner);
    const uint32_t triangle = m_triangles[corner.triangle].neighbours[(corner.index + 1) % 3];
    uint32_t index = 0;
    while (m_triangles[triangle].corners[index] != vertex)
        ++index;
    return {triangle, index};
}

TriangleMesh::Corner TriangleMesh::opposite(uint32_t from, uint32_t to) const
{
    const Corner first = at(from);
    Corner corner = first;
    do
    {
        if (vertex(corner, 1) == to)
            return {corner.triangle, (corner.index + 2) % 3};
        corner = turned(corner);
    } while (corner.triangle != first.triangle);
    return {kNowhere, 0};
}

TriangleMesh::Corner TriangleMesh::across(const Corner& corner) const
{
    const uint32_t triangle = m_triangles[corner.triangle].neighbours[corner.index];
    const uint32_t to = vertex(corner, 2);
    uint32_t index = 0;
    while (m_triangles[triangle].corners[(index + 1) % 3] != to)
        ++index;
    return {triangle, index};
}

void TriangleMesh::turnDiagonal(const Corner& corner)
{
    const Corner other = across(corner);
    const uint32_t a = vertex(corner);
    const uint32_t b = vertex(corner, 1);
    const uint32_t c = vertex(other);
    const uint32_t d = vertex(corner, 2);
    const Triangle near = m_triangles[corner.triangle];
    const Triangle far = m_triangles[other.triangle];
    const uint32_t dOutside = near.neighbours[(corner.index + 1) % 3]; // behind d → a
    const uint32_t aOutside = near.neighbours[(corner.index + 2) % 3]; // behind a → b
    const uint32_t bOutside = far.neighbours[(other.index + 1) % 3];   // behind b → c
    const uint32_t cOutside = far.neighbours[(other.index + 2) % 3];   // behind c → d
    m_triangles[corner.triangle] = {{a, b, c}, {bOutside, other.triangle, aOutside}};
    m_triangles[other.triangle] = {{c, d, a}, {dOutside, corner.triangle, cOutside}};
    const auto replace = [&](uint32_t triangle, uint32_t earlier, uint32_t now)
    { std::replace(m_triangles[triangle].neighbours.begin(), m_triangles[triangle].neighbours.end(), earlier, now); };
    replace(bOutside, other.triangle, corner.triangle);
    replace(dOutside, corner.triangle, other.triangle);
    for (const uint32_t vertex : {a, b})
        m_triangleAt[vertex] = corner.triangle;
    for (const uint32_t vertex : {c, d})
        m_triangleAt[vertex] = other.triangle;
}

} // namespace survey
