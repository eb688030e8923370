#include "kernel/curve/arc_chords.h"

int chordsWithin(const Segment2d& arc, double tolerance)
{
    constexpr double kMostChords = 4096.0;
    if (!arc.isArc())
        return 1;
    // The height of a chord over an angle a is radius · (1 - cos(a/2)), here written so that small shares survive.
    const double widest = 4.0 * std::asin(std::sqrt(std::min(tolerance / arc.radius(), 1.0) / 2.0));
    const double chords = std::ceil(std::fabs(arc.sweep()) / widest);
    return chords >= 1.0 ? static_cast<int>(std::min(chords, kMostChords)) : 1;
}
