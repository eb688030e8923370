#include "desktop/sections/road_axis.h"

#include "desktop/language/qt_text.h"
#include "sections/records.h"
#include "survey/line/station_text.h"
#include "survey/line/stations.h"

#include <algorithm>
#include <cmath>

namespace desktop
{

RoadAxis::RoadAxis(const ItemReferenceLine& line)
{
    std::vector<double> named;
    for (const CrossSectionXdata& section : line.m_listCrossSections)
    {
        const picture::Vertex at{section.m_ptCenter.x, section.m_ptCenter.y};
        const double before = m_points.empty() ? 0.0 : m_points.back().station;
        const double way =
            m_points.empty() ? 0.0 : std::hypot(at.x - m_points.back().at.x, at.y - m_points.back().at.y);
        m_points.push_back({at, before + way});
        m_reach = std::max({m_reach, section.m_dExtent1, section.m_dExtent2});
        if (const auto station = survey::readStation(toUtf8(section.m_strName)))
            named.push_back(station->value);
    }
    m_isNamed = named.size() == m_points.size() && named.size() > 1 &&
                std::adjacent_find(named.begin(), named.end(), std::greater_equal<>{}) == named.end();
    for (size_t i = 0; m_isNamed && i < named.size(); ++i)
        m_points[i].station = named[i];
}

std::optional<RoadAxis::Foot> RoadAxis::footOf(const picture::Vertex& place) const
{
    std::optional<Foot> nearest;
    for (size_t i = 1; i < m_points.size(); ++i)
    {
        const Point& from = m_points[i - 1];
        const double dx = m_points[i].at.x - from.at.x;
        const double dy = m_points[i].at.y - from.at.y;
        const double length = std::hypot(dx, dy);
        if (!(length > 0.0))
            continue;
        const double px = place.x - from.at.x;
        const double py = place.y - from.at.y;
        const double share = std::clamp((px * dx + py * dy) / (length * length), 0.0, 1.0);
        const double distance = std::hypot(px - share * dx, py - share * dy);
        const double side = dx * py - dy * px > 0.0 ? -1.0 : 1.0;
        if (distance <= m_reach && (!nearest || distance < nearest->distance))
            nearest = {from.station + share * (m_points[i].station - from.station), side * distance, distance};
    }
    return nearest;
}

QString stationShown(double station)
{
    return toQString(survey::stationText({station, 1, false}));
}

} // namespace desktop
