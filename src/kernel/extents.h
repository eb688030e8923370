#pragma once

#include "kernel/point3d.h"

#include <algorithm>
#include <limits>

/// The smallest box along the world axes around the points added so far, drawing units. Starts empty; a point with a
/// coordinate that is not finite is left out.
class AcGeExtents
{
public:
    AcGeExtents() = default;
    AcGeExtents(const AcGePoint3d& a, const AcGePoint3d& b)
    {
        addPoint(a);
        addPoint(b);
    }

    /// False while nothing was added.
    bool isValid() const { return m_min.x <= m_max.x; }

    void addPoint(const AcGePoint3d& p)
    {
        if (!std::isfinite(p.x) || !std::isfinite(p.y) || !std::isfinite(p.z))
            return;
        m_min = {std::min(m_min.x, p.x), std::min(m_min.y, p.y), std::min(m_min.z, p.z)};
        m_max = {std::max(m_max.x, p.x), std::max(m_max.y, p.y), std::max(m_max.z, p.z)};
    }
    void addExtents(const AcGeExtents& other)
    {
        if (!other.isValid())
            return;
        addPoint(other.m_min);
        addPoint(other.m_max);
    }

    /// Meaningless while the box is not valid.
    const AcGePoint3d& minPoint() const { return m_min; }
    const AcGePoint3d& maxPoint() const { return m_max; }

    /// Whether the boxes share a place in plan (x and y), borders included. False when either is empty.
    bool meetsInPlan(const AcGeExtents& other) const
    {
        return m_min.x <= other.m_max.x && other.m_min.x <= m_max.x && m_min.y <= other.m_max.y &&
               other.m_min.y <= m_max.y;
    }

private:
    static constexpr double kFar = std::numeric_limits<double>::infinity();
    AcGePoint3d m_min{kFar, kFar, kFar};
    AcGePoint3d m_max{-kFar, -kFar, -kFar};
};
