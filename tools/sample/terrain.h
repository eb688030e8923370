#pragma once

#include "road.h"

#include <cstdint>

/// The ground of the sample: gentle hills, and along each road an embankment or a cutting with ditches.
class Terrain
{
public:
    explicit Terrain(std::uint64_t seed) : m_seed(seed) {}

    /// Height of the ground in metres at an offset from the centre line of `road`.
    double Height(const Road& road, double chainage, double offset) const;

private:
    double Noise(Point at, double wavelength) const;
    double Hills(Point at) const;
    double Natural(Point at) const;

    std::uint64_t m_seed;
};

/// Half the width of the carriageway, and of the formation with its shoulders, in metres.
inline constexpr double kRoadEdge = 3.5;
inline constexpr double kShoulder = 4.5;
