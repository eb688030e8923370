#pragma once

#include <optional>

class QWidget;

namespace desktop
{

/// Lets the user choose one of the 255 colours of the palette, by a click or by its number. Nothing when it is
/// cancelled.
std::optional<int> choosePaletteColor(QWidget& parent, int current);

} // namespace desktop
