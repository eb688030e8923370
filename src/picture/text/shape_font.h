#pragma once

#include "picture/text/font.h"

#include <memory>
#include <string_view>

namespace picture
{

/// Which characters the numbers of a shape font stand for.
enum class ShapeCodes
{
    kUnicode,   ///< the character's own code
    kVietnamese ///< its 8-bit TCVN3 form
};

/// Reads a compiled shape font (.shx): the plain form and the one with Unicode numbers. Null for bytes that are none,
/// or one of the big fonts, whose characters take two bytes.
std::unique_ptr<Font> readShapeFont(std::string_view bytes, ShapeCodes codes);

} // namespace picture
