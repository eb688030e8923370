#include "survey/line/stations.h"

#include "survey/line/alignment_walk.h"
#include "util/numbers.h"

#include <algorithm>
#include <cmath>

namespace survey
{

namespace
{

/// Nearer than this two places along a line are one, metres.
constexpr double kSamePlace = 1e-6;

/// The part of a line in which stations are counted from one place on.
struct Region
{
    double from;
    double to;
    double first; ///< station at `from`
    double sign;

    double stationAt(double distance) const { return first + sign * (distance - from); }
    double distanceOf(double station) const { return from + sign * (station - first); }
};

std::vector<Region> regionsOf(const AlignmentLine& line)
{
    std::vector<Region> regions{{0.0, lengthOf(line), line.startStation, 1.0}};
    for (const StationEquation& equation : line.equations)
    {
        const double to = regions.back().to;
        regions.back().to = equation.distance;
        regions.push_back({equation.distance, to, equation.ahead, equation.increasing ? 1.0 : -1.0});
    }
    return regions;
}

/// The distances along the line that have a station, each with its region.
std::vector<std::pair<double, size_t>> placesOf(const std::vector<Region>& regions, double station)
{
    std::vector<std::pair<double, size_t>> places;
    for (size_t i = 0; i < regions.size(); ++i)
    {
        const double distance = regions[i].distanceOf(station);
        const bool isLast = i + 1 == regions.size();
        if (distance >= regions[i].from - kSamePlace &&
            (isLast ? distance <= regions[i].to + kSamePlace : distance < regions[i].to - kSamePlace))
            places.emplace_back(distance, i);
    }
    return places;
}

} // namespace

Station stationAt(const AlignmentLine& line, double distance)
{
    const std::vector<Region> regions = regionsOf(line);
    const auto begun = [&](const Region& region) { return region.from <= distance + kSamePlace; };
    const auto count = static_cast<size_t>(std::count_if(regions.begin() + 1, regions.end(), begun));
    Station station{regions[count].stationAt(distance), count + 1};
    const auto isOther = [&](const auto& place) { return place.second != count; };
    const auto places = placesOf(regions, station.value);
    station.isRepeated = std::any_of(places.begin(), places.end(), isOther);
    return station;
}

std::vector<double> distancesOf(const AlignmentLine& line, double station)
{
    std::vector<double> distances;
    for (const auto& [distance, region] : placesOf(regionsOf(line), station))
        distances.push_back(distance);
    return distances;
}

std::u16string stationText(const Station& station)
{
    constexpr double kKilometre = 1000.0;
    const double rounded = std::round(std::fabs(station.value) * 100.0) / 100.0;
    const double kilometres = std::floor(rounded / kKilometre);
    const std::u16string metres = FormatReal(rounded - kilometres * kKilometre, 2);
    constexpr size_t kWidth = 6;
    std::u16string text = station.value < 0.0 && rounded > 0.0 ? u"-Km" : u"Km";
    text += FormatReal(kilometres, 0) + u"+";
    text += std::u16string(kWidth - std::min(metres.size(), kWidth), u'0') + metres;
    return station.isRepeated ? text + u" (" + FormatInteger(static_cast<int>(station.region)) + u")" : text;
}

} // namespace survey
