#pragma once

#include "picture/map2d.h"

#include <QString>

#include <optional>
#include <vector>

struct ItemReferenceLine;

namespace desktop
{

/// The way along an alignment as its sections tell it: straight from one section's middle to the next one's.
class RoadAxis
{
public:
    explicit RoadAxis(const ItemReferenceLine& line);

    struct Foot
    {
        double station;
        double offset;   ///< to the right of the way is positive
        double distance; ///< of the place from the axis
    };
    /// Where a place lies beside the axis; nothing farther from it than its sections reach.
    std::optional<Foot> footOf(const picture::Vertex& place) const;
    /// Whether stations are those that the sections' names say; else they count from the first section.
    bool isNamed() const { return m_isNamed; }

private:
    struct Point
    {
        picture::Vertex at;
        double station;
    };

    std::vector<Point> m_points;
    double m_reach = 0.0;
    bool m_isNamed = false;
};

/// "Km1+234.50", or the plain distance when it is none.
QString stationShown(double station);

} // namespace desktop
