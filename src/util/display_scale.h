#pragma once

#include <limits>
#include <optional>

/// How sizes given for a display of 96 dots an inch grow on this one. The module has one, for its dialogs and their
/// font.
struct DisplayScale
{
    int percent = 100;
    const void* window = nullptr; ///< whose display is meant; none for the desktop's
    int limit = std::numeric_limits<int>::max();
};

/// The scale of a display of `dotsPerInch`. Where nothing is known of it, everything scales to 0.
DisplayScale MakeDisplayScale(std::optional<double> dotsPerInch);

/// `size` in the dots of the display, at most the limit. A font height, given negative, stays negative.
int ScaleByDisplay(const DisplayScale& scale, int size);

/// `size` in the dots of the module's display.
int ScaleByDisplay(int size);

extern DisplayScale g_displayScale;
