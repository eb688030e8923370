#include "entities.h"

#include "frame.h"

#include <array>
#include <cstdio>

std::u16string Wide(std::string_view ascii)
{
    return {ascii.begin(), ascii.end()};
}

std::u16string Fixed(double value, int decimals)
{
    std::array<char, 40> text{};
    const int length = std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return Wide({text.data(), static_cast<std::size_t>(length)});
}

Handle Entities::Begin(std::string_view type, std::string_view layer)
{
    const Handle handle = m_out.NewHandle();
    ++m_out.Running().entities;
    m_out.Tag(0, type);
    m_out.Hex(5, handle);
    m_out.Hex(330, kModelSpace);
    m_out.Tag(100, "AcDbEntity");
    m_out.Tag(8, layer);
    return handle;
}

void Entities::Line(std::string_view layer, Point from, Point to)
{
    Begin("LINE", layer);
    m_out.Tag(100, "AcDbLine");
    m_out.At(10, from, 0);
    m_out.At(11, to, 0);
    m_out.Running().extents.Add(from);
    m_out.Running().extents.Add(to);
}

void Entities::Circle(std::string_view layer, Point centre, double radius)
{
    Begin("CIRCLE", layer);
    m_out.Tag(100, "AcDbCircle");
    m_out.At(10, centre, 0);
    m_out.Real(40, radius);
    m_out.Running().extents.Add(centre);
}

void Entities::Dot(std::string_view layer, Point at, double z)
{
    Begin("POINT", layer);
    m_out.Tag(100, "AcDbPoint");
    m_out.At(10, at, z);
    m_out.Running().extents.Add(at);
}

void Entities::Text(std::string_view layer, Point at, std::u16string_view text, const TextStyle& style)
{
    Begin("TEXT", layer);
    m_out.Tag(100, "AcDbText");
    m_out.At(10, at, 0);
    m_out.Real(40, style.height);
    m_out.Text(1, text);
    if (style.rotation != 0)
        m_out.Real(50, style.rotation);
    if (style.style != "Standard")
        m_out.Tag(7, style.style);
    if (style.align != Align::Left)
    {
        m_out.Tag(72, 1);
        m_out.At(11, at, 0);
    }
    m_out.Tag(100, "AcDbText");
    if (style.align == Align::Middle)
        m_out.Tag(73, 2);
    m_out.Running().extents.Add(at);
}

void Entities::SurveyInfo(std::u16string_view code)
{
    if (code.empty())
        return;
    m_out.Tag(1001, "SV_INFOR");
    m_out.Tag(1002, "{");
    m_out.Text(1000, code);
    m_out.Tag(1002, "}");
}

Handle Entities::LightPolyline(std::string_view layer, std::span<const Vertex> line, bool closed,
                               std::u16string_view code, double elevation)
{
    const Handle handle = Begin("LWPOLYLINE", layer);
    m_out.Tag(100, "AcDbPolyline");
    m_out.Tag(90, static_cast<int>(line.size()));
    m_out.Tag(70, closed ? 1 : 0);
    m_out.Real(43, 0);
    if (elevation != 0)
        m_out.Real(38, elevation);
    for (const Vertex& vertex : line)
    {
        m_out.At(10, vertex.at);
        if (vertex.bulge != 0)
            m_out.Real(42, vertex.bulge, 9);
        m_out.Running().extents.Add(vertex.at);
    }
    SurveyInfo(code);
    return handle;
}

void Entities::Polyline(LineClass lineClass, std::string_view layer, std::span<const Vertex> line, bool closed,
                        std::u16string_view code)
{
    if (lineClass == LineClass::Light)
        LightPolyline(layer, line, closed, code);
    else
        HeavyPolyline(lineClass, layer, line, closed, code);
}

