#include "host/drawing/text_encoding.h"

#include "host/text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <iconv.h>
#include <optional>
#include <utility>

namespace
{

constexpr int kFirstUtf8Version = 1021;

/// A conversion of the C library, closed when done.
class Converter
{
public:
    Converter(const char* to, const char* from) : m_state{iconv_open(to, from)} {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter()
    {
        if (isOpen())
            iconv_close(m_state);
    }

    // NOLINTNEXTLINE(performance-no-int-to-ptr): this is how iconv_open says that it failed
    bool isOpen() const { return m_state != reinterpret_cast<iconv_t>(-1); }

    /// Converts as much of `input` as has a meaning, moving it forward; the rest begins with what has none.
    std::string convert(std::string_view& input) const
    {
        std::string result;
        iconv(m_state, nullptr, nullptr, nullptr, nullptr);
        char buffer[512];
        auto* from = const_cast<char*>(input.data());
        size_t left = input.size();
        for (bool flushing = false;;)
        {
            char* to = buffer;
            size_t room = sizeof buffer;
            const size_t status =
                flushing ? iconv(m_state, nullptr, nullptr, &to, &room) : iconv(m_state, &from, &left, &to, &room);
            result.append(buffer, static_cast<size_t>(to - buffer));
            const bool full = status == static_cast<size_t>(-1) && errno == E2BIG;
            if (!full && flushing)
                break;
            flushing = flushing || !full;
        }
        input.remove_prefix(input.size() - left);
        return result;
    }

private:
    iconv_t m_state;
};

std::u16string unitsOf(std::string_view utf16le)
{
    std::u16string text;
    for (size_t i = 0; i + 1 < utf16le.size(); i += 2)
        text += static_cast<char16_t>(static_cast<unsigned char>(utf16le[i]) |
                                      static_cast<unsigned char>(utf16le[i + 1]) << 8);
    return text;
}

/// The C library's name of a drawing's code page ("ANSI_1258", "dos437", "gb2312", ...).
std::string converterName(std::string_view codePage)
{
    std::string name;
    for (const char c : codePage)
        name += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    if (name.starts_with("ANSI_") || name.starts_with("DOS_"))
        name = "CP" + name.substr(name.find('_') + 1);
    else if (name.starts_with("DOS") || name.starts_with("ANSI"))
        name = "CP" + name.substr(name.find_first_of("0123456789"));
    else if (name.starts_with("ISO8859") || name.starts_with("ISO_8859"))
        name = "ISO-8859-" + name.substr(std::min(name.size(), name.find_last_not_of("0123456789") + 1));
    return name == "CP950" ? "BIG5" : name == "CP936" ? "GBK" : name == "CP949" ? "UHC" : name;
}

std::optional<char16_t> hexUnit(std::string_view digits)
{
    unsigned value = 0;
    for (const char c : digits)
    {
        if (std::isxdigit(static_cast<unsigned char>(c)) == 0)
            return std::nullopt;
        value = value * 16 + static_cast<unsigned>(c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10);
    }
    return static_cast<char16_t>(value);
}

bool isPlainAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != '\\'; });
}

std::u16string widened(std::string_view ascii)
{
    return {ascii.begin(), ascii.end()};
}

void appendEscape(std::string& out, char16_t unit)
{
    static constexpr char kDigits[] = "0123456789ABCDEF";
    out += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4)
        out += kDigits[(unit >> shift) & 15];
}

class DrawingEncoding : public TextEncoding
{
public:
    DrawingEncoding(bool utf8, const std::string& page)
        : m_utf8{utf8}, m_decoder{"UTF-16LE", page.c_str()}, m_encoder{page.c_str(), "UTF-16LE"}
    {
    }

    bool isKnown() const { return m_utf8 || (m_decoder.isOpen() && m_encoder.isOpen()); }
    bool isUtf8() const override { return m_utf8; }

    std::u16string decode(std::string_view bytes) const override
    {
        if (isPlainAscii(bytes))
            return widened(bytes);
        std::u16string text;
        while (!bytes.empty())
        {
            const size_t escape = bytes.find('\\');
            text += decodeRun(bytes.substr(0, escape));
            if (escape == std::string_view::npos)
                break;
            bytes.remove_prefix(escape);
            takeEscape(bytes, text);
        }
        return text;
    }

    std::string encode(std::u16string_view text) const override
    {
        std::u16string line{text};
        std::replace_if(
            line.begin(), line.end(), [](char16_t unit) { return unit == u'\n' || unit == u'\r' || unit == 0; }, u' ');
        if (m_utf8)
            return toUtf8(line);
        std::string out;
        for (const char16_t unit : line)
            if (unit < 0x80)
                out += static_cast<char>(unit);
            else
                appendEncoded(out, unit);
        return out;
    }

private:
    std::u16string decodeRun(std::string_view bytes) const
    {
        if (m_utf8)
            return toUtf16(bytes);
        std::u16string text;
        while (!bytes.empty())
        {
            text += unitsOf(m_decoder.convert(bytes));
            if (!bytes.empty())
            {
                text += u'\uFFFD';
                bytes.remove_prefix(1);
            }
        }
        return text;
    }

    /// `bytes` starts with a backslash: takes it, with the escape it begins when it begins one.
    static void takeEscape(std::string_view& bytes, std::u16string& text)
    {
        if (bytes.size() >= 7 && (bytes[1] == 'U' || bytes[1] == 'u') && bytes[2] == '+')
            if (const auto unit = hexUnit(bytes.substr(3, 4)))
            {
                text += *unit;
                bytes.remove_prefix(7);
                return;
            }
        if (bytes.size() >= 8 && (bytes[1] == 'M' || bytes[1] == 'm') && bytes[2] == '+')
            if (const auto wide = multiByte(bytes[3], bytes.substr(4, 4)))
            {
                text += *wide;
                bytes.remove_prefix(8);
                return;
            }
        text += u'\\';
        bytes.remove_prefix(1);
    }

    /// `\M+nXXXX`: two bytes in the n-th of the East Asian code pages.
    static std::optional<std::u16string> multiByte(char page, std::string_view digits)
    {
        static constexpr std::array<const char*, 5> kPages{"CP932", "BIG5", "UHC", "JOHAB", "GBK"};
        const auto code = hexUnit(digits);
        if (!code || page < '1' || page > '5')
            return std::nullopt;
        const Converter converter{"UTF-16LE", kPages[static_cast<size_t>(page - '1')]};
        const char pair[] = {static_cast<char>(*code >> 8), static_cast<char>(*code & 0xFF)};
        std::string_view input{pair, sizeof pair};
        if (!converter.isOpen())
            return std::nullopt;
        std::u16string text = unitsOf(converter.convert(input));
        return input.empty() ? std::optional{text} : std::nullopt;
    }

    void appendEncoded(std::string& out, char16_t unit) const
    {
        const char pair[] = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
        std::string_view input{pair, sizeof pair};
        const std::string bytes = unit >= 0xD800 && unit < 0xE000 ? std::string{} : m_encoder.convert(input);
        if (bytes.empty() || !input.empty())
            appendEscape(out, unit);
        else
            out += bytes;
    }

    bool m_utf8;
    Converter m_decoder;
    Converter m_encoder;
};

} // namespace

std::shared_ptr<const TextEncoding> makeTextEncoding(int version, std::string_view codePage)
{
    const bool utf8 = version >= kFirstUtf8Version;
    auto encoding = std::make_shared<DrawingEncoding>(utf8, converterName(codePage));
    return encoding->isKnown() ? encoding : std::make_shared<DrawingEncoding>(utf8, "CP1252");
}
