#include "sections/settings_text.h"

#include "host/text.h"

#include <charconv>

namespace
{

constexpr char16_t kEscape = 0x01;
constexpr size_t kCodeDigits = 4;

bool needsEscape(char16_t unit)
{
    return unit > 0xFF || unit == kEscape || unit == 0 || unit == u'\n' || unit == u'\r';
}

void appendEscaped(std::string& bytes, char16_t unit)
{
    static constexpr char kHex[] = "0123456789ABCDEF";
    bytes += static_cast<char>(kEscape);
    for (int shift = 12; shift >= 0; shift -= 4)
        bytes += kHex[(unit >> shift) & 0xF];
}

/// Reads the four digits of an escape; false when they are none.
bool readCode(std::string_view digits, unsigned& code)
{
    const char* end = digits.data() + digits.size();
    return digits.size() == kCodeDigits && std::from_chars(digits.data(), end, code, 16).ptr == end;
}

} // namespace

std::string EncodeSettings(std::u16string_view text)
{
    std::string bytes;
    for (const char16_t unit : lettersForBytes(text))
    {
        if (needsEscape(unit))
            appendEscaped(bytes, unit);
        else
            bytes += static_cast<char>(unit);
    }
    return bytes;
}

std::u16string DecodeSettings(std::string_view bytes)
{
    std::u16string text;
    for (size_t at = 0; at < bytes.size(); ++at)
    {
        unsigned code = static_cast<unsigned char>(bytes[at]);
        if (code == kEscape && readCode(bytes.substr(at + 1, kCodeDigits), code))
            at += kCodeDigits;
        text += static_cast<char16_t>(code);
    }
    return text;
}
