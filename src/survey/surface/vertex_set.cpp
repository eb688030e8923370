#include "survey/surface/vertex_set.h"

namespace survey
{

void VertexSet::reserve(size_t count)
{
    m_places.reserve(count);
    m_points.reserve(count);
    m_index.reserve(count);
}

uint32_t VertexSet::add(const AcGePoint3d& point)
{
    const GridPoint place = m_grid.snap({point.x, point.y});
    const auto [found, isNew] = m_index.try_emplace(place, static_cast<uint32_t>(m_places.size()));
    if (isNew)
    {
        m_places.push_back(place);
        m_points.push_back(point);
    }
    return found->second;
}

} // namespace survey
