#pragma once

#include "kernel/point3d.h"

#include <cstdint>
#include <vector>

/// Vertices of survey polylines in plan, asked whether one of them is where a given point is. Answers what a comparison
/// of the point with every vertex by `AcGePoint3d::isEqualTo` would, heights left out.
class VertexIndex
{
public:
    /// Makes room for `count` vertices; more may be added.
    explicit VertexIndex(size_t count = 0);

    void add(const AcGePoint3d& vertex);
    /// Whether a vertex equals `point` within the tolerance of all comparisons.
    bool has(const AcGePoint3d& point) const;

private:
    static constexpr uint32_t kNone = 0xffffffff;

    /// A vertex, chained to an earlier one whose cell falls into the same bucket.
    struct Node
    {
        AcGePoint3d place;
        uint32_t next;
    };

    size_t bucketOf(double cellX, double cellY) const;
    bool chainHas(size_t bucket, const AcGePoint3d& point) const;
    void grow();

    std::vector<uint32_t> m_buckets; ///< the node added last; their number is a power of two
    std::vector<Node> m_nodes;
};
