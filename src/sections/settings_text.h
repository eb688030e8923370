#pragma once

#include <string>
#include <string_view>

/// The text of the settings file: one byte a character, for the 255 codes a byte can hold. Any other code unit, and
/// what would break a line, is byte 0x01 and the code in four hexadecimal digits, so that a path keeps its Vietnamese
/// name.

std::string EncodeSettings(std::u16string_view text);

/// The inverse. Every byte sequence gives some text.
std::u16string DecodeSettings(std::string_view bytes);
