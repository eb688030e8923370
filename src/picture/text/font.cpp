#include "picture/text/font.h"

namespace picture
{

const Glyph* shownGlyph(const Font& font, char32_t character)
{
    const Glyph* glyph = font.glyph(character);
    return glyph != nullptr || character == U' ' ? glyph : font.glyph(U'?');
}

TextExtent extentOf(const Font& font, std::u16string_view text)
{
    TextExtent extent;
    while (!text.empty())
        if (const Glyph* glyph = shownGlyph(font, takeCharacter(text)))
        {
            const double pen = extent.advance;
            if (!glyph->ink.isEmpty())
                extent.ink.add({glyph->ink.minX + pen, glyph->ink.minY, glyph->ink.maxX + pen, glyph->ink.maxY});
            extent.advance += glyph->advance;
        }
    return extent;
}

} // namespace picture
