#pragma once

#include "kernel/extents.h"

#include <cstdint>
#include <functional>

namespace survey
{

/// A place on a fine grid about a local origin. Coordinates stay below 2^29, so that areas are exact in 64 bits.
struct GridPoint
{
    int64_t x = 0;
    int64_t y = 0;

    bool operator==(const GridPoint&) const = default;
};

/// Twice the area of a triangle, positive when it runs counter-clockwise. Exact.
inline int64_t doubleArea(const GridPoint& a, const GridPoint& b, const GridPoint& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// Carries places of a surface to whole numbers: of 1/65536 metre, or of more where the surface is larger than 8 km.
class SnapGrid
{
public:
    /// All places that are carried lie within `extents`.
    explicit SnapGrid(const AcGeExtents& extents);

    GridPoint snap(const AcGePoint2d& place) const;
    AcGePoint2d placeOf(const GridPoint& point) const;

private:
    AcGePoint2d m_origin;
    double m_unit = 1.0; ///< metres; a power of 2
};

} // namespace survey

template <>
struct std::hash<survey::GridPoint>
{
    size_t operator()(const survey::GridPoint& point) const
    {
        const auto mixed = static_cast<uint64_t>(point.x) * 0x9E3779B97F4A7C15U + static_cast<uint64_t>(point.y);
        return (mixed ^ (mixed >> 32)) * 0xD6E8FEB86659FD93U;
    }
};
