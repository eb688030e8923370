#include "survey/surface/held_edges.h"

#include <stdexcept>

namespace survey
{

using Corner = TriangleMesh::Corner;

/// 1 for a vertex left of the segment's line, -1 right, 0 on it.
int HeldEdges::sideOf(const Edge& segment, uint32_t vertex) const
{
    const int64_t area = doubleArea(m_mesh.place(segment.from), m_mesh.place(segment.to), m_mesh.place(vertex));
    return area > 0 ? 1 : area < 0 ? -1 : 0;
}

/// The corner at the segment's start whose opposite edge it crosses.
Corner HeldEdges::firstCrossed(const Edge& segment) const
{
    const Corner first = m_mesh.at(segment.from);
    Corner corner = first;
    do
    {
        if (!m_mesh.isOutside(corner.triangle) && sideOf(segment, m_mesh.vertex(corner, 1)) < 0 &&
            sideOf(segment, m_mesh.vertex(corner, 2)) > 0)
            return corner;
        corner = m_mesh.turned(corner);
    } while (corner.triangle != first.triangle);
    throw std::logic_error{"a break line of a surface runs through a vertex"};
}

/// The edges that the segment crosses, from its right to its left, in order along it.
std::deque<HeldEdges::Edge> HeldEdges::crossedBy(const Edge& segment) const
{
    std::deque<Edge> crossed;
    Corner corner = firstCrossed(segment);
    while (true)
    {
        const Edge edge{m_mesh.vertex(corner, 1), m_mesh.vertex(corner, 2)};
        if (m_held.contains(keyOf(edge.from, edge.to)))
            throw std::logic_error{"break lines of a surface cross"};
        crossed.push_back(edge);
        const Corner beyond = m_mesh.across(corner);
        const uint32_t vertex = m_mesh.vertex(beyond);
        if (vertex == segment.to)
            return crossed;
        const int side = sideOf(segment, vertex);
        if (side == 0)
            throw std::logic_error{"a break line of a surface runs through a vertex"};
        // On goes it across the edge whose ends lie on both sides: opposite the edge's end on the vertex's own side.
        corner = {beyond.triangle, (beyond.index + (side > 0 ? 1U : 2U)) % 3};
    }
}

/// Whether the two triangles on the edge opposite the corner make a convex shape of four corners.
bool HeldEdges::isTurnable(const Corner& corner) const
{
    const Corner other = m_mesh.across(corner);
    if (m_mesh.isOutside(corner.triangle) || m_mesh.isOutside(other.triangle))
        return false;
    const Edge diagonal{m_mesh.vertex(corner), m_mesh.vertex(other)};
    return sideOf(diagonal, m_mesh.vertex(corner, 1)) < 0 && sideOf(diagonal, m_mesh.vertex(corner, 2)) > 0;
}

void HeldEdges::hold(uint32_t from, uint32_t to)
{
    if (m_mesh.opposite(from, to).triangle != TriangleMesh::kNowhere)
    {
        m_held.insert(keyOf(from, to));
        return;
    }
    const Edge segment{from, to};
    std::deque<Edge> crossed = crossedBy(segment);
    std::vector<Edge> fresh;
    while (!crossed.empty())
    {
        const Edge edge = crossed.front();
        crossed.pop_front();
        const Corner corner = m_mesh.opposite(edge.from, edge.to);
        if (!isTurnable(corner))
        {
            crossed.push_back(edge);
            continue;
        }
        const Edge turned{m_mesh.vertex(corner), m_mesh.vertex(m_mesh.across(corner))};
        m_mesh.turnDiagonal(corner);
        const bool meetsEnd = turned.from == from || turned.from == to || turned.to == from || turned.to == to;
        if (!meetsEnd && sideOf(segment, turned.from) != sideOf(segment, turned.to))
            crossed.push_back(turned);
        else
            fresh.push_back(turned);
    }
    m_held.insert(keyOf(from, to));
    settle(std::move(fresh));
}

/// Turns diagonals until each has an empty circle or is held.
void HeldEdges::settle(std::vector<Edge> fresh)
{
    while (!fresh.empty())
    {
        const Edge edge = fresh.back();
        fresh.pop_back();
        if (m_held.contains(keyOf(edge.from, edge.to)))
            continue;
        const Corner corner = m_mesh.opposite(edge.from, edge.to);
        if (corner.triangle == TriangleMesh::kNowhere || !isTurnable(corner))
            continue;
        const uint32_t near = m_mesh.vertex(corner);
        const uint32_t far = m_mesh.vertex(m_mesh.across(corner));
        if (!m_mesh.isInCircle(corner.triangle, far))
            continue;
        m_mesh.turnDiagonal(corner);
        fresh.insert(fresh.end(), {{near, edge.from}, {edge.from, far}, {far, edge.to}, {edge.to, near}});
    }
}

} // namespace survey
