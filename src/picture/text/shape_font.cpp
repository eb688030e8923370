#include "picture/text/shape_font.h"

#include "picture/text/shape_pen.h"
#include "util/tcvn3.h"

#include <algorithm>

namespace picture
{

namespace
{

constexpr std::string_view kHeadEnd = "\r\n\x1A";

/// Takes words of one and two bytes, the low byte first, off a piece of the file; 0 behind its end.
class Bytes
{
public:
    explicit Bytes(std::string_view bytes) : m_bytes{bytes} {}

    bool isEnd() const { return m_at >= m_bytes.size(); }
    unsigned byte() { return m_at < m_bytes.size() ? static_cast<unsigned char>(m_bytes[m_at++]) : 0; }
    unsigned word()
    {
        const unsigned low = byte();
        return low | byte() << 8;
    }
    std::string_view take(size_t size)
    {
        const std::string_view piece = m_bytes.substr(std::min(m_at, m_bytes.size()), size);
        m_at += size;
        return piece;
    }

private:
    std::string_view m_bytes;
    size_t m_at = 0;
};

/// The shapes by their numbers; the one numbered 0 describes the font.
using Shapes = std::map<unsigned, std::string>;

/// The plain form: numbers and lengths of all shapes, then their bytes.
Shapes readPlain(Bytes bytes)
{
    bytes.word();
    bytes.word();
    const unsigned count = bytes.word();
    std::vector<std::pair<unsigned, unsigned>> index;
    for (unsigned i = 0; i < count && !bytes.isEnd(); ++i)
    {
        const unsigned number = bytes.word();
        index.emplace_back(number, bytes.word());
    }
    Shapes shapes;
    for (const auto& [number, length] : index)
        shapes.emplace(number, bytes.take(length));
    return shapes;
}

/// The form with Unicode numbers: each shape with its number and length before it.
Shapes readUnicode(Bytes bytes)
{
    const unsigned count = bytes.word();
    Shapes shapes;
    shapes.emplace(0, bytes.take(bytes.word()));
    for (unsigned i = 1; i < count && !bytes.isEnd(); ++i)
    {
        const unsigned number = bytes.word();
        shapes.emplace(number, bytes.take(bytes.word()));
    }
    return shapes;
}

class ShapeFont : public Font
{
public:
    ShapeFont(Shapes shapes, ShapeCodes codes);

    const Glyph* find(char32_t character) const override;
    bool isFilled() const override { return false; }
    bool isUsable() const { return m_height > 0.0; }

private:
    /// The shape's number, or nothing the font can have.
    unsigned numberOf(char32_t character) const;

    Shapes m_shapes;
    ShapeCodes m_codes;
    double m_height = 0.0;
    mutable std::map<char32_t, std::unique_ptr<Glyph>> m_glyphs;
};

ShapeFont::ShapeFont(Shapes shapes, ShapeCodes codes) : m_shapes{std::move(shapes)}, m_codes{codes}
{
    const auto head = m_shapes.find(0);
    if (head == m_shapes.end())
        return;
    const size_t name = head->second.find('\0');
    if (name != std::string::npos && name + 1 < head->second.size())
        m_height = static_cast<unsigned char>(head->second[name + 1]);
}

unsigned ShapeFont::numberOf(char32_t character) const
{
    if (m_codes == ShapeCodes::kUnicode || character < 0x80)
        return static_cast<unsigned>(character);
    const auto unit = static_cast<char16_t>(character);
    return character < 0x10000 && HasByteForm(unit) ? static_cast<unsigned char>(EncodeText({&unit, 1})[0]) : 0;
}

const Glyph* ShapeFont::find(char32_t character) const
{
    const auto known = m_glyphs.find(character);
    if (known != m_glyphs.end())
        return known->second.get();
    std::unique_ptr<Glyph>& fresh = m_glyphs[character];
    const unsigned number = numberOf(character);
    if (number != 0 && m_shapes.count(number) != 0)
        fresh = std::make_unique<Glyph>(drawShape(m_shapes, number, 1.0 / m_height));
    return fresh.get();
}

} // namespace

std::unique_ptr<Font> readShapeFont(std::string_view bytes, ShapeCodes codes)
{
    const size_t headEnd = bytes.substr(0, 64).find(kHeadEnd);
    if (headEnd == std::string_view::npos)
        return nullptr;
    const std::string_view head = bytes.substr(0, headEnd);
    const Bytes body{bytes.substr(headEnd + kHeadEnd.size())};
    std::unique_ptr<ShapeFont> font;
    if (head.find("unifont") != std::string_view::npos)
        font = std::make_unique<ShapeFont>(readUnicode(body), ShapeCodes::kUnicode);
    else if (head.find("shapes") != std::string_view::npos)
        font = std::make_unique<ShapeFont>(readPlain(body), codes);
    return font != nullptr && font->isUsable() ? std::move(font) : nullptr;
}

} // namespace picture
