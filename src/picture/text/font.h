#pragma once

#include "kernel/segment2d.h"
#include "picture/map2d.h"

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

    /// Null for a character that the font has no shape for.
    virtual const Glyph* glyph(char32_t character) const = 0;
    /// Whether glyphs are outlines to be filled, not strokes.
    virtual bool isFilled() const = 0;
};

/// The characters of a text, surrogate pairs joined.
std::u32string charactersOf(std::u16string_view text);

/// How far the pen goes along a text, in units of its height. A character without a shape is as wide as a blank.
double advanceOf(const Font& font, std::u16string_view text);
/// The box of what the text draws, in units of its height.
Box2d inkOf(const Font& font, std::u16string_view text);
/// The shape that is drawn for a character: its own, else the font's question mark, else nothing.
const Glyph* shownGlyph(const Font& font, char32_t character);

} // namespace picture
