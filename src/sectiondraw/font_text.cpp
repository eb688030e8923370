#include "sectiondraw/font_text.h"

#include "util/tcvn3.h"

#include <optional>

namespace
{

/// Takes the next line off `bytes`, without its end (LF or CR LF).
std::string_view takeLine(std::string_view& bytes)
{
    const size_t end = bytes.find('\n');
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

/// The line among `bytes` that is not empty, when there is exactly one.
std::optional<std::string_view> onlyLine(std::string_view bytes)
{
    std::optional<std::string_view> only;
    while (!bytes.empty())
    {
        const std::string_view line = takeLine(bytes);
        if (line.empty())
            continue;
        if (only)
            return std::nullopt;
        only = line;
    }
    return only;
}

std::u16string oneCodeEach(std::string_view bytes)
{
    std::u16string text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        text += static_cast<char16_t>(static_cast<unsigned char>(byte));
    return text;
}

} // namespace

std::u16string FontText::convert(std::u16string_view text)
{
    const std::string bytes = EncodeText(text) + '\n';
    m_scratch.pass(bytes);
    const auto line = onlyLine(bytes);
    return line ? oneCodeEach(*line) : std::u16string{text};
}

std::u16string ToFontText(std::u16string_view text)
{
    return FontText().convert(text);
}
