#pragma once

#include <algorithm>
#include <limits>

/// How near two points (drawing units) or two vectors (their own units) must be to count as equal.
class AcGeTol
{
public:
    constexpr AcGeTol() = default;
    constexpr explicit AcGeTol(double both) : m_point(both), m_vector(both) {}
    constexpr AcGeTol(double point, double vector) : m_point(point), m_vector(vector) {}

    constexpr double equalPoint() const { return m_point; }
    constexpr double equalVector() const { return m_vector; }

private:
    double m_point = 1e-10;
    double m_vector = 1e-10;
};

struct AcGeContext
{
    /// The tolerance of every comparison that names none: 1e-10.
    static constexpr AcGeTol gTol{};
};

/// Coordinates of this size or more, like those that are not numbers, belong to nothing that can be met.
inline constexpr double kLargestCoordinate = 1e50;

/// How near two computed places must be to be the same place, in drawing units: 1e-10, or sixteen roundings of the
/// largest coordinate involved where that is more (7e-8 at 2e7).
constexpr double placeTolerance(double largestCoordinate)
{
    return std::max(1e-10, 16.0 * std::numeric_limits<double>::epsilon() * largestCoordinate);
}
