#pragma once

#include <array>
#include <cstdint>
#include <iterator>

/// The 74 Vietnamese letters of the 8-bit TCVN3 character set (TCVN 5712:1993, VN3) and their bytes.

struct Tcvn3Letter
{
    uint8_t byte;
    char16_t unit;
};

inline constexpr Tcvn3Letter kTcvn3Letters[] = {
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
static_assert(std::size(kTcvn3Letters) == 74);

/// The character of each byte: a letter of the set, else the one of the same value.
inline constexpr auto kTcvn3Units = []
{
    std::array<char16_t, 256> units{};
    for (size_t byte = 0; byte < units.size(); ++byte)
        units[byte] = static_cast<char16_t>(byte);
    for (const Tcvn3Letter& letter : kTcvn3Letters)
        units[letter.byte] = letter.unit;
    return units;
}();
