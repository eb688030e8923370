#pragma once

#include <QString>

namespace desktop
{

enum class Theme
{
    kLight,
    kDark
};

/// Colours of the whole program, and the ground that drawings are shown on.
void applyTheme(Theme theme);
/// The theme chosen last; the light one at first.
Theme storedTheme();
void storeTheme(Theme theme);
/// 0xRRGGBB
unsigned backgroundOf(Theme theme);

} // namespace desktop
