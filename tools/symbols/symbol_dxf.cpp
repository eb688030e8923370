#include "tools/symbols/symbol_dxf.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace symbols
{
namespace
{

// The fixed parts of a drawing, one tag a line: the group code, a blank, the value.
constexpr std::string_view kHeader = R"(0 SECTION
2 HEADER
9 $ACADVER
1 AC1015
9 $DWGCODEPAGE
3 ANSI_1252
9 $INSBASE
10 0.0
20 0.0
30 0.0
)";

constexpr std::string_view kTables = R"(0 ENDSEC
0 SECTION
2 CLASSES
0 ENDSEC
0 SECTION
2 TABLES
0 TABLE
2 VPORT
5 1
330 0
100 AcDbSymbolTable
70 0
0 ENDTAB
0 TABLE
2 LTYPE
5 2
330 0
100 AcDbSymbolTable
70 3
0 LTYPE
5 10
330 2
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 ByBlock
70 0
3 
72 65
73 0
40 0.0
0 LTYPE
5 11
330 2
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 ByLayer
70 0
3 
72 65
73 0
40 0.0
0 LTYPE
5 12
330 2
100 AcDbSymbolTableRecord
100 AcDbLinetypeTableRecord
2 Continuous
70 0
3 Solid line
72 65
73 0
40 0.0
0 ENDTAB
0 TABLE
2 LAYER
5 3
330 0
100 AcDbSymbolTable
70 1
0 LAYER
5 13
330 3
100 AcDbSymbolTableRecord
100 AcDbLayerTableRecord
2 0
70 0
62 7
6 Continuous
370 -3
390 1F
0 ENDTAB
0 TABLE
2 STYLE
5 4
330 0
100 AcDbSymbolTable
70 1
0 STYLE
5 14
330 4
100 AcDbSymbolTableRecord
100 AcDbTextStyleTableRecord
2 Standard
70 0
40 0.0
41 1.0
50 0.0
71 0
42 2.5
3 txt
4 
0 ENDTAB
0 TABLE
2 VIEW
5 5
330 0
100 AcDbSymbolTable
70 0
0 ENDTAB
0 TABLE
2 UCS
5 6
330 0
100 AcDbSymbolTable
70 0
0 ENDTAB
0 TABLE
2 APPID
5 7
330 0
100 AcDbSymbolTable
70 1
0 APPID
5 15
330 7
100 AcDbSymbolTableRecord
100 AcDbRegAppTableRecord
2 ACAD
70 0
0 ENDTAB
0 TABLE
2 DIMSTYLE
5 8
330 0
100 AcDbSymbolTable
70 1
100 AcDbDimStyleTable
71 0
0 DIMSTYLE
105 16
330 8
100 AcDbSymbolTableRecord
100 AcDbDimStyleTableRecord
2 Standard
70 0
340 14
0 ENDTAB
0 TABLE
2 BLOCK_RECORD
5 9
330 0
100 AcDbSymbolTable
70 2
0 BLOCK_RECORD
5 17
330 9
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 *Model_Space
340 23
0 BLOCK_RECORD
5 18
330 9
100 AcDbSymbolTableRecord
100 AcDbBlockTableRecord
2 *Paper_Space
340 24
0 ENDTAB
0 ENDSEC
0 SECTION
2 BLOCKS
0 BLOCK
5 19
330 17
100 AcDbEntity
8 0
100 AcDbBlockBegin
2 *Model_Space
70 0
10 0.0
20 0.0
30 0.0
3 *Model_Space
1 
0 ENDBLK
5 1A
330 17
100 AcDbEntity
8 0
100 AcDbBlockEnd
0 BLOCK
5 1B
330 18
100 AcDbEntity
67 1
8 0
100 AcDbBlockBegin
2 *Paper_Space
70 0
10 0.0
20 0.0
30 0.0
3 *Paper_Space
1 
0 ENDBLK
5 1C
330 18
100 AcDbEntity
67 1
8 0
100 AcDbBlockEnd
0 ENDSEC
0 SECTION
2 ENTITIES
)";

constexpr std::string_view kObjects = R"(0 ENDSEC
0 SECTION
2 OBJECTS
0 DICTIONARY
5 C
330 0
100 AcDbDictionary
281 1
3 ACAD_GROUP
350 D
3 ACAD_LAYOUT
350 1D
3 ACAD_PLOTSTYLENAME
350 1E
0 DICTIONARY
5 D
330 C
100 AcDbDictionary
281 1
0 DICTIONARY
5 1D
330 C
100 AcDbDictionary
281 1
3 Layout1
350 24
3 Model
350 23
0 ACDBDICTIONARYWDFLT
5 1E
330 C
100 AcDbDictionary
281 1
3 Normal
350 1F
100 AcDbDictionaryWithDefault
340 1F
0 ACDBPLACEHOLDER
5 1F
330 1E
)";

constexpr std::string_view kEnd = R"(0 ENDSEC
0 EOF
)";

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
