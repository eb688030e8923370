#include "tools/font/shape_file.h"

#include <cmath>
#include <cstdint>
#include <numbers>
#include <stdexcept>

namespace font
{
namespace
{

// The line every compiled shape file opens with, then the byte that ends it for a program that types the file out.
constexpr std::uint8_t kOpening[] = {0x41, 0x75, 0x74, 0x6F, 0x43, 0x41, 0x44, 0x2D, 0x38, 0x36, 0x20, 0x73,
                                     0x68, 0x61, 0x70, 0x65, 0x73, 0x20, 0x31, 0x2E, 0x30, 0x0D, 0x0A, 0x1A};
constexpr std::string_view kClosing = "EOF";
constexpr std::string_view kFontName = "Vnsimple";

constexpr int kCapitalHeight = 60;
constexpr int kTailDepth = 16;
constexpr int kBearing = 7; // on either side of the ink
constexpr int kReach = 127; // of one vector

// What a shape's bytes mean.
constexpr int kEnd = 0;
constexpr int kPenDown = 1;
constexpr int kPenUp = 2;
constexpr int kVector = 8;
constexpr int kArc = 12;

void AppendByte(std::string& bytes, int value)
{
    bytes += static_cast<char>(static_cast<std::uint8_t>(value));
}

void AppendWord(std::string& bytes, std::size_t value)
{
    AppendByte(bytes, static_cast<int>(value & 0xFF));
    AppendByte(bytes, static_cast<int>(value >> 8 & 0xFF));
}

/// Writes one shape: knows where the pen is and whether it draws.
class ShapeWriter
{
public:
    /// The empty name comes first: labels find their shapes by number.
    ShapeWriter() { AppendByte(m_bytes, 0); }

    void Draw(const Path& path)
    {
        Lift();
        MoveTo(path.front());
        Pen(kPenDown);
        for (std::size_t i = 1; i < path.size(); ++i)
            MoveTo(path[i]);
    }

    std::string Finish(int advance)
    {
        Lift();
        MoveTo({advance, 0});
        AppendByte(m_bytes, kEnd);
        return std::move(m_bytes);
    }

private:
    void Lift() { Pen(kPenUp); }

    void Pen(int state)
    {
        if (m_pen != state)
            AppendByte(m_bytes, state);
        m_pen = state;
    }

    void MoveTo(const Vertex& target)
    {
        const int dx = target.x - m_x;
        const int dy = target.y - m_y;
        if (std::abs(dx) > kReach || std::abs(dy) > kReach)
            throw std::runtime_error("a stroke reaches too far");
        m_x = target.x;
        m_y = target.y;
        if (dx == 0 && dy == 0)
            return;
        AppendByte(m_bytes, target.turn == 0 ? kVector : kArc);
        AppendByte(m_bytes, dx);
        AppendByte(m_bytes, dy);
        if (target.turn != 0)
            AppendByte(m_bytes, Bulge(target.turn));
    }

    /// A half circle has the largest bulge, 127.
    static int Bulge(double turn)
    {
        return static_cast<int>(std::lround(kReach * std::tan(turn * std::numbers::pi / 180 / 4)));
    }

    std::string m_bytes;
    int m_x = 0;
    int m_y = 0;
    int m_pen = kPenDown;
};

std::string GlyphShape(const Glyph& glyph)
{
    ShapeWriter writer;
    for (Path path : glyph.paths)
    {
        for (Vertex& vertex : path)
            vertex.x += kBearing;
        writer.Draw(path);
    }
    return writer.Finish(glyph.width + 2 * kBearing);
}

/// Shape 0 describes the font: its name, the heights above and below the base line, and horizontal writing only.
std::string FontShape()
{
    std::string bytes(kFontName);
    for (const int value : {0, kCapitalHeight, kTailDepth, 0, kEnd})
        AppendByte(bytes, value);
    return bytes;
}

/// After a character of this code the next line begins: down by capitals, tails and the space between lines.
std::string LineFeedShape()
{
    std::string bytes;
    for (const int value : {0, kPenUp, kVector, 0, -(kCapitalHeight * 5 / 3), kEnd})
        AppendByte(bytes, value);
    return bytes;
}

constexpr int kLineFeedCode = 10;

} // namespace

std::string ShapeFile(const Glyphs& glyphs)
{
    std::map<int, std::string> shapes{{0, FontShape()}, {kLineFeedCode, LineFeedShape()}};
    for (const auto& [code, glyph] : glyphs)
        shapes[code] = GlyphShape(glyph);

    std::string file(std::begin(kOpening), std::end(kOpening));
    AppendWord(file, static_cast<std::size_t>(shapes.begin()->first));
    AppendWord(file, static_cast<std::size_t>(shapes.rbegin()->first));
    AppendWord(file, shapes.size());
    for (const auto& [code, bytes] : shapes)
    {
        AppendWord(file, static_cast<std::size_t>(code));
        AppendWord(file, bytes.size());
    }
    for (const auto& [code, bytes] : shapes)
        file += bytes;
    return file.append(kClosing);
}

} // namespace font
