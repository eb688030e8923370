#include "util/tcvn3.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace
{

struct Letter
{
    uint8_t byte;
    char16_t unit;
};

constexpr Letter kLetters[] = {
    {0xA1, u'Ă'}, {0xA2, u'Â'}, {0xA3, u'Ê'}, {0xA4, u'Ô'}, {0xA5, u'Ơ'}, {0xA6, u'Ư'}, {0xA7, u'Đ'}, {0xA8, u'ă'},
    {0xA9, u'â'}, {0xAA, u'ê'}, {0xAB, u'ô'}, {0xAC, u'ơ'}, {0xAD, u'ư'}, {0xAE, u'đ'}, {0xB5, u'à'}, {0xB6, u'ả'},
    {0xB7, u'ã'}, {0xB8, u'á'}, {0xB9, u'ạ'}, {0xBB, u'ằ'}, {0xBC, u'ẳ'}, {0xBD, u'ẵ'}, {0xBE, u'ắ'}, {0xC6, u'ặ'},
    {0xC7, u'ầ'}, {0xC8, u'ẩ'}, {0xC9, u'ẫ'}, {0xCA, u'ấ'}, {0xCB, u'ậ'}, {0xCC, u'è'}, {0xCE, u'ẻ'}, {0xCF, u'ẽ'},
    {0xD0, u'é'}, {0xD1, u'ẹ'}, {0xD2, u'ề'}, {0xD3, u'ể'}, {0xD4, u'ễ'}, {0xD5, u'ế'}, {0xD6, u'ệ'}, {0xD7, u'ì'},
    {0xD8, u'ỉ'}, {0xDC, u'ĩ'}, {0xDD, u'í'}, {0xDE, u'ị'}, {0xDF, u'ò'}, {0xE1, u'ỏ'}, {0xE2, u'õ'}, {0xE3, u'ó'},
    {0xE4, u'ọ'}, {0xE5, u'ồ'}, {0xE6, u'ổ'}, {0xE7, u'ỗ'}, {0xE8, u'ố'}, {0xE9, u'ộ'}, {0xEA, u'ờ'}, {0xEB, u'ở'},
    {0xEC, u'ỡ'}, {0xED, u'ớ'}, {0xEE, u'ợ'}, {0xEF, u'ù'}, {0xF1, u'ủ'}, {0xF2, u'ũ'}, {0xF3, u'ú'}, {0xF4, u'ụ'},
    {0xF5, u'ừ'}, {0xF6, u'ử'}, {0xF7, u'ữ'}, {0xF8, u'ứ'}, {0xF9, u'ự'}, {0xFA, u'ỳ'}, {0xFB, u'ỷ'}, {0xFC, u'ỹ'},
    {0xFD, u'ý'}, {0xFE, u'ỵ'},
};
static_assert(std::size(kLetters) == 74);

constexpr char kNoByte = '?';
constexpr size_t kEndOfLetters = 0x1F00;

constexpr char lowByte(size_t unit)
{
    const auto byte = static_cast<uint8_t>(unit & 0xFF);
    return byte == 0 ? kNoByte : static_cast<char>(byte);
}

constexpr auto kUnitOfByte = []
{
    std::array<char16_t, 256> units{};
    for (size_t byte = 0; byte < units.size(); ++byte)
        units[byte] = static_cast<char16_t>(byte);
    for (const Letter& letter : kLetters)
        units[letter.byte] = letter.unit;
    return units;
}();

/// Reaches just past the last letter of the set.
constexpr auto kByteOfUnit = []
{
    std::array<char, kEndOfLetters> bytes{};
    for (size_t unit = 0; unit < bytes.size(); ++unit)
        bytes[unit] = lowByte(unit);
    for (const Letter& letter : kLetters)
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
    return kUnitOfByte[lead];
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
    for (const char16_t unit : text)
        bytes += unit < kEndOfLetters ? kByteOfUnit[unit] : lowByte(unit);
    return bytes;
}

bool HasByteForm(char16_t unit)
{
    const auto is = [unit](const Letter& letter) { return letter.unit == unit; };
    return unit < 0x80 || std::any_of(std::begin(kLetters), std::end(kLetters), is);
}

std::u16string DecodeStoredText(std::u16string_view stored, size_t limit)
{
    std::string bytes;
    for (const char16_t unit : stored.substr(0, limit))
        bytes += unit < 0x100 ? static_cast<char>(unit) : kNoByte;
    return DecodeText(bytes);
}
