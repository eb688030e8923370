#include "picture/text/shape_pen.h"

#include <array>
#include <numbers>

namespace picture
{

namespace
{

constexpr int kDeepestSubshape = 8;
constexpr size_t kMostVertices = 20'000;

/// The sixteen directions of the short vectors, anticlockwise from the right.
constexpr std::array<Vertex, 16> kDirections{{{1, 0},
                                              {1, .5},
                                              {1, 1},
                                              {.5, 1},
                                              {0, 1},
                                              {-.5, 1},
                                              {-1, 1},
                                              {-1, .5},
                                              {-1, 0},
                                              {-1, -.5},
                                              {-1, -1},
                                              {-.5, -1},
                                              {0, -1},
                                              {.5, -1},
                                              {1, -1},
                                              {1, -.5}}};

class ShapePen
{
public:
    ShapePen(const std::map<unsigned, std::string>& shapes, double scale) : m_shapes{shapes}, m_scale{scale} {}

    void draw(unsigned number, int depth);
    Glyph take();

private:
    struct Commands
    {
        std::string_view bytes;
        size_t at = 0;
        bool isEnd() const { return at >= bytes.size(); }
        int unsignedByte() { return isEnd() ? 0 : static_cast<unsigned char>(bytes[at++]); }
        int signedByte() { return static_cast<signed char>(unsignedByte()); }
    };

    void run(Commands& commands, int depth);
    void command(int code, Commands& commands, int depth);
    /// Reads what a command takes without doing it: it counts for vertical writing only.
    static void skip(Commands& commands);
    void move(double dx, double dy);
    void bulgeTo(double dx, double dy, double bulge);
    void octantArc(Commands& commands);
    void fractionalArc(Commands& commands);
    void arc(double radius, double from, double sweep);

