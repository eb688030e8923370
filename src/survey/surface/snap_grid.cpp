#include "survey/surface/snap_grid.h"

#include <cmath>

namespace survey
{

namespace
{

constexpr int kFinestUnit = -16; ///< as a power of 2, like the number of units that a surface may be wide
constexpr int kWidest = 29;

} // namespace

SnapGrid::SnapGrid(const AcGeExtents& extents)
{
    if (!extents.isValid())
        return;
    const AcGeVector3d size = extents.maxPoint() - extents.minPoint();
    int exponent = 0;
    std::frexp(std::max(size.x, size.y), &exponent); // the size is less than 2^exponent
    m_unit = std::ldexp(1.0, std::max(exponent + 1 - kWidest, kFinestUnit));
    m_origin = {std::floor(extents.minPoint().x), std::floor(extents.minPoint().y)};
}

GridPoint SnapGrid::snap(const AcGePoint2d& place) const
{
    return {std::llround((place.x - m_origin.x) / m_unit), std::llround((place.y - m_origin.y) / m_unit)};
}

AcGePoint2d SnapGrid::placeOf(const GridPoint& point) const
{
    return {m_origin.x + static_cast<double>(point.x) * m_unit, m_origin.y + static_cast<double>(point.y) * m_unit};
}

} // namespace survey
