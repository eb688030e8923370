#include "survey/sheet/shown_numbers.h"

#include "store/text/text.h"
#include "util/numbers.h"

#include <cmath>

namespace survey
{

std::u16string fixed(double value, int decimals)
{
    const double half = 0.5 * std::pow(10.0, -decimals);
    return FormatReal(std::abs(value) < half ? 0.0 : value, decimals);
}

std::string metres(double value)
{
    return toUtf8(fixed(value, 3)) + " m";
}

std::string shownPlace(const AcGePoint3d& place)
{
    return "(" + toUtf8(fixed(place.x, 3)) + ", " + toUtf8(fixed(place.y, 3)) + ")";
}

} // namespace survey