void Entities::HeavyPolyline(LineClass lineClass, std::string_view layer, std::span<const Vertex> line, bool closed,
                             std::u16string_view code)
{
    const bool spatial = lineClass == LineClass::Line3d;
    const Handle handle = Begin("POLYLINE", layer);
    m_out.Tag(100, spatial ? "AcDb3dPolyline" : "AcDb2dPolyline");
    m_out.Tag(66, 1);
    m_out.At(10, {}, 0);
    m_out.Tag(70, (spatial ? 8 : 0) + (closed ? 1 : 0));
    SurveyInfo(code);
    for (const Vertex& vertex : line)
        HeavyVertex(lineClass, layer, handle, vertex);
    m_out.Tag(0, "SEQEND");
    m_out.Hex(5, m_out.NewHandle());
    m_out.Hex(330, handle);
    m_out.Tag(100, "AcDbEntity");
    m_out.Tag(8, layer);
}

void Entities::HeavyVertex(LineClass lineClass, std::string_view layer, Handle owner, const Vertex& vertex)
{
    const bool spatial = lineClass == LineClass::Line3d;
    m_out.Tag(0, "VERTEX");
    m_out.Hex(5, m_out.NewHandle());
    m_out.Hex(330, owner);
    m_out.Tag(100, "AcDbEntity");
    m_out.Tag(8, layer);
    m_out.Tag(100, "AcDbVertex");
    m_out.Tag(100, spatial ? "AcDb3dPolylineVertex" : "AcDb2dVertex");
    m_out.At(10, vertex.at, spatial ? vertex.z : 0);
    if (spatial)
        m_out.Tag(70, 32);
    else if (vertex.bulge != 0)
        m_out.Real(42, vertex.bulge, 9);
    m_out.Running().extents.Add(vertex.at);
}

void Entities::Insert(std::string_view layer, std::string_view block, Point at, const Placement& placement,
                      std::u16string_view code)
{
    Begin("INSERT", layer);
    m_out.Tag(100, "AcDbBlockReference");
    m_out.Tag(2, block);
    m_out.At(10, at, 0);
    if (placement.scale != 1)
    {
        m_out.Real(41, placement.scale);
        m_out.Real(42, placement.scale);
        m_out.Real(43, placement.scale);
    }
    if (placement.rotation != 0)
        m_out.Real(50, placement.rotation);
    SurveyInfo(code);
    m_out.Running().extents.Add(at);
}

void Entities::HatchPattern()
{
    m_out.Real(52, 0);
    m_out.Real(41, 0.5);
    m_out.Tag(77, 0);
    m_out.Tag(78, 1);
    m_out.Real(53, 45);
    m_out.Real(43, 0);
    m_out.Real(44, 0);
    m_out.Real(45, -1.1225);
    m_out.Real(46, 1.1225);
    m_out.Tag(79, 0);
}

void Entities::HatchBoundary(std::span<const Vertex> outline)
{
    m_out.Tag(91, 1);
    m_out.Tag(92, 3); // an outer boundary given as a polyline
    m_out.Tag(72, 1);
    m_out.Tag(73, 1);
    m_out.Tag(93, static_cast<int>(outline.size()));
    for (const Vertex& vertex : outline)
    {
        m_out.At(10, vertex.at);
        m_out.Real(42, vertex.bulge, 9);
    }
    m_out.Tag(97, 0);
}

void Entities::Hatch(std::string_view layer, std::span<const Vertex> outline, bool solid, int colour)
{
    Begin("HATCH", layer);
    m_out.Tag(62, colour);
    m_out.Tag(100, "AcDbHatch");
    m_out.At(10, {}, 0);
    m_out.At(210, {}, 1);
    m_out.Tag(2, solid ? "SOLID" : "ANSI31");
    m_out.Tag(70, solid ? 1 : 0);
    m_out.Tag(71, 0);
    HatchBoundary(outline);
    m_out.Tag(75, 0);
    m_out.Tag(76, 1);
    if (!solid)
        HatchPattern();
    m_out.Tag(98, 0);
}

Handle Entities::SurveyPoint(Point at, double z, std::u16string_view code)
{
    const int number = ++m_out.Running().points;
    const Handle handle = Begin("PLXDBMEASUREPOINTOBJ", "DIEM_DO");
    m_out.Tag(100, "PlxDbPointObj");
    m_out.At(10, at, z);
    m_out.Tag(70, 1);
    m_out.Text(1, code);
    m_out.Tag(70, 2);
    m_out.Text(1, Wide(std::to_string(number)));
    m_out.Tag(100, "PlxDbMeasurePointObj");
    m_out.Running().extents.Add(at);
    return handle;
}
