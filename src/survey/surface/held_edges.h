#pragma once

#include "survey/surface/triangle_mesh.h"

#include <deque>
#include <unordered_set>

namespace survey
{

/// Makes segments edges of a mesh and keeps them: diagonals that cross one are turned until none does, and what was
/// turned is made as near to Delaunay as the held edges allow.
class HeldEdges
{
public:
    explicit HeldEdges(TriangleMesh& mesh) : m_mesh{mesh} {}

    /// The segment runs through no vertex and crosses no edge that is held; throws std::logic_error when it does.
    void hold(uint32_t from, uint32_t to);

private:
    struct Edge
    {
        uint32_t from;
        uint32_t to;
    };

    static uint64_t keyOf(uint32_t a, uint32_t b) { return uint64_t{std::min(a, b)} << 32 | std::max(a, b); }
    int sideOf(const Edge& segment, uint32_t vertex) const;
    TriangleMesh::Corner firstCrossed(const Edge& segment) const;
    std::deque<Edge> crossedBy(const Edge& segment) const;
    bool isTurnable(const TriangleMesh::Corner& corner) const;
    void settle(std::vector<Edge> fresh);

    TriangleMesh& m_mesh;
    std::unordered_set<uint64_t> m_held;
};

} // namespace survey
