#include "desktop/sections/ground_here.h"

#include "host/db/damage.h"
#include "sectiondraw/ground_line.h"
#include "sections/records.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace desktop
{

namespace
{

bool isUsable(double scale)
{
    return std::isfinite(scale) && scale > 0.0;
}

std::optional<double> groundHeight(GroundLine& ground, const CrossSectionXdata& section, double offset)
{
    const std::optional<AcGePoint3d> met = ground.FindGroundPoint(offset);
    return met ? std::optional{(met->y - section.m_ptOrigin.y) / section.m_dScale} : std::nullopt;
}

} // namespace

std::optional<PlaceOnSection> placeOnSection(const CrossSectionXdata& section, const picture::Vertex& place)
{
    if (!isUsable(section.m_dScale))
        return std::nullopt;
    const host::InPassing inPassing;
    GroundLine ground{section};
    const double offset = (place.x - section.m_ptOrigin.x) / section.m_dScale;
    return PlaceOnSection{offset, (place.y - section.m_ptOrigin.y) / section.m_dScale,
                          groundHeight(ground, section, offset)};
}

std::optional<double> datumOf(const CrossSectionXdata& section)
{
    constexpr double kAgreement = 0.05;
    constexpr size_t kFewest = 3;
    if (!isUsable(section.m_dScale))
        return std::nullopt;
    const host::InPassing inPassing;
    GroundLine ground{section};
    std::vector<double> datums;
    for (const BlockFcode& point : section.m_listBlockFcode2)
        if (const std::optional<double> height = groundHeight(ground, section, point.m_dOffset))
            datums.push_back(point.m_ptPosition.z - *height);
    if (datums.size() < kFewest)
        return std::nullopt;
    std::sort(datums.begin(), datums.end());
    const double middle = datums[datums.size() / 2];
    const auto agrees = [middle](double datum) { return std::abs(datum - middle) <= kAgreement; };
    const auto agreeing = static_cast<size_t>(std::count_if(datums.begin(), datums.end(), agrees));
    return 2 * agreeing > datums.size() ? std::optional{middle} : std::nullopt;
}

} // namespace desktop
