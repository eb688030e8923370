#pragma once

#include <cmath>
#include <cstdint>

/// Scrambles 64 bits; the same on every machine, which keeps drawings reproducible.
constexpr std::uint64_t Scramble(std::uint64_t value)
{
    value += 0x9E3779B97F4A7C15ULL;
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9ULL;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBULL;
    return value ^ (value >> 31);
}

/// 64 random bits as a number in [0, 1).
constexpr double UnitInterval(std::uint64_t bits)
{
    return static_cast<double>(bits >> 11) * 0x1.0p-53;
}

/// A seeded stream of random numbers. Two streams made with the same seed and key give the same numbers, so that each
/// part of a drawing draws from its own stream and does not move when another part changes. Take one number an
/// expression: compilers differ in which of two they evaluate first.
class Random
{
public:
    explicit Random(std::uint64_t seed, std::uint64_t key = 0) : m_state(Scramble(seed) ^ Scramble(key * 0x51ED2701ULL))
    {
    }

    /// A number in [low, high).
    double Between(double low, double high) { return low + (high - low) * UnitInterval(Next()); }

    /// A number in [low, high) or its negative.
    double EitherSide(double low, double high)
    {
        const double size = Between(low, high);
        return Percent(50) ? size : -size;
    }

    /// A whole number in [0, count); count must be positive.
    int Index(int count) { return static_cast<int>(Next() % static_cast<std::uint64_t>(count)); }

    /// True in `percent` of a hundred calls.
    bool Percent(int percent) { return Index(100) < percent; }

private:
    std::uint64_t Next() { return Scramble(m_state++); }

    std::uint64_t m_state;
};
