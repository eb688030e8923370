#pragma once

#include "tools/font/glyph_text.h"

#include <string>

namespace font
{

/// The bytes of a compiled shape font: one shape for each glyph, numbered by its code. Throws std::runtime_error for a
/// stroke that reaches further than a shape's vectors can.
std::string ShapeFile(const Glyphs& glyphs);

} // namespace font
