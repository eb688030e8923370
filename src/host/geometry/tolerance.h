#pragma once

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