    const std::map<unsigned, std::string>& m_shapes;
    double m_scale;
    Vertex m_at;
    bool m_down = true;
    bool m_drawing = false; ///< the last path goes on from here
    std::vector<Vertex> m_stack;
    Glyph m_glyph;
    size_t m_vertices = 0;
};

void ShapePen::draw(unsigned number, int depth)
{
    const auto shape = m_shapes.find(number);
    if (shape == m_shapes.end() || depth > kDeepestSubshape)
        return;
    Commands commands{shape->second};
    commands.at = std::min(shape->second.find('\0'), shape->second.size() - 1) + 1;
    run(commands, depth);
}

void ShapePen::run(Commands& commands, int depth)
{
    while (!commands.isEnd() && m_vertices < kMostVertices)
    {
        const int code = commands.unsignedByte();
        if (code == 0)
            return;
        command(code, commands, depth);
    }
}

void ShapePen::skip(Commands& commands)
{
    const int code = commands.unsignedByte();
    switch (code)
    {
    case 3:
    case 4:
    case 7:
        commands.unsignedByte();
        break;
    case 8:
    case 10:
        commands.at += 2;
        break;
    case 9:
        while (!commands.isEnd() && (commands.signedByte() | commands.signedByte()) != 0)
            continue;
        break;
    case 11:
        commands.at += 5;
        break;
    case 12:
        commands.at += 3;
        break;
    case 13:
        while (!commands.isEnd() && (commands.signedByte() | commands.signedByte()) != 0)
            commands.at += 1;
        break;
    default:
        break;
    }
}

void ShapePen::command(int code, Commands& commands, int depth)
{
    if (code > 15)
    {
        const Vertex& direction = kDirections[static_cast<size_t>(code & 15)];
        return move(direction.x * (code >> 4), direction.y * (code >> 4));
    }
    switch (code)
    {
    case 1:
        m_down = true;
        break;
    case 2:
        m_down = false;
        break;
    case 3:
        m_scale /= std::max(1, commands.unsignedByte());
        break;
    case 4:
        m_scale *= std::max(1, commands.unsignedByte());
        break;
    case 5:
        m_stack.push_back(m_at);
        break;
    case 6:
        if (!m_stack.empty())
        {
            m_at = m_stack.back();
            m_stack.pop_back();
        }
        m_drawing = false;
        break;
    case 7:
        draw(static_cast<unsigned>(commands.unsignedByte()), depth + 1);
        break;
    case 8:
    {
        const int dx = commands.signedByte();
        move(dx, commands.signedByte());
        break;
    }
    case 9:
        while (!commands.isEnd())
        {
            const int dx = commands.signedByte();
            const int dy = commands.signedByte();
            if (dx == 0 && dy == 0)
                break;
            move(dx, dy);
        }
        break;
    case 10:
        octantArc(commands);
        break;
    case 11:
        fractionalArc(commands);
        break;
    case 12:
    {
        const int dx = commands.signedByte();
        const int dy = commands.signedByte();
        bulgeTo(dx, dy, commands.signedByte() / 127.0);
        break;
    }
    case 13:
        while (!commands.isEnd())
        {
            const int dx = commands.signedByte();
            const int dy = commands.signedByte();
            if (dx == 0 && dy == 0)
                break;
            bulgeTo(dx, dy, commands.signedByte() / 127.0);
        }
        break;
    case 14:
        skip(commands);
        break;
    default:
        break;
    }
}

void ShapePen::move(double dx, double dy)
{
    const Vertex to{m_at.x + dx * m_scale, m_at.y + dy * m_scale};
    if (m_down)
    {
        if (!m_drawing)
            m_glyph.paths.push_back({m_at});
        m_glyph.paths.back().push_back(to);
        ++m_vertices;
    }
    m_drawing = m_down;
    m_at = to;
}

void ShapePen::bulgeTo(double dx, double dy, double bulge)
{
    if (bulge == 0.0 || (dx == 0.0 && dy == 0.0))
        return move(dx, dy);
    const Segment2d arc{{0.0, 0.0}, {dx, dy}, bulge};
    const int chords = std::max(2, static_cast<int>(std::ceil(std::fabs(arc.sweep()) / (std::numbers::pi / 12))));
    AcGePoint2d last{0.0, 0.0};
    for (int i = 1; i <= chords; ++i)
    {
        const AcGePoint2d next = i < chords ? arc.at(static_cast<double>(i) / chords) : AcGePoint2d{dx, dy};
        move(next.x - last.x, next.y - last.y);
        last = next;
    }
}

void ShapePen::arc(double radius, double from, double sweep)
{
    const int chords = std::max(2, static_cast<int>(std::ceil(std::fabs(sweep) / (std::numbers::pi / 12))));
    for (int i = 1; i <= chords; ++i)
    {
        const double before = from + sweep * (i - 1) / chords;
        const double after = from + sweep * i / chords;
        move(radius * (std::cos(after) - std::cos(before)), radius * (std::sin(after) - std::sin(before)));
    }
}

/// Radius, then sign (clockwise), first octant and number of octants.
void ShapePen::octantArc(Commands& commands)
{
    constexpr double kOctant = std::numbers::pi / 4;
    const int radius = commands.unsignedByte();
    const int how = commands.signedByte();
    const int magnitude = std::abs(how);
    const int count = (magnitude & 7) == 0 ? 8 : magnitude & 7;
    arc(radius, kOctant * (magnitude >> 4 & 7), how < 0 ? -kOctant * count : kOctant * count);
}

/// An octant arc whose ends lie off the octants, by 256ths of 45 degrees.
void ShapePen::fractionalArc(Commands& commands)
{
    constexpr double kOctant = std::numbers::pi / 4;
    const double startOffset = commands.unsignedByte() / 256.0;
    const double endOffset = commands.unsignedByte() / 256.0;
    const int high = commands.unsignedByte();
    const int radius = high * 256 + commands.unsignedByte();
    const int how = commands.signedByte();
    const int magnitude = std::abs(how);
    const int count = (magnitude & 7) == 0 ? 8 : magnitude & 7;
    const double turn = how < 0 ? -1.0 : 1.0;
    const double first = (magnitude >> 4 & 7) + turn * startOffset;
    const double octants = count - startOffset + (endOffset > 0.0 ? endOffset - 1.0 : 0.0);
    arc(radius, kOctant * first, kOctant * turn * octants);
}

Glyph ShapePen::take()
{
    m_glyph.advance = m_at.x;
    for (const std::vector<Vertex>& path : m_glyph.paths)
        for (const Vertex& vertex : path)
            m_glyph.ink.add(vertex.x, vertex.y);
    return std::move(m_glyph);
}

} // namespace

Glyph drawShape(const std::map<unsigned, std::string>& shapes, unsigned number, double scale)
{
    ShapePen pen{shapes, scale};
    pen.draw(number, 0);
    return pen.take();
}

} // namespace picture
