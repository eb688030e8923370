#include "picture/list/entity_writer.h"

#include "host/db/database.h"
#include "store/pair_edit.h"

#include <map>

namespace picture
{

namespace
{

/// Letters of the font of symbols that tolerances are written with.
char16_t symbolOf(char16_t letter)
{
    static const std::map<char16_t, char16_t> symbols{
        {u'a', u'\u2220'}, {u'b', u'\u27C2'}, {u'c', u'\u23E5'}, {u'd', u'\u2313'}, {u'e', u'\u25CB'},
        {u'f', u'\u2225'}, {u'g', u'\u232D'}, {u'h', u'\u2197'}, {u'i', u'\u232F'}, {u'j', u'\u2316'},
        {u'k', u'\u2312'}, {u'l', u'\u24C1'}, {u'm', u'\u24C2'}, {u'n', u'\u2300'}, {u'p', u'\u24C5'},
        {u'r', u'\u25CE'}, {u's', u'\u24C8'}, {u't', u'\u2330'}, {u'u', u'\u2014'}};
    const auto found = symbols.find(letter);
    return found != symbols.end() ? found->second : letter;
}

/// A field of a frame, its symbols put for the letters that stand for them: "{\Fgdt;j}" is one.
std::u16string plainField(std::u16string_view field)
{
    constexpr std::u16string_view kSymbol = u"{\\Fgdt;";
    std::u16string plain;
    while (!field.empty())
    {
        const size_t close = field.starts_with(kSymbol) ? field.find(u'}') : std::u16string_view::npos;
        if (close == std::u16string_view::npos)
        {
            plain += field.front();
            field.remove_prefix(1);
            continue;
        }
        for (const char16_t letter : field.substr(kSymbol.size(), close - kSymbol.size()))
            plain += symbolOf(letter);
        field.remove_prefix(close + 1);
    }
    return plain;
}

/// The pieces of a text between marks.
std::vector<std::u16string_view> split(std::u16string_view text, std::u16string_view mark)
{
    std::vector<std::u16string_view> pieces;
    size_t begin = 0;
    for (size_t at = text.find(mark); at != std::u16string_view::npos; at = text.find(mark, begin))
    {
        pieces.push_back(text.substr(begin, at - begin));
        begin = at + mark.size();
    }
    pieces.push_back(text.substr(begin));
    return pieces;
}

} // namespace

/// Frames in a row, the rows under each other, each frame as wide as what stands in it.
void EntityWriter::writeTolerance(std::string_view pairs)
{
    constexpr double kRow = 2.0;    // heights of the text
    constexpr double kMargin = 0.5; // the same, at both sides
    std::string_view bytes;
    AcGePoint3d at;
    AcGeVector3d along{1.0, 0.0, 0.0};
    OwnPairs reader{pairs};
    for (Tag tag; reader.next(tag);)
        if (tag.code == 1)
            bytes = tag.value;
        else if (tag.code == 10)
            at = reader.pointFrom(tag);
        else if (tag.code == 11)
            along = reader.pointFrom(tag).asVector();
    const double height = m_lists.dimensionText();
    if (!(height > 0.0))
        return;
    const Map2d placed = worldAt(at) * Map2d::rotation(std::atan2(along.y, along.x)) * Map2d::scaling(height, height);
    const TextStyle& style = m_lists.styles().style("Standard");
    const std::u16string text = m_lists.database().encoding().decode(bytes);
    double low = -kRow / 2;
    for (const std::u16string_view row : split(text, u"^J"))
    {
        double left = 0.0;
        for (const std::u16string_view field : split(row, u"%%v"))
        {
            const std::u16string shown = plainField(field);
            if (shown.empty())
                continue;
            const Font& font = m_lists.styles().fontFor(style.face, shown);
            const TextExtent extent = extentOf(font, shown);
            const double right = left + extent.advance + 2 * kMargin;
            writeLine(shown, font, extent, placed * Map2d::translation({left + kMargin, low + kMargin}));
            for (const auto& [from, to] : {std::pair{Vertex{left, low}, Vertex{right, low}},
                                           {Vertex{right, low}, Vertex{right, low + kRow}},
                                           {Vertex{right, low + kRow}, Vertex{left, low + kRow}},
                                           {Vertex{left, low + kRow}, Vertex{left, low}}})
                writeRule(placed, from, to);
            left = right;
        }
        low -= kRow;
    }
}

} // namespace picture
