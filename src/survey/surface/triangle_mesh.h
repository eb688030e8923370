#pragma once

#include "survey/surface/snap_grid.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace survey
{

/// Triangles over points of the grid that cover their convex hull, each with its neighbours. Outside, every edge of the
/// hull has a triangle too: its third corner is the vertex `kNowhere`, infinitely far away. So each triangle has three
/// neighbours and no place is outside. Corners run counter-clockwise; all decisions are exact.
class TriangleMesh
{
public:
    static constexpr uint32_t kNowhere = 0xFFFFFFFF;

    struct Triangle
    {
        std::array<uint32_t, 3> corners;
        std::array<uint32_t, 3> neighbours; ///< opposite the corner of the same index
    };

    /// Begins with one triangle, of three points that do not lie on a line. `points` must outlive the mesh.
    TriangleMesh(std::span<const GridPoint> points, std::array<uint32_t, 3> corners);

    /// Puts in a point that is at no vertex, keeping every circle around a triangle empty (Delaunay). Only while no
    /// diagonal was turned.
    void insert(uint32_t point);

    /// A triangle and the index of one of its corners.
    struct Corner
    {
        uint32_t triangle;
        uint32_t index;
    };
    /// A corner whose opposite edge runs `from` → `to`; the triangle is `kNowhere` when there is no such edge.
    Corner opposite(uint32_t from, uint32_t to) const;
    /// The corner across the edge that is opposite this one.
    Corner across(const Corner& corner) const;
    /// A triangle that has the vertex as a corner.
    Corner at(uint32_t vertex) const;
    /// The next triangle counter-clockwise around the corner's vertex, at that vertex.
    Corner turned(const Corner& corner) const;

    uint32_t vertex(const Corner& corner, uint32_t step = 0) const
    {
        return m_triangles[corner.triangle].corners[(corner.index + step) % 3];
    }
    bool isOutside(uint32_t triangle) const;
    /// Whether the circle around the triangle, or the half-plane beyond its hull edge, has the point inside.
    bool isInCircle(uint32_t triangle, uint32_t point) const;
    /// Turns the diagonal opposite the corner: it then joins the corner with the one across. Both triangles stay the
    /// same two.
    void turnDiagonal(const Corner& corner);

    const std::vector<Triangle>& triangles() const { return m_triangles; }
    const GridPoint& place(uint32_t vertex) const { return m_points[vertex]; }

private:
    /// An edge of the hole that a new point makes, and the triangle behind it.
    struct Rim
    {
        uint32_t from;
        uint32_t to;
        uint32_t behind;
    };

    uint32_t locate(uint32_t point) const;
    void openHole(uint32_t first, uint32_t point);
    void fillHole(uint32_t point);
    void link(uint32_t triangle, uint32_t edge, uint32_t neighbour, uint32_t from, uint32_t to);
    int64_t side(uint32_t from, uint32_t to, uint32_t point) const
    {
        return doubleArea(m_points[from], m_points[to], m_points[point]);
    }

    std::span<const GridPoint> m_points;
    std::vector<Triangle> m_triangles;
    std::vector<uint32_t> m_triangleAt; ///< by vertex
    uint32_t m_last = 0;                ///< where the last point went in
    std::vector<uint32_t> m_hole;       ///< kept for their memory
    std::vector<Rim> m_rim;
    std::vector<uint32_t> m_mark; ///< by triangle: for which point it was last found to be in the hole
};

} // namespace survey
