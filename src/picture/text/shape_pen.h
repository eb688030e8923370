#pragma once

#include "picture/text/font.h"

#include <map>
#include <string>

namespace picture
{

/// Follows the pen commands of a shape of a compiled shape font. `scale` makes its units those of the glyph. Commands
/// that are cut short, and shapes inside themselves, end the drawing where it stands.
Glyph drawShape(const std::map<unsigned, std::string>& shapes, unsigned number, double scale);

} // namespace picture
