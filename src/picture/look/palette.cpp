#include "picture/look/palette.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace picture
{

namespace
{

constexpr std::array<Rgb, 10> kNamed{0x000000, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                     0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
constexpr std::array<Rgb, 6> kGreys{0x333333, 0x505050, 0x696969, 0x828282, 0xBEBEBE, 0xFFFFFF};

/// One of red, green, blue at a hue (0 to 24, from red over green and blue): full, none, or on its way.
double share(double hue, double peak)
{
    const double away = std::fabs(std::remainder(hue - peak, 24.0));
    return std::clamp(2.0 - away / 4.0, 0.0, 1.0);
}

} // namespace

/// 10 to 249 are 24 hues of 10: five lights, each once full and once half as strong.
Rgb paletteColor(int index)
{
    constexpr std::array<double, 5> kLights{255, 165, 127, 76, 38};
    if (index < 10)
        return kNamed[static_cast<size_t>(std::clamp(index, 0, 9))];
    if (index >= 250)
        return kGreys[static_cast<size_t>(std::min(index, 255) - 250)];
    const double hue = index / 10 - 1;
    const double light = kLights[static_cast<size_t>(index % 10 / 2)];
    const bool half = index % 2 != 0;
    Rgb color = 0;
    for (const double peak : {0.0, 8.0, 16.0})
    {
        const double full = share(hue, peak);
        const double level = light * (half ? 0.5 + full / 2 : full);
        color = color << 8 | static_cast<Rgb>(level);
    }
    return color;
}

Rgb inkOn(Rgb background)
{
    const Rgb red = background >> 16 & 0xFF;
    const Rgb green = background >> 8 & 0xFF;
    const Rgb blue = background & 0xFF;
    return red * 3 + green * 6 + blue < 1280 ? 0xFFFFFF : 0x000000;
}

} // namespace picture
