#include "store/text/text.h"

#include "store/text/composing.h"
#include "store/text/tcvn3_letters.h"

#include <cstdint>

namespace
{

constexpr char32_t kReplacement = 0xFFFD;

void appendUtf8(std::string& out, char32_t code)
{
    if (code < 0x80)
    {
        out += static_cast<char>(code);
        return;
    }
    const int extra = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    static constexpr unsigned char kLead[] = {0, 0xC0, 0xE0, 0xF0};
    out += static_cast<char>(kLead[extra] | (code >> (6 * extra)));
    for (int i = extra - 1; i >= 0; --i)
        out += static_cast<char>(0x80 | ((code >> (6 * i)) & 0x3F));
}

void appendUtf16(std::u16string& out, char32_t code)
{
    if (code < 0x10000)
    {
        out += static_cast<char16_t>(code);
        return;
    }
    out += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
    out += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
}

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

int sequenceLength(unsigned char lead)
{
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

/// What one bad byte gives; no code point.
constexpr char32_t kBadByte = 0xFFFFFFFF;

/// The code point that starts at `at`, moving `at` behind it.
char32_t nextCode(std::string_view text, size_t& at)
{
    const auto lead = static_cast<unsigned char>(text[at++]);
    if (lead < 0x80)
        return lead;
    const int length = sequenceLength(lead);
    if (length == 0 || at + static_cast<size_t>(length) - 1 > text.size())
        return kBadByte;
    char32_t code = lead & (0x7FU >> length);
    for (int i = 1; i < length; ++i)
    {
        const char byte = text[at + static_cast<size_t>(i) - 1];
        if (!isContinuation(byte))
            return kBadByte;
        code = (code << 6) | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    static constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < kSmallest[length] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))
        return kBadByte;
    at += static_cast<size_t>(length) - 1;
    return code;
}

constexpr char16_t kCarrier = 0xDC00;

bool isSurrogate(char32_t code)
{
    return code >= 0xD800 && code < 0xE000;
}

/// The byte that a lone surrogate carries: any beyond ASCII, and the backslash of a name.
bool carriesByte(char32_t code)
{
    return (code >= kCarrier + 0x80 && code <= kCarrier + 0xFF) || code == kCarrier + u'\\';
}

char32_t letterFor(char32_t carrier)
{
    return kTcvn3Units[carrier & 0xFF];
}

/// The code point that starts at `at`, moving `at` behind it; a lone surrogate as it is.
char32_t nextCode(std::u16string_view text, size_t& at)
{
    const char32_t code = text[at++];
    const bool paired = code >= 0xD800 && code < 0xDC00 && at < text.size() && text[at] >= 0xDC00 && text[at] < 0xE000;
    return paired ? 0x10000 + ((code - 0xD800) << 10) + (text[at++] - 0xDC00U) : code;
}

} // namespace

std::string toUtf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (size_t at = 0; at < text.size();)
    {
        const char32_t code = nextCode(text, at);
        appendUtf8(out, carriesByte(code) ? letterFor(code) : isSurrogate(code) ? kReplacement : code);
    }
    return out;
}

std::u16string toUtf16(std::string_view text)
{
    std::u16string out;
    out.reserve(text.size());
    for (size_t at = 0; at < text.size();)
    {
        const char32_t code = nextCode(text, at);
        appendUtf16(out, code == kBadByte ? kReplacement : code);
    }
    return out;
}

std::u16string keepBytes(std::string_view bytes)
{
    std::u16string out;
    out.reserve(bytes.size());
    for (size_t at = 0; at < bytes.size();)
    {
        const auto first = static_cast<unsigned char>(bytes[at]);
        const char32_t code = nextCode(bytes, at);
        appendUtf16(out, code == kBadByte ? char32_t{kCarrier} + first : code);
    }
    return out;
}

std::string keptBytes(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (size_t at = 0; at < text.size();)
    {
        const char32_t code = nextCode(text, at);
        if (carriesByte(code))
            out += static_cast<char>(code & 0xFF);
        else
            appendUtf8(out, isSurrogate(code) ? kReplacement : code);
    }
    return out;
}

std::u16string lettersForBytes(std::u16string_view text)
{
    std::u16string out;
    out.reserve(text.size());
    for (size_t at = 0; at < text.size();)
    {
        const char32_t code = nextCode(text, at);
        appendUtf16(out, carriesByte(code) ? letterFor(code) : code);
    }
    return out;
}

char16_t foldCase(char16_t unit)
{
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
    if (unit <= 0xDE)
        return unit >= 0xC0 && unit != 0xD7 ? static_cast<char16_t>(unit + 32) : unit;
    // The remaining Vietnamese letters stand in pairs: an even capital, then its small letter. Horned U is the other
    // way round: an odd capital.
    if (unit == 0x01AF)
        return 0x01B0;
    const bool pair = unit == 0x0102 || unit == 0x0110 || unit == 0x0128 || unit == 0x0168 || unit == 0x01A0 ||
                      (unit >= 0x1EA0 && unit <= 0x1EF8 && unit % 2 == 0);
    return pair ? static_cast<char16_t>(unit + 1) : unit;
}

namespace
{

/// The folded form of the next character of `text`, which is not empty.
char16_t takeFolded(std::u16string_view& text)
{
    return foldCase(takeComposed(text));
}

} // namespace

std::strong_ordering compareNoCase(std::u16string_view a, std::u16string_view b)
{
    while (!a.empty() && !b.empty())
        if (const auto order = takeFolded(a) <=> takeFolded(b); order != 0)
            return order;
    return b.empty() <=> a.empty();
}

bool equalNoCase(std::u16string_view a, std::u16string_view b)
{
    return compareNoCase(a, b) == 0;
}

bool startsWithNoCase(std::u16string_view text, std::u16string_view prefix)
{
    while (!text.empty() && !prefix.empty())
        if (takeFolded(text) != takeFolded(prefix))
            return false;
    return prefix.empty();
}

size_t HashNoCase::operator()(std::u16string_view text) const
{
    uint64_t hash = 0xCBF29CE484222325U;
    while (!text.empty())
        hash = (hash ^ takeFolded(text)) * 0x100000001B3U;
    return static_cast<size_t>(hash);
}
