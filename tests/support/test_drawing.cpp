#include "support/test_drawing.h"

#include "store/text/text.h"

#include <algorithm>

namespace
{

constexpr uint64_t kModelSpace = 0x1F;
constexpr uint64_t kPaperSpace = 0x1B;

std::string pairsOf(const std::vector<std::pair<int, std::string>>& values)
{
    TagWriter out;
    for (const auto& [code, value] : values)
        out.text(code, value);
    return out.take();
}

} // namespace

TestSection& TestSection::ground(const std::vector<AcGePoint2d>& line)
{
    std::vector<AcGePoint2d> points;
    points.reserve(line.size());
    for (const AcGePoint2d& p : line)
        points.emplace_back(m_base.x + m_factor * p.x, m_base.y + p.y);
    m_ground = m_drawing->feature({}, points);
    return *this;
}

TestSection& TestSection::base(const AcGePoint3d& point)
{
    m_base = point;
    return *this;
}

TestSection& TestSection::point(const std::string& code, const AcGePoint3d& position)
{
    m_points.push_back(m_drawing->point(code, position));
    return *this;
}

TestSection& TestSection::pointHandles(std::vector<uint64_t> handles)
{
    m_points = std::move(handles);
    return *this;
}

TestSection& TestSection::groundHandle(uint64_t handle)
{
    m_ground = handle;
    return *this;
}

TestSection& TestSection::dcOffsets(std::vector<double> offsets)
{
    m_dcOffsets = std::move(offsets);
    return *this;
}

TestSection& TestSection::flags(int bits)
{
    m_flags = bits;
    return *this;
}

TestSection& TestSection::drawn(std::vector<uint64_t> handles)
{
    m_drawn = std::move(handles);
    return *this;
}

TestSection& TestAlignment::section(const std::string& name, const AcGePoint2d& a, const AcGePoint2d& b)
{
    constexpr double kFarFromPlan = 10'000.0;
    constexpr double kApart = 500.0;
    TestSection& section = m_sections.emplace_back();
    section.m_drawing = m_drawing;
    section.m_name = name;
    section.m_factor = 1000.0 / m_scale;
    section.m_a = {a.x, a.y, 0.0};
    section.m_b = {b.x, b.y, 0.0};
    section.m_base = {kFarFromPlan, kApart * m_drawing->m_sectionCount++, 0.0};
    return section;
}

TestAlignment& TestAlignment::scale(double value)
{
    m_scale = value;
    return *this;
}

TestAlignment& TestAlignment::extents(double one, double two)
{
    m_extent1 = one;
    m_extent2 = two;
    return *this;
}

TestDrawing::TestDrawing(int version, const std::string& codePage)
    : m_version{version}, m_codePage{codePage}, m_encoding{makeTextEncoding(version, codePage)}
{
    application("ACAD");
    application("SV_INFOR");
}

std::string TestDrawing::encoded(const std::string& utf8) const
{
    return m_encoding->encode(toUtf16(utf8));
}

TagWriter TestDrawing::start(const std::string& kind, uint64_t handle)
{
    TagWriter out;
    out.text(0, kind);
    out.handle(5, handle);
    out.handle(330, m_inBlock ? m_blocks.back().record : m_paper ? kPaperSpace : kModelSpace);
    out.text(100, "AcDbEntity");
    if (m_paper)
        out.integer(67, 1);
    out.text(8, encoded(m_layer));
    return out;
}

uint64_t TestDrawing::finish(TagWriter& out, uint64_t handle, const std::string& code)
{
    if (!code.empty())
        out.raw(pairsOf({{1001, "SV_INFOR"}, {1002, "{"}, {1000, encoded(code)}, {1002, "}"}}));
    addEntity(out.take());
    return handle;
}

void TestDrawing::addEntity(std::string text, const TestAlignment* alignment)
{
    (m_inBlock ? m_blocks.back().entities : m_entities).push_back({std::move(text), alignment});
}

TestAlignment& TestDrawing::alignment(const std::string& name)
{
    TestAlignment& added = m_alignments.emplace_back();
    added.m_drawing = this;
    added.m_name = name;
    added.m_handle = takeHandle();
    addEntity(start("PLXDBALIGNMENT", added.m_handle).take(), &added);
    return added;
}

uint64_t TestDrawing::feature(const std::string& code, const std::vector<AcGePoint2d>& points, bool closed)
{
    const uint64_t handle = takeHandle();
    TagWriter out = start("LWPOLYLINE", handle);
    out.text(100, "AcDbPolyline");
    out.integer(90, static_cast<int64_t>(points.size()));
    out.integer(70, closed ? 1 : 0);
    for (const AcGePoint2d& p : points)
    {
        out.real(10, p.x);
        out.real(20, p.y);
    }
    return finish(out, handle, code);
}

void TestDrawing::polylineHead(TagWriter& out, const std::string& kind, uint64_t handle, const std::string& marker,
                               int flags)
{
    out = start(kind, handle);
    out.text(100, marker);
    out.integer(66, 1);
    out.point(10, {});
    out.integer(70, flags);
}

void TestDrawing::vertex(TagWriter& out, const std::string& marker, const AcGePoint3d& at, int flags)
{
    out.raw(start("VERTEX", takeHandle()).take());
    out.text(100, "AcDbVertex");
    out.text(100, marker);
    out.point(10, at);
    out.integer(70, flags);
}

