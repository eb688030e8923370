#include "picture/text/mtext.h"
#include "picture/text/text_codes.h"

#include <cmath>
#include <cstdlib>
#include <numbers>

namespace picture
{

namespace
{

constexpr size_t kDeepestGroup = 64;

/// A number as format codes have it; nothing when there is none.
std::optional<double> numberOf(std::u16string_view text)
{
    const std::string plain = toUtf8(text);
    double value = 0.0;
    size_t at = 0;
    const bool negative = plain.starts_with('-');
    at += negative || plain.starts_with('+') ? 1 : 0;
    double unit = 0.0;
    bool any = false;
    for (; at < plain.size() && (plain[at] == '.' || (plain[at] >= '0' && plain[at] <= '9')); ++at)
    {
        if (plain[at] == '.')
        {
            unit = 1.0;
            continue;
        }
        any = true;
        if (unit == 0.0)
            value = value * 10.0 + (plain[at] - '0');
        else
            value += (plain[at] - '0') * (unit /= 10.0);
    }
    if (!any || !std::isfinite(value))
        return std::nullopt;
    return negative ? -value : value;
}

class MTextParser
{
public:
    MTextParser(std::u16string_view text, const MTextFormat& base, TextStyles& styles)
        : m_text{text}, m_styles{styles}, m_format{base}
    {
    }
    std::vector<MTextPiece> parse();

private:
    void take(char16_t unit);
    void code(char16_t letter);
    void valueCode(char16_t letter);
    void font(std::u16string_view value);
    void stack();
    /// What stands up to the next semicolon, which is taken too.
    std::u16string_view untilSemicolon();
    void flush();
    void mark(bool MTextFormat::*line, bool on);
    void add(MTextPiece::Kind kind);

