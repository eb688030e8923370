#pragma once

#include "survey/surface/snap_grid.h"

#include <unordered_map>
#include <vector>

namespace survey
{

/// The vertices of a surface in the making: no two at one place of the grid. The first that is added at a place gives
/// its coordinates and its height.
class VertexSet
{
public:
    explicit VertexSet(const SnapGrid& grid) : m_grid{grid} {}

    void reserve(size_t count);
    /// The vertex at the place of `point`, made when there is none.
    uint32_t add(const AcGePoint3d& point);

    const std::vector<GridPoint>& places() const { return m_places; }
    const AcGePoint3dArray& points() const { return m_points; }
    const SnapGrid& grid() const { return m_grid; }

private:
    SnapGrid m_grid;
    std::vector<GridPoint> m_places;
    AcGePoint3dArray m_points;
    std::unordered_map<GridPoint, uint32_t> m_index;
};

} // namespace survey
