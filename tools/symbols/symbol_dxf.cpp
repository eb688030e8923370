#include "tools/symbols/symbol_dxf.h"

#include "tools/symbols/dxf_frame.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace symbols
{
namespace
{

constexpr unsigned kFirstEntityHandle = 0x30;
constexpr int kDiscSides = 16;

std::string Hex(unsigned value)
{
    std::array<char, 16> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
    std::string text(digits.data(), end);
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return c >= 'a' ? char(c - 'a' + 'A') : c; });
    return text;
}

/// Six decimals are more than a drawn symbol needs, and hide the last bits of sines from the committed files.
std::string Real(double value)
{
    const double rounded = std::round(value * 1e6) / 1e6;
    std::array<char, 40> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), rounded + 0.0, std::chars_format::fixed).ptr;
    std::string text(digits.data(), end);
    return text.find('.') == std::string::npos ? text + ".0" : text;
}

class Drawing
{
public:
    void Tag(int code, std::string_view value)
    {
        m_text += std::to_string(code) + '\n';
        m_text.append(value) += '\n';
    }

    void Tags(std::string_view lines)
    {
        while (!lines.empty())
        {
            const std::string_view line = lines.substr(0, lines.find('\n'));
            const std::size_t blank = line.find(' ');
            m_text.append(line.substr(0, blank)) += '\n';
            m_text.append(line.substr(blank + 1)) += '\n';
            lines.remove_prefix(line.size() + 1);
        }
    }

    void At(int code, Point point)
    {
        Flat(code, point);
        Tag(code + 20, "0.0");
    }

    void Flat(int code, Point point)
    {
        Tag(code, Real(point.x));
        Tag(code + 10, Real(point.y));
    }

    void Begin(std::string_view type, std::string_view subclass)
    {
        Tag(0, type);
        Tag(5, Hex(m_nextHandle++));
        Tags("330 17\n100 AcDbEntity\n8 0\n62 0\n");
        Tag(100, subclass);
    }

    std::string& Text() { return m_text; }
    unsigned NextHandle() const { return m_nextHandle; }

private:
    std::string m_text;
    unsigned m_nextHandle = kFirstEntityHandle;
};

void WriteVertices(Drawing& drawing, const Stroke& stroke)
{
    drawing.Begin("LWPOLYLINE", "AcDbPolyline");
    drawing.Tag(90, std::to_string(stroke.points.size()));
    drawing.Tag(70, stroke.kind == StrokeKind::kRing ? "1" : "0");
    for (const Point& point : stroke.points)
        drawing.Flat(10, point);
}

void WritePath(Drawing& drawing, const Stroke& stroke)
{
    if (stroke.points.size() != 2)
        return WriteVertices(drawing, stroke);
    drawing.Begin("LINE", "AcDbLine");
    drawing.At(10, stroke.points[0]);
    drawing.At(11, stroke.points[1]);
}

void WriteCircle(Drawing& drawing, const Stroke& stroke)
{
    drawing.Begin(stroke.kind == StrokeKind::kArc ? "ARC" : "CIRCLE", "AcDbCircle");
    drawing.At(10, stroke.points[0]);
    drawing.Tag(40, Real(stroke.radius));
    if (stroke.kind != StrokeKind::kArc)
        return;
    drawing.Tag(100, "AcDbArc");
    drawing.Tag(50, Real(stroke.startAngle));
    drawing.Tag(51, Real(stroke.endAngle));
}

/// Corners a, b, c, d go round the outline; a SOLID wants the last two the other way round.
void WriteFill(Drawing& drawing, Point a, Point b, Point c, Point d)
{
    drawing.Begin("SOLID", "AcDbTrace");
    drawing.At(10, a);
    drawing.At(11, b);
    drawing.At(12, d);
    drawing.At(13, c);
}

/// A filled circle, as slices of a many-sided figure: every reader fills those.
void WriteDisc(Drawing& drawing, const Stroke& stroke)
{
    const auto corner = [&](int i)
    {
        const double angle = 2 * std::numbers::pi * i / kDiscSides;
        return Point{stroke.points[0].x + stroke.radius * std::cos(angle),
                     stroke.points[0].y + stroke.radius * std::sin(angle)};
    };
    for (int i = 0; i < kDiscSides / 2 - 1; ++i)
        WriteFill(drawing, corner(i), corner(i + 1), corner(kDiscSides - 2 - i), corner(kDiscSides - 1 - i));
}

void WriteStroke(Drawing& drawing, const Stroke& stroke)
{
    switch (stroke.kind)
    {
    case StrokeKind::kPath:
        return WritePath(drawing, stroke);
    case StrokeKind::kRing:
        return WriteVertices(drawing, stroke);
    case StrokeKind::kCircle:
    case StrokeKind::kArc:
        return WriteCircle(drawing, stroke);
    case StrokeKind::kFill:
        return WriteFill(drawing, stroke.points[0], stroke.points[1], stroke.points[2], stroke.points.back());
    case StrokeKind::kDisc:
        return WriteDisc(drawing, stroke);
    }
}

void WriteLayout(Drawing& drawing, std::string_view handle, std::string_view name, std::string_view blockRecord,
                 bool model)
{
    drawing.Tag(0, "LAYOUT");
    drawing.Tag(5, handle);
    drawing.Tags("330 1D\n100 AcDbPlotSettings\n1 \n2 none_device\n4 \n6 \n");
    drawing.Tag(70, model ? "1024" : "0");
    drawing.Tags("100 AcDbLayout\n");
    drawing.Tag(1, name);
    drawing.Tag(70, "1");
    drawing.Tag(71, model ? "0" : "1");
    drawing.Tag(330, blockRecord);
}

} // namespace

std::string SymbolDrawing(const Symbol& symbol)
{
    Drawing entities;
    for (const Stroke& stroke : symbol.strokes)
        WriteStroke(entities, stroke);

    Drawing drawing;
    drawing.Tags(kHeader);
    drawing.Tag(9, "$HANDSEED");
    drawing.Tag(5, Hex(entities.NextHandle()));
    drawing.Tags(kTables);
    drawing.Text() += entities.Text();
    drawing.Tags(kObjects);
    WriteLayout(drawing, "23", "Model", "17", true);
    WriteLayout(drawing, "24", "Layout1", "18", false);
    drawing.Tags(kEnd);
    return std::move(drawing.Text());
}

} // namespace symbols
