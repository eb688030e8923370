#include "picture/text/mtext.h"

#include <algorithm>

namespace picture
{

namespace
{

constexpr double kUsualSpacing = 5.0 / 3.0;
constexpr double kStackShare = 0.7;
constexpr double kTabWidth = 4.0;

double widthOf(std::u16string_view text, const Font& font, const MTextFormat& format)
{
    return extentOf(font, text).advance * format.height * format.widthFactor * format.tracking;
}

/// A line being filled: runs with places along it, base line at 0.
struct Line
{
    std::vector<SetRun> runs;
    std::vector<SetRule> rules;
    double width = 0.0;
    double inkWidth = 0.0; ///< without the spaces at its end
    double height = 0.0;
};

class Setter
{
public:
    Setter(const MTextFrame& frame, TextStyles& styles) : m_frame{frame}, m_styles{styles} {}

    void add(const MTextPiece& piece);
    SetText take();

private:
    double widthOfPiece(const MTextPiece& piece);
    void breakLine() { m_lines.emplace_back(); }
    void addRun(std::u16string_view text, const MTextFormat& format, double y);
    void addStack(const MTextPiece& piece);
    Line& line() { return m_lines.back(); }

    const MTextFrame& m_frame;
    TextStyles& m_styles;
    std::vector<Line> m_lines{1};
};

double Setter::widthOfPiece(const MTextPiece& piece)
{
    if (piece.kind == MTextPiece::kTab)
        return kTabWidth * piece.format.height;
    const std::u16string_view text = piece.kind == MTextPiece::kSpace ? std::u16string_view{u" "} : piece.text;
    return widthOf(text, m_styles.fontFor(piece.format.face, text), piece.format);
}

void Setter::add(const MTextPiece& piece)
{
    if (piece.kind == MTextPiece::kBreak)
    {
        line().height = std::max(line().height, piece.format.height);
        return breakLine();
    }
    const double width = widthOfPiece(piece);
    const bool isBlank = piece.kind == MTextPiece::kSpace || piece.kind == MTextPiece::kTab;
    if (!isBlank && m_frame.width > 0.0 && line().width > 0.0 && line().width + width > m_frame.width * (1.0 + 1e-9))
        breakLine();
    if (isBlank)
        line().width += width;
    else if (piece.kind == MTextPiece::kStack)
        addStack(piece);
    else
        addRun(piece.text, piece.format, 0.0);
}

void Setter::addRun(std::u16string_view text, const MTextFormat& format, double y)
{
    const Font& font = m_styles.fontFor(format.face, text);
    const double width = widthOf(text, font, format);
    const double x = line().width;
    line().runs.push_back({{x, y}, std::u16string{text}, &font, format, width});
    for (const auto& [wanted, height] :
         {std::pair{format.underlined, -0.2}, std::pair{format.overlined, 1.2}, std::pair{format.struck, 0.4}})
        if (wanted)
            line().rules.push_back(
                {{x, y + height * format.height}, {x + width, y + height * format.height}, format.color});
    line().width += width;
    line().inkWidth = line().width;
    line().height = std::max(line().height, format.height);
}

void Setter::addStack(const MTextPiece& piece)
{
    MTextFormat format = piece.format;
    format.height *= kStackShare;
    const double begin = line().width;
    const double full = line().height;
    const double x = begin;
    addRun(piece.text, format, piece.format.height * (piece.stack == u'#' ? 0.4 : 0.6));
    const double upper = line().width;
    if (piece.stack != u'#')
        line().width = begin;
    addRun(piece.below, format, piece.format.height * (piece.stack == u'#' ? 0.0 : -0.4));
    line().width = std::max(upper, line().width);
    line().inkWidth = line().width;
    line().height = std::max(full, piece.format.height);
    if (piece.stack == u'/')
        line().rules.push_back(
            {{x, piece.format.height * 0.45}, {line().width, piece.format.height * 0.45}, format.color});
}

SetText Setter::take()
{
    double y = 0.0;
    std::vector<double> baselines;
    for (size_t i = 0; i < m_lines.size(); ++i)
    {
        const double height = m_lines[i].height > 0.0 ? m_lines[i].height : m_frame.height;
        y -= i == 0 ? height : height * kUsualSpacing * m_frame.lineSpacing;
        baselines.push_back(y);
    }
    const int row = (m_frame.attachment - 1) / 3;
    const int column = (m_frame.attachment - 1) % 3;
    const double lift = row == 0 ? 0.0 : row == 1 ? -y / 2 : -y;
    SetText text;
    for (size_t i = 0; i < m_lines.size(); ++i)
    {
        const double shift = -m_lines[i].inkWidth * column / 2;
        const auto moved = [&](const Vertex& v) { return Vertex{v.x + shift, v.y + baselines[i] + lift}; };
        for (SetRun& run : m_lines[i].runs)
        {
            run.at = moved(run.at);
            text.runs.push_back(std::move(run));
        }
        for (const SetRule& rule : m_lines[i].rules)
            text.rules.push_back({moved(rule.from), moved(rule.to), rule.color});
    }
    return text;
}

} // namespace

SetText setMText(const std::vector<MTextPiece>& pieces, const MTextFrame& frame, TextStyles& styles)
{
    Setter setter{frame, styles};
    for (const MTextPiece& piece : pieces)
        setter.add(piece);
    return setter.take();
}

} // namespace picture
