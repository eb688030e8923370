#pragma once

#include <cstdint>

namespace picture
{

/// Red, green and blue as 0xRRGGBB.
using Rgb = uint32_t;

/// The colour of a palette index from 1 to 255; 7 is white here, and stands for what contrasts with the background.
Rgb paletteColor(int index);

/// Black or white, whichever contrasts with the background.
Rgb inkOn(Rgb background);

} // namespace picture
