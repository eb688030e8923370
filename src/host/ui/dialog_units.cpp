#include "host/ui/dialog_units.h"

#include <cstdlib>

namespace
{

constexpr int kPlainDpi = 96;
constexpr int kPointsPerInch = 72;
constexpr int kClosedListHeight = 13; // dialog units

/// a * b / c, rounded half away from zero.
int mulDiv(int a, int b, int c)
{
    const long long product = static_cast<long long>(a) * b;
    const long long half = product < 0 ? -(c / 2) : c / 2;
    return static_cast<int>((product + half) / c);
}

} // namespace

int scaleToDisplay(int pixels, int dpi)
{
    return mulDiv(pixels, dpi, kPlainDpi);
}

CSize dialogUnitsToPixels(int width, int height, int dpi)
{
    return {mulDiv(width, 6 * dpi, 4 * kPlainDpi), mulDiv(height, 13 * dpi, 8 * kPlainDpi)};
}

CRect controlRect(const ControlTemplate& control, int dpi)
{
    const int height = control.kind == ControlKind::kDropDownList ? kClosedListHeight : control.height;
    const CSize corner = dialogUnitsToPixels(control.x, control.y, dpi);
    const CSize size = dialogUnitsToPixels(control.width, height, dpi);
    return rectAt(corner.width, corner.height, size.width, size.height);
}

int fontHeight(int points, int dpi)
{
    return -mulDiv(points, dpi, kPointsPerInch);
}