uint64_t TestDrawing::feature2d(const std::string& code, const std::vector<AcGePoint2d>& points, bool closed)
{
    const uint64_t handle = takeHandle();
    TagWriter out;
    polylineHead(out, "POLYLINE", handle, "AcDb2dPolyline", closed ? 1 : 0);
    if (!code.empty())
        out.raw(pairsOf({{1001, "SV_INFOR"}, {1002, "{"}, {1000, encoded(code)}, {1002, "}"}}));
    for (const AcGePoint2d& p : points)
        vertex(out, "AcDb2dVertex", {p.x, p.y, 0.0}, 0);
    out.raw(start("SEQEND", takeHandle()).take());
    return finish(out, handle);
}

uint64_t TestDrawing::feature3d(const std::string& code, const std::vector<AcGePoint3d>& points, bool closed)
{
    const uint64_t handle = takeHandle();
    TagWriter out;
    polylineHead(out, "POLYLINE", handle, "AcDb3dPolyline", closed ? 9 : 8);
    if (!code.empty())
        out.raw(pairsOf({{1001, "SV_INFOR"}, {1002, "{"}, {1000, encoded(code)}, {1002, "}"}}));
    for (const AcGePoint3d& p : points)
        vertex(out, "AcDb3dPolylineVertex", p, 32);
    out.raw(start("SEQEND", takeHandle()).take());
    return finish(out, handle);
}

uint64_t TestDrawing::point(const std::string& code, const AcGePoint3d& position)
{
    const uint64_t handle = takeHandle();
    TagWriter out = start("PLXDBMEASUREPOINTOBJ", handle);
    out.text(100, "PlxDbPointObj");
    out.point(10, position);
    out.integer(70, 1);
    out.text(1, encoded(code));
    out.text(100, "PlxDbMeasurePointObj");
    return finish(out, handle);
}

uint64_t TestDrawing::line(const AcGePoint3d& from, const AcGePoint3d& to)
{
    const uint64_t handle = takeHandle();
    TagWriter out = start("LINE", handle);
    out.text(100, "AcDbLine");
    out.point(10, from);
    out.point(11, to);
    return finish(out, handle);
}

uint64_t TestDrawing::text(const std::string& value, const AcGePoint3d& position, double height)
{
    const uint64_t handle = takeHandle();
    TagWriter out = start("TEXT", handle);
    out.text(100, "AcDbText");
    out.point(10, position);
    out.real(40, height);
    out.text(1, encoded(value));
    out.text(100, "AcDbText");
    return finish(out, handle);
}

uint64_t TestDrawing::insert(const std::string& block, const AcGePoint3d& position, const std::string& code)
{
    const uint64_t handle = takeHandle();
    TagWriter out = start("INSERT", handle);
    out.text(100, "AcDbBlockReference");
    out.text(2, encoded(block));
    out.point(10, position);
    return finish(out, handle, code);
}

uint64_t TestDrawing::entity(const std::string& kind, const std::string& pairs)
{
    const uint64_t handle = takeHandle();
    TagWriter out = start(kind, handle);
    out.raw(pairs);
    return finish(out, handle);
}

TestDrawing& TestDrawing::onLayer(const std::string& name)
{
    if (std::find(m_layerNames.begin(), m_layerNames.end(), name) == m_layerNames.end())
        layer(name);
    m_layer = name;
    return *this;
}

TestDrawing& TestDrawing::inPaperSpace(bool paper)
{
    m_paper = paper;
    return *this;
}

TestDrawing& TestDrawing::beginBlock(const std::string& name, const AcGePoint3d& base)
{
    m_blocks.push_back({name, base, takeHandle(), {}});
    m_inBlock = true;
    return *this;
}

TestDrawing& TestDrawing::endBlock()
{
    m_inBlock = false;
    return *this;
}

TestDrawing& TestDrawing::layer(const std::string& name, int flags, int color, const std::string& linetype)
{
    m_layerNames.push_back(name);
    m_layers.push_back(
        record("LAYER", "AcDbLayerTableRecord", name,
               pairsOf({{70, std::to_string(flags)}, {62, std::to_string(color)}, {6, encoded(linetype)}})));
    return *this;
}

TestDrawing& TestDrawing::style(const std::string& name, const std::string& font)
{
    m_styles.push_back(record(
        "STYLE", "AcDbTextStyleTableRecord", name,
        pairsOf(
            {{70, "0"}, {40, "0.0"}, {41, "1.0"}, {50, "0.0"}, {71, "0"}, {42, "1.0"}, {3, encoded(font)}, {4, ""}})));
    return *this;
}

TestDrawing& TestDrawing::linetype(const std::string& name)
{
    m_linetypes.push_back(record("LTYPE", "AcDbLinetypeTableRecord", name,
                                 pairsOf({{70, "0"}, {3, ""}, {72, "65"}, {73, "0"}, {40, "0.0"}})));
    return *this;
}

TestDrawing& TestDrawing::application(const std::string& name)
{
    m_applications.push_back(record("APPID", "AcDbRegAppTableRecord", name, pairsOf({{70, "0"}})));
    return *this;
}

TestDrawing& TestDrawing::header(const std::string& variable, const std::string& pairs)
{
    m_header += pairsOf({{9, variable}}) + pairs;
    return *this;
}
