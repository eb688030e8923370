#include "util/display_scale.h"

#include <algorithm>
#include <cstdint>

namespace
{

/// a * b / c to the nearest integer, halves away from zero; -1 when it does not fit.
int mulDiv(int a, int b, int c)
{
    const int64_t product = int64_t{a} * b;
    const int64_t half = product < 0 ? -(c / 2) : c / 2;
    const int64_t result = (product + half) / c;
    using Range = std::numeric_limits<int>;
    return result < Range::min() || result > Range::max() ? -1 : static_cast<int>(result);
}

} // namespace

DisplayScale g_displayScale;

DisplayScale MakeDisplayScale(std::optional<double> dotsPerInch)
{
    DisplayScale scale;
    scale.percent = dotsPerInch ? mulDiv(static_cast<int>(*dotsPerInch), 100, 96) : 0;
    return scale;
}

int ScaleByDisplay(const DisplayScale& scale, int size)
{
    return std::min(mulDiv(size, scale.percent, 100), scale.limit);
}

int ScaleByDisplay(int size)
{
    return ScaleByDisplay(g_displayScale, size);
}
