#include "plan/vertex_index.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace
{

/// Cells to a drawing unit. A power of two, so that finding a cell rounds nothing.
constexpr double kCellsPerUnit = 1 << 26;

/// How far around a point its equals are looked for: enough that rounding the sum cannot leave one out.
constexpr double kReach = 2.0 * AcGeContext::gTol.equalPoint();

// What is in reach of a point lies in two neighbouring cells at most, also where the next coordinate that a double can
// hold is farther than the reach.
static_assert(1.0 / kCellsPerUnit > 16.0 * kReach);

constexpr size_t kLeastBuckets = 16;

/// The cell of a coordinate. Adding zero makes -0 the same cell as 0.
double cellOf(double coordinate)
{
    return std::floor(coordinate * kCellsPerUnit) + 0.0;
}

uint64_t mixed(uint64_t bits)
{
    bits ^= bits >> 32;
    bits *= 0x9e3779b97f4a7c15U;
    return bits ^ (bits >> 29);
}

/// The cells of a coordinate's equals: one, or two of which the second is given.
struct CellRange
{
    explicit CellRange(double coordinate) : first(cellOf(coordinate - kReach)), last(cellOf(coordinate + kReach)) {}
    double first;
    double last;
};

} // namespace

VertexIndex::VertexIndex(size_t count) : m_buckets(std::bit_ceil(std::max(count, kLeastBuckets)), kNone)
{
    m_nodes.reserve(count);
}

void VertexIndex::add(const AcGePoint3d& vertex)
{
    const AcGePoint3d place{vertex.x, vertex.y, 0.0};
    if (m_nodes.size() == m_buckets.size())
        grow();
    uint32_t& head = m_buckets[bucketOf(cellOf(place.x), cellOf(place.y))];
    for (uint32_t at = head; at != kNone; at = m_nodes[at].next)
        if (m_nodes[at].place.x == place.x && m_nodes[at].place.y == place.y)
            return; // polylines share most of their vertices
    m_nodes.push_back({place, head});
    head = static_cast<uint32_t>(m_nodes.size() - 1);
}

bool VertexIndex::has(const AcGePoint3d& point) const
{
    const AcGePoint3d place{point.x, point.y, 0.0};
    const CellRange x(place.x);
    const CellRange y(place.y);
    if (chainHas(bucketOf(x.first, y.first), place))
        return true;
    if (x.last != x.first && chainHas(bucketOf(x.last, y.first), place))
        return true;
    if (y.last == y.first)
        return false;
    return chainHas(bucketOf(x.first, y.last), place) ||
           (x.last != x.first && chainHas(bucketOf(x.last, y.last), place));
}

size_t VertexIndex::bucketOf(double cellX, double cellY) const
{
    const uint64_t hash = mixed(mixed(std::bit_cast<uint64_t>(cellX)) + std::bit_cast<uint64_t>(cellY));
    return hash & (m_buckets.size() - 1);
}

bool VertexIndex::chainHas(size_t bucket, const AcGePoint3d& point) const
{
    for (uint32_t at = m_buckets[bucket]; at != kNone; at = m_nodes[at].next)
        if (point.isEqualTo(m_nodes[at].place))
            return true;
    return false;
}

void VertexIndex::grow()
{
    m_buckets.assign(m_buckets.size() * 2, kNone);
    for (size_t i = 0; i < m_nodes.size(); ++i)
    {
        Node& node = m_nodes[i];
        uint32_t& head = m_buckets[bucketOf(cellOf(node.place.x), cellOf(node.place.y))];
        node.next = head;
        head = static_cast<uint32_t>(i);
    }
}
