#pragma once

#include "host/ui/dialog_template.h"
#include "host/ui/rect.h"

/// Pixels of a horizontal resolution of `dpi` dots an inch. A quarter of the dialog font's mean character width is a
/// horizontal dialog unit, an eighth of its height a vertical one: 6 by 13 pixels at 96 dots an inch for the fonts of
/// the templates.

/// `pixels` at 96 dots an inch, in those of a display of `dpi`.
int scaleToDisplay(int pixels, int dpi);

CSize dialogUnitsToPixels(int width, int height, int dpi);

/// Where a control of a template stands in its dialog. A drop-down list takes the room that it has when closed.
CRect controlRect(const ControlTemplate& control, int dpi);

/// The height (negative, as `CFont` has it) of a font of `points`.
int fontHeight(int points, int dpi);
