#pragma once

#include "kernel/segment2d.h"
#include "picture/map2d.h"

#include <array>
#include <bitset>
#include <string>
#include <vector>

namespace picture
{

/// The drawn shape of a character, in units of the text's height; its origin stands on the base line.
struct Glyph
{
    double advance = 0.0;
    std::vector<std::vector<Vertex>> paths; ///< strokes of the pen, or the closed outlines of a filled shape
    Box2d ink;
};

/// Gives characters their shapes. Glyphs stay where they are for as long as the font lives.
class Font
{
public:
    Font() = default;
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;
    virtual ~Font() = default;

    /// Null for a character that the font has no shape for. A character that was asked for once may be asked for by
    /// several threads.
    const Glyph* glyph(char32_t character) const
    {
        const size_t place = placeOf(character);
        if (place < kQuick && m_isKnown[place])
            return m_quick[place];
        const Glyph* found = find(character);
        if (place < kQuick)
        {
            m_quick[place] = found;
            m_isKnown[place] = true;
        }
        return found;
    }
    /// Whether glyphs are outlines to be filled, not strokes.
    virtual bool isFilled() const = 0;

protected:
    /// As `glyph`; the second time the same.
    virtual const Glyph* find(char32_t character) const = 0;

private:
    /// Latin letters and those with Vietnamese accents are found at once.
    static constexpr char32_t kLatinEnd = 0x180;
    static constexpr char32_t kVietnamese = 0x1EA0;
    static constexpr char32_t kVietnameseEnd = 0x1F00;
    static constexpr size_t kQuick = kLatinEnd + (kVietnameseEnd - kVietnamese);
    static size_t placeOf(char32_t character)
    {
        if (character < kLatinEnd)
            return character;
        return character >= kVietnamese && character < kVietnameseEnd ? kLatinEnd + (character - kVietnamese) : kQuick;
    }

    mutable std::array<const Glyph*, kQuick> m_quick{};
    mutable std::bitset<kQuick> m_isKnown;
};

/// Takes the next character off a text, surrogate pairs joined.
inline char32_t takeCharacter(std::u16string_view& text)
{
    const char16_t unit = text.front();
    const bool isPair = unit >= 0xD800 && unit < 0xDC00 && text.size() > 1;
    const char32_t character = isPair ? 0x10000U + ((unit - 0xD800U) << 10) + (text[1] - 0xDC00U) : char32_t{unit};
    text.remove_prefix(isPair ? 2 : 1);
    return character;
}

/// What room a text takes, in units of its height.
struct TextExtent
{
    double advance = 0.0; ///< how far the pen goes; a character without a shape is as wide as a blank
    Box2d ink;            ///< around what it draws
};
TextExtent extentOf(const Font& font, std::u16string_view text);
/// The shape that is drawn for a character: its own, else the font's question mark, else nothing.
const Glyph* shownGlyph(const Font& font, char32_t character);

} // namespace picture
