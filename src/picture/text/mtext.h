#pragma once

#include "picture/look/looks.h"
#include "picture/text/text_style.h"

#include <optional>
#include <string>
#include <vector>

namespace picture
{

/// How a piece of a multi-line text is set.
struct MTextFormat
{
    Typeface face;
    double height = 1.0;
    double widthFactor = 1.0;
    double oblique = 0.0;  ///< radians
    double tracking = 1.0; ///< of the space that characters take
    std::optional<Color> color;
    bool underlined = false;
    bool overlined = false;
    bool struck = false;
};

/// A word, a space or a break of a multi-line text.
struct MTextPiece
{
    enum Kind
    {
        kWord,
        kSpace,
        kTab,
        kStack, ///< `text` above `below`
        kBreak  ///< a new paragraph
    };
    Kind kind = kWord;
    std::u16string text;
    std::u16string below;
    char16_t stack = u'/'; ///< / a bar between, ^ none, # beside one another
    MTextFormat format;
};

/// The pieces of a multi-line text in order, its format codes followed. Codes that make no sense stand as they are.
std::vector<MTextPiece> parseMText(std::u16string_view text, const MTextFormat& base, TextStyles& styles);

/// A run of text that was given its place: its left end, from the text's own corner, in drawing units.
struct SetRun
{
    Vertex at;
    std::u16string text;
    const Font* font = nullptr;
    MTextFormat format;
    double width = 0.0;
};

/// A straight line that belongs to a text (under it, in a fraction).
struct SetRule
{
    Vertex from;
    Vertex to;
    std::optional<Color> color;
};

struct SetText
{
    std::vector<SetRun> runs;
    std::vector<SetRule> rules;
};

struct MTextFrame
{
    int attachment = 1;       ///< 1 to 9: top left to bottom right
    double width = 0.0;       ///< words go to a new line behind it; 0: never
    double lineSpacing = 1.0; ///< of the usual five thirds of the height
    double height = 1.0;      ///< of lines without text
};

/// Sets the pieces in lines about the insertion point (0, 0).
SetText setMText(const std::vector<MTextPiece>& pieces, const MTextFrame& frame, TextStyles& styles);

} // namespace picture
