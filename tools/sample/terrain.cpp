#include "terrain.h"

#include "random.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double kSlope = 1.5; // metres sideways for a metre of height
constexpr double kDitchWidth = 1.2;
constexpr double kDitchDepth = 0.5;

double Smooth(double t)
{
    return t * t * (3 - 2 * t);
}
double Mix(double a, double b, double t)
{
    return a + (b - a) * t;
}
} // namespace

double Terrain::Noise(Point at, double wavelength) const
{
    const double x = at.x / wavelength;
    const double y = at.y / wavelength;
    const auto column = static_cast<std::int64_t>(std::floor(x));
    const auto row = static_cast<std::int64_t>(std::floor(y));
    const auto corner = [&](std::int64_t dx, std::int64_t dy)
    {
        const auto key = static_cast<std::uint64_t>((column + dx) * 1000003 + (row + dy));
        return 2 * UnitInterval(Scramble(key ^ Scramble(m_seed + static_cast<std::uint64_t>(wavelength)))) - 1;
    };
    const double tx = Smooth(x - static_cast<double>(column));
    const double ty = Smooth(y - static_cast<double>(row));
    return Mix(Mix(corner(0, 0), corner(1, 0), tx), Mix(corner(0, 1), corner(1, 1), tx), ty);
}

double Terrain::Hills(Point at) const
{
    return 18 + 7 * Noise(at, 420);
}

double Terrain::Natural(Point at) const
{
    return Hills(at) + 3.2 * Noise(at, 95) + 1.1 * Noise(at, 31) + 0.25 * Noise(at, 9);
}

double Terrain::Height(const Road& road, double chainage, double offset) const
{
    const double side = std::abs(offset);
    const double grade = Hills(road.At(chainage).at) + 0.7;
    if (side <= kRoadEdge)
        return grade - 0.02 * side;
    const double shoulder = grade - 0.02 * kRoadEdge - 0.04 * (std::min(side, kShoulder) - kRoadEdge);
    if (side <= kShoulder)
        return shoulder;

    const double natural = Natural(road.At(chainage, offset));
    const double down = shoulder - (side - kShoulder) / kSlope;
    if (natural < down)
        return down;
    const double beyondDitch = side - kShoulder - kDitchWidth;
    if (beyondDitch < 0)
        return std::min(natural, shoulder - kDitchDepth * (1 - std::abs(2 * beyondDitch / kDitchWidth + 1)));
    return std::min(natural, shoulder + beyondDitch / kSlope);
}
