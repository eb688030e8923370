#include "dxf_out.h"

#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>

namespace
{
constexpr std::size_t kBufferSize = 1U << 20U;

void AppendUtf8(std::string& out, char16_t unit)
{
    if (unit < 0x80)
        out += static_cast<char>(unit);
    else if (unit < 0x800)
        out += {static_cast<char>(0xC0 | (unit >> 6)), static_cast<char>(0x80 | (unit & 0x3F))};
    else
        out += {static_cast<char>(0xE0 | (unit >> 12)), static_cast<char>(0x80 | ((unit >> 6) & 0x3F)),
                static_cast<char>(0x80 | (unit & 0x3F))};
}

/// The byte of a character in the code page ANSI_1258, or 0 when it has none of its own.
unsigned char VietnameseCodePage(char16_t unit)
{
    struct Moved
    {
        char16_t unit;
        unsigned char byte;
    };
    static constexpr std::array<Moved, 8> kMoved{{{u'\u0102', 0xC3},
                                                  {u'\u0103', 0xE3},
                                                  {u'\u0110', 0xD0},
                                                  {u'\u0111', 0xF0},
                                                  {u'\u01A0', 0xD5},
                                                  {u'\u01A1', 0xF5},
                                                  {u'\u01AF', 0xDD},
                                                  {u'\u01B0', 0xFD}}};
    static constexpr std::u16string_view kTakenByOthers =
        u"\u00C3\u00CC\u00D0\u00D2\u00D5\u00DD\u00DE\u00E3\u00EC\u00F0"
        u"\u00F2\u00F5\u00FD\u00FE";
    for (const Moved& moved : kMoved)
        if (moved.unit == unit)
            return moved.byte;
    const bool latin = unit >= 0xA0 && unit < 0x100 && kTakenByOthers.find(unit) == std::u16string_view::npos;
    return latin ? static_cast<unsigned char>(unit) : 0;
}

void AppendCodePage(std::string& out, char16_t unit)
{
    if (unit < 0x80)
        out += static_cast<char>(unit);
    else if (const unsigned char byte = VietnameseCodePage(unit))
        out += static_cast<char>(byte);
    else
    {
        std::array<char, 8> escape{};
        std::snprintf(escape.data(), escape.size(), "\\U+%04X", static_cast<unsigned>(unit));
        out += escape.data();
    }
}
} // namespace

DxfOut::DxfOut(std::FILE* file, Release release, Handle firstHandle) : m_file(file), m_release(release)
{
    m_buffer.reserve(kBufferSize + 4096);
    m_totals.handSeed = firstHandle;
}

void DxfOut::Code(int code)
{
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), code).ptr;
    const auto length = static_cast<std::size_t>(end - digits.data());
    if (length < 3)
        m_buffer.append(3 - length, ' ');
    m_buffer.append(digits.data(), length);
    m_buffer += '\n';
}

void DxfOut::Append(std::string_view bytes)
{
    m_buffer += bytes;
}

void DxfOut::EndLine()
{
    m_buffer += '\n';
    if (m_buffer.size() >= kBufferSize)
        Flush();
}

void DxfOut::Flush()
{
    if (m_file != nullptr && std::fwrite(m_buffer.data(), 1, m_buffer.size(), m_file) != m_buffer.size())
        throw std::runtime_error("the drawing cannot be written");
    m_totals.bytes += static_cast<std::int64_t>(m_buffer.size());
    m_buffer.clear();
}

void DxfOut::Tag(int code, std::string_view ascii)
{
    Code(code);
    Append(ascii);
    EndLine();
}

void DxfOut::Tag(int code, int value)
{
    std::array<char, 16> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    Tag(code, std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

void DxfOut::Real(int code, double value, int decimals)
{
    // Whole-number arithmetic: several times faster than printing reals, and a drawing is mostly reals.
    static constexpr std::array<std::int64_t, 10> kPower{1,      10,      100,      1000,      10000,
                                                         100000, 1000000, 10000000, 100000000, 1000000000};
    std::int64_t unit = kPower.at(static_cast<std::size_t>(decimals));
    const std::int64_t scaled = std::llround(std::abs(value) * static_cast<double>(unit));
    std::int64_t fraction = scaled % unit;
    Code(code);
    if (value < 0 && scaled != 0)
        m_buffer += '-';
    std::array<char, 24> digits{};
    m_buffer.append(digits.data(), std::to_chars(digits.data(), digits.data() + 24, scaled / unit).ptr);
    m_buffer += '.';
    do
    {
        unit = unit > 1 ? unit / 10 : 1;
        m_buffer += static_cast<char>('0' + fraction / unit);
        fraction %= unit;
    } while (fraction != 0);
    EndLine();
}

void DxfOut::Hex(int code, Handle handle)
{
    static constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::array<char, 16> digits{};
    std::size_t first = digits.size();
    do
    {
        digits.at(--first) = kDigits.at(handle % 16);
        handle /= 16;
    } while (handle != 0);
    Tag(code, std::string_view(digits.data() + first, digits.size() - first));
}

void DxfOut::Text(int code, std::u16string_view text)
{
    Code(code);
    for (const char16_t unit : text)
    {
        if (m_release < Release::R2007)
            AppendCodePage(m_buffer, unit);
        else
            AppendUtf8(m_buffer, unit);
    }
    EndLine();
}

void DxfOut::At(int code, Point point)
{
    Real(code, point.x);
    Real(code + 10, point.y);
}

void DxfOut::At(int code, Point point, double z)
{
    At(code, point);
    Real(code + 20, z, 3);
}
