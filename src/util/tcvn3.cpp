#include "util/tcvn3.h"

#include "host/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace
{

constexpr char kNoByte = '?';
constexpr size_t kEndOfLetters = 0x1F00;

/// The byte of a character that is no letter of the set. A control byte would end the text or swallow letters, so only
/// a control character has one.
constexpr char lowByte(size_t unit)
{
    const auto byte = static_cast<uint8_t>(unit & 0xFF);
    const bool isControl = byte < 0x20 || byte == 0x7F;
    return byte == 0 || (isControl && unit > 0x7F) ? kNoByte : static_cast<char>(byte);
}

/// Reaches just past the last letter of the set.
constexpr auto kByteOfUnit = []
{
    std::array<char, kEndOfLetters> bytes{};
    for (size_t unit = 0; unit < bytes.size(); ++unit)
        bytes[unit] = lowByte(unit);
    for (const Tcvn3Letter& letter : kTcvn3Letters)
        bytes[letter.unit] = static_cast<char>(letter.byte);
    return bytes;
}();

constexpr uint8_t kEscapeUnit = 0x01;
constexpr uint8_t kEscapeSigned = 0x02;

uint8_t byteAt(std::string_view bytes, size_t at)
{
    return static_cast<uint8_t>(bytes[at]);
}

/// How many bytes a character takes that starts with `lead`.
size_t characterLength(uint8_t lead)
{
    return lead == kEscapeUnit ? 3 : lead == kEscapeSigned ? 2 : 1;
}

char16_t unitAt(std::string_view bytes, size_t at)
{
    const uint8_t lead = byteAt(bytes, at);
    if (lead == kEscapeUnit)
        return static_cast<char16_t>(byteAt(bytes, at + 1) | (byteAt(bytes, at + 2) << 8));
    if (lead == kEscapeSigned)
        return static_cast<char16_t>(static_cast<int8_t>(byteAt(bytes, at + 1)));
    return kTcvn3Units[lead];
}

} // namespace

std::u16string DecodeText(std::string_view bytes)
{
    std::u16string text;
    text.reserve(bytes.size());
    for (size_t at = 0; at < bytes.size();)
    {
        const size_t length = characterLength(byteAt(bytes, at));
        if (length > bytes.size() - at)
            break;
        const char16_t unit = unitAt(bytes, at);
        if (unit == 0)
            break;
        text += unit;
        at += length;
    }
    return text;
}

std::string EncodeText(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty())
    {
        const char16_t unit = takeComposed(text);
        bytes += unit < kEndOfLetters ? kByteOfUnit[unit] : lowByte(unit);
    }
    return bytes;
}

bool HasByteForm(char16_t unit)
{
    const auto is = [unit](const Tcvn3Letter& letter) { return letter.unit == unit; };
    return unit < 0x80 || std::any_of(std::begin(kTcvn3Letters), std::end(kTcvn3Letters), is);
}

std::u16string DecodeStoredText(std::u16string_view stored, size_t limit)
{
    std::string bytes;
    for (const char16_t unit : stored.substr(0, limit))
        bytes += unit < 0x100 ? static_cast<char>(unit) : kNoByte;
    return DecodeText(bytes);
}
