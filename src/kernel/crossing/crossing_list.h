#pragma once

#include "kernel/crossing/plane_crossing.h"
#include "kernel/point3d.h"

#include <utility>

/// Collects the places where a path is met, segment after segment, and keeps what `intersect` promises about their
/// order and about shared vertices. Works in the caller's array, which it empties first; the places are in whatever
/// coordinates they were added in.
class CrossingList
{
public:
    explicit CrossingList(AcGePoint3dArray& points) : m_points(points) { m_points.clear(); }

    void add(const AcGePoint3d& p) { m_points.push_back(p); }

    /// Adds the one place where a segment is met and ends the segment.
    void addOnly(const AcGePoint3d& p)
    {
        if (!m_points.empty() && isSamePlace(m_points.back(), p))
            return;
        m_points.push_back(p);
        m_done = m_points.size();
    }

    /// Ends a segment of the path: orders what was added since the last by `keyOf`, drops what the list ended with.
    template <typename KeyOf>
    void endSegment(const KeyOf& keyOf)
    {
        if (m_points.size() == m_done)
            return;
        if (m_points.size() - m_done > 1)
            std::sort(m_points.begin() + static_cast<std::ptrdiff_t>(m_done), m_points.end(),
                      [&](const AcGePoint3d& p, const AcGePoint3d& q) { return keyOf(p) < keyOf(q); });
        std::size_t kept = m_done;
        for (std::size_t i = m_done; i < m_points.size(); ++i)
            if (kept == 0 || !isSamePlace(m_points[kept - 1], m_points[i]))
                m_points[kept++] = m_points[i];
        m_points.resize(kept);
        m_done = kept;
    }

    /// Ends a path that ends where it began, at `start`: the last place is dropped when it is the first one again.
    void endClosed(const AcGePoint3d& start)
    {
        if (m_points.size() > 1 && isSamePlace(m_points.front(), start) && isSamePlace(m_points.back(), start))
            m_points.pop_back();
    }

private:
    static bool isSamePlace(const AcGePoint3d& p, const AcGePoint3d& q)
    {
        const double tolerance = placeTolerance(std::max({std::fabs(p.x), std::fabs(p.y), std::fabs(p.z)}));
        return (p - q).lengthSqrd() <= tolerance * tolerance;
    }

    AcGePoint3dArray& m_points;
    std::size_t m_done = 0;
};
