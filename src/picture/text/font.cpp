#include "picture/text/font.h"

namespace picture
{

std::u32string charactersOf(std::u16string_view text)
{
    std::u32string characters;
    for (size_t i = 0; i < text.size(); ++i)
    {
        const char16_t unit = text[i];
        const bool isPair = unit >= 0xD800 && unit < 0xDC00 && i + 1 < text.size();
        characters += isPair ? 0x10000U + ((unit - 0xD800U) << 10) + (text[i + 1] - 0xDC00U) : char32_t{unit};
        i += isPair ? 1 : 0;
    }
    return characters;
}

const Glyph* shownGlyph(const Font& font, char32_t character)
{
    const Glyph* glyph = font.glyph(character);
    return glyph != nullptr || character == U' ' ? glyph : font.glyph(U'?');
}

double advanceOf(const Font& font, std::u16string_view text)
{
    double advance = 0.0;
    for (const char32_t character : charactersOf(text))
        if (const Glyph* glyph = shownGlyph(font, character))
            advance += glyph->advance;
    return advance;
}

Box2d inkOf(const Font& font, std::u16string_view text)
{
    Box2d ink;
    double pen = 0.0;
    for (const char32_t character : charactersOf(text))
        if (const Glyph* glyph = shownGlyph(font, character))
        {
            if (!glyph->ink.isEmpty())
                ink.add({glyph->ink.minX + pen, glyph->ink.minY, glyph->ink.maxX + pen, glyph->ink.maxY});
            pen += glyph->advance;
        }
    return ink;
}

} // namespace picture