    std::u16string_view m_text;
    TextStyles& m_styles;
    MTextFormat m_format;
    std::vector<MTextFormat> m_outer;
    std::vector<MTextPiece> m_pieces;
    std::u16string m_word;
    size_t m_at = 0;
};

std::vector<MTextPiece> MTextParser::parse()
{
    while (m_at < m_text.size())
        take(m_text[m_at++]);
    flush();
    return std::move(m_pieces);
}

void MTextParser::flush()
{
    if (m_word.empty())
        return;
    MTextPiece& piece = m_pieces.emplace_back();
    const PlainText plain = withoutCodes(m_word);
    piece.text = m_styles.read(plain.text, m_format.face);
    piece.format = m_format;
    m_word.clear();
}

void MTextParser::mark(bool MTextFormat::*line, bool on)
{
    flush();
    m_format.*line = on;
}

void MTextParser::add(MTextPiece::Kind kind)
{
    flush();
    MTextPiece& piece = m_pieces.emplace_back();
    piece.kind = kind;
    piece.format = m_format;
}

void MTextParser::take(char16_t unit)
{
    const char16_t next = m_at < m_text.size() ? m_text[m_at] : u'\0';
    if (unit == u'\\' && next != u'\0')
    {
        ++m_at;
        code(next);
    }
    else if (unit == u'{' && m_outer.size() < kDeepestGroup)
    {
        flush();
        m_outer.push_back(m_format);
    }
    else if (unit == u'}' && !m_outer.empty())
    {
        flush();
        m_format = m_outer.back();
        m_outer.pop_back();
    }
    else if (unit == u' ')
        add(MTextPiece::kSpace);
    else if (unit == u'^' && (next == u'I' || next == u'J' || next == u'M' || next == u' '))
    {
        ++m_at;
        if (next == u' ')
            m_word += u'^';
        else if (next != u'M')
            add(next == u'I' ? MTextPiece::kTab : MTextPiece::kBreak);
    }
    else
        m_word += unit;
}

void MTextParser::code(char16_t letter)
{
    switch (letter)
    {
    case u'P':
    case u'X':
    case u'N':
        return add(MTextPiece::kBreak);
    case u'~':
        m_word += u'\u00A0';
        return;
    case u'L':
    case u'l':
        return mark(&MTextFormat::underlined, letter == u'L');
    case u'O':
    case u'o':
        return mark(&MTextFormat::overlined, letter == u'O');
    case u'K':
    case u'k':
        return mark(&MTextFormat::struck, letter == u'K');
    case u'S':
        return stack();
    case u'A':
    case u'C':
    case u'c':
    case u'F':
    case u'f':
    case u'H':
    case u'p':
    case u'Q':
    case u'T':
    case u'W':
        flush();
        return valueCode(letter);
    default:
        m_word += letter;
    }
}

std::u16string_view MTextParser::untilSemicolon()
{
    const size_t end = m_text.find(u';', m_at);
    const std::u16string_view value = m_text.substr(m_at, end == std::u16string_view::npos ? end : end - m_at);
    m_at = end == std::u16string_view::npos ? m_text.size() : end + 1;
    return value;
}

void MTextParser::valueCode(char16_t letter)
{
    const std::u16string_view value = untilSemicolon();
    const std::optional<double> number = numberOf(value);
    if (letter == u'F' || letter == u'f')
        return font(value);
    if (!number)
        return;
    const bool relative = value.ends_with(u'x');
    switch (letter)
    {
    case u'C':
        m_format.color = *number == 0.0     ? Color{Color::kByBlock}
                         : *number == 7.0   ? Color{Color::kForeground}
                         : *number >= 256.0 ? Color{Color::kByLayer}
                                            : Color{static_cast<int32_t>(paletteColor(static_cast<int>(*number)))};
        break;
    case u'c':
    {
        // True colours of texts have red in their lowest byte.
        const auto rgb = static_cast<uint32_t>(*number);
        m_format.color = Color{static_cast<int32_t>((rgb & 0xFF) << 16 | (rgb & 0xFF00) | (rgb >> 16 & 0xFF))};
        break;
    }
    case u'H':
        if (*number > 0.0)
            m_format.height = relative ? m_format.height * *number : *number;
        break;
    case u'Q':
        m_format.oblique = *number * std::numbers::pi / 180.0;
        break;
    case u'T':
        m_format.tracking = *number > 0.0 ? *number : 1.0;
        break;
    case u'W':
        if (*number > 0.0)
            m_format.widthFactor = relative ? m_format.widthFactor * *number : *number;
        break;
    default:
        break;
    }
}

/// "Arial|b1|i0|c163|p34", or the name of a file of strokes.
void MTextParser::font(std::u16string_view value)
{
    const size_t bar = value.find(u'|');
    const std::string name = toUtf8(value.substr(0, bar));
    if (name.empty())
        return;
    const bool isStrokes = name.ends_with(".shx") || name.ends_with(".SHX");
    const std::u16string_view rest = bar == std::u16string_view::npos ? std::u16string_view{} : value.substr(bar);
    const bool bold = rest.find(u"|b1") != std::u16string_view::npos;
    const bool italic = rest.find(u"|i1") != std::u16string_view::npos;
    m_format.face = isStrokes ? m_styles.strokeFace(name) : m_styles.outlineFace(name, bold, italic);
}

/// "\S1/2;", its parts told apart by /, # or ^.
void MTextParser::stack()
{
    flush();
    const std::u16string_view value = untilSemicolon();
    const size_t middle = value.find_first_of(u"/#^");
    MTextPiece& piece = m_pieces.emplace_back();
    piece.kind = MTextPiece::kStack;
    piece.format = m_format;
    piece.stack = middle == std::u16string_view::npos ? u'^' : value[middle];
    const auto part = [&](std::u16string_view text)
    {
        while (text.starts_with(u' '))
            text.remove_prefix(1);
        return m_styles.read(withoutCodes(text).text, m_format.face);
    };
    piece.text = part(value.substr(0, middle));
    piece.below = middle == std::u16string_view::npos ? std::u16string{} : part(value.substr(middle + 1));
}

} // namespace

std::vector<MTextPiece> parseMText(std::u16string_view text, const MTextFormat& base, TextStyles& styles)
{
    return MTextParser{text, base, styles}.parse();
}

} // namespace picture
