#include "store/text/text_encoding.h"

#include "store/text/code_page.h"
#include "store/text/text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <utility>

namespace
{

constexpr int kFirstUtf8Version = 1021;
constexpr std::string_view kDefaultCodePage = "ANSI_1252";

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

/// `\M+nXXXX`: two bytes in the n-th of the East Asian code pages.
std::optional<std::u16string> multiByte(char page, std::string_view digits)
{
    static constexpr std::array<const char*, 5> kPages{"CP932", "BIG5", "UHC", "JOHAB", "GBK"};
    const auto code = hexUnit(digits);
    if (!code || page < '1' || page > '5')
        return std::nullopt;
    const std::unique_ptr<const CodePage> codePage = CodePage::find(kPages[static_cast<size_t>(page - '1')]);
    if (codePage == nullptr)
        return std::nullopt;
    const char pair[] = {static_cast<char>(*code >> 8), static_cast<char>(*code & 0xFF)};
    std::u16string text = codePage->decode({pair, sizeof pair});
    return text.find(u'\uFFFD') == text.npos ? std::optional{text} : std::nullopt;
}

/// `bytes` starts with a backslash: takes it, with the escape it begins when it begins one.
void takeEscape(std::string_view& bytes, std::u16string& text)
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

class DrawingEncoding : public TextEncoding
{
public:
    /// Without a code page: UTF-8.
    explicit DrawingEncoding(std::unique_ptr<const CodePage> page) : m_page{std::move(page)} {}

    bool isUtf8() const override { return m_page == nullptr; }

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
        std::u16string line = lettersForBytes(text);
        std::replace_if(
            line.begin(), line.end(), [](char16_t unit) { return unit == u'\n' || unit == u'\r' || unit == 0; }, u' ');
        if (isUtf8())
            return toUtf8(line);
        std::string out;
        for (const char16_t unit : line)
            if (unit < 0x80)
                out += static_cast<char>(unit);
            else
                appendEncoded(out, unit);
        return out;
    }

    std::optional<std::u16string> bytesOf(std::u16string_view text) const override
    {
        if (isUtf8() || !m_page->isSingleByte())
            return std::nullopt;
        std::u16string bytes;
        for (const char16_t unit : text)
        {
            const std::string byte = unit < 0x80 ? std::string{} : m_page->encode(unit);
            if (byte.empty() && unit > 0xFF)
                return std::nullopt;
            bytes += byte.empty() ? unit : static_cast<char16_t>(static_cast<unsigned char>(byte.front()));
        }
        return bytes;
    }

private:
    std::u16string decodeRun(std::string_view bytes) const { return isUtf8() ? toUtf16(bytes) : m_page->decode(bytes); }

    void appendEncoded(std::string& out, char16_t unit) const
    {
        const std::string bytes = m_page->encode(unit);
        if (bytes.empty())
            appendEscape(out, unit);
        else
            out += bytes;
    }

    std::unique_ptr<const CodePage> m_page;
};

} // namespace

std::shared_ptr<const TextEncoding> makeTextEncoding(int version, std::string_view codePage)
{
    if (version >= kFirstUtf8Version)
        return std::make_shared<DrawingEncoding>(nullptr);
    std::unique_ptr<const CodePage> page = CodePage::find(codePage);
    return std::make_shared<DrawingEncoding>(page != nullptr ? std::move(page) : CodePage::find(kDefaultCodePage));
}
