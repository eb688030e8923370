#pragma once

#include <string>
#include <string_view>

/// Vietnamese text in the 8-bit TCVN3 character set (TCVN 5712:1993, VN3), as the module's files, captions and string
/// table hold it, and as a label holds it for its font. The 74 letters of the set exist in lower case with tone marks
/// and in upper case without; what has no 8-bit form does not survive a trip through it. Nothing here fails.

/// The wide text of `bytes`, up to the first zero byte. Byte 0x01 brings one code unit as the two bytes behind it (low
/// byte first), byte 0x02 one signed byte; an escape whose bytes are missing ends the text, and so does an escaped
/// zero.
std::u16string DecodeText(std::string_view bytes);

/// The 8-bit text of `text`: the letters of the set as their byte, also those that come as a vowel and its marks;
/// everything else as the low byte of its code, and "?" where that byte is zero or, of a character beyond ASCII, a
/// control byte.
std::string EncodeText(std::u16string_view text);

/// Whether a code unit is a character of the set: ASCII or one of the 74 letters. Any other one comes out of
/// `EncodeText` as a byte that stands for something else, or for nothing that the label font draws.
bool HasByteForm(char16_t unit);

/// The wide text of `stored`, a caption or string-table text: TCVN3 bytes kept as the code units of the same value. At
/// most `limit` of them count; a unit that is no byte counts as "?".
std::u16string DecodeStoredText(std::u16string_view stored, size_t limit);
