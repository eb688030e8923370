#pragma once

#include "picture/look/palette.h"

#include <optional>

namespace picture
{

/// How a drawing is to look on a page.
struct Appearance
{
    Rgb background = 0xFFFFFF;
    bool monochrome = false;
    std::optional<Rgb> ink;          ///< everything in this colour
    double unitsPerMillimetre = 0.0; ///< page units; 0 where line weights mean nothing, then all lines are thin
    double thinLine = 1.0;           ///< page units
    double speck = 1.0;              ///< page units in the smallest thing to be seen
    double tolerance = 0.1;          ///< how far a chord may lie from its arc, page units
    double gap = 0.5;                ///< points nearer together become one, page units
    double pageHeight = 0.0;         ///< of which points take a share; 0: the page's own, which may be a part of one
};

} // namespace picture
