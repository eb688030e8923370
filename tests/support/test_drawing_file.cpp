#include "support/test_drawing.h"

// The file around what a test drawing was given: header, classes, tables, blocks, objects.

namespace
{

constexpr uint64_t kModelSpace = 0x1F;
constexpr uint64_t kPaperSpace = 0x1B;
constexpr uint64_t kRoot = 0xC;
constexpr uint64_t kGroups = 0xD;

void beginSection(TagWriter& out, const std::string& name)
{
    out.text(0, "SECTION");
    out.text(2, name);
}

void endSection(TagWriter& out)
{
    out.text(0, "ENDSEC");
}

void classEntry(TagWriter& out, const std::string& dxfName, const std::string& className, const std::string& module)
{
    out.text(0, "CLASS");
    out.text(1, dxfName);
    out.text(2, className);
    out.text(3, module);
    out.integer(90, 0);
    out.integer(280, 0);
    out.integer(281, 1);
}

std::string versionName(int version)
{
    return "AC" + std::to_string(version);
}

} // namespace

std::string TestDrawing::record(const std::string& kind, const std::string& marker, const std::string& name,
                                const std::string& values) const
{
    TagWriter out;
    out.text(0, kind);
    out.handle(kind == "DIMSTYLE" ? 105 : 5, takeHandle());
    out.text(100, "AcDbSymbolTableRecord");
    out.text(100, marker);
    out.text(2, encoded(name));
    out.raw(values);
    return out.take();
}

std::string TestDrawing::blockRecord(const std::string& name, uint64_t handle) const
{
    TagWriter out;
    out.text(0, "BLOCK_RECORD");
    out.handle(5, handle);
    out.text(100, "AcDbSymbolTableRecord");
    out.text(100, "AcDbBlockTableRecord");
    out.text(2, encoded(name));
    return out.take();
}

void TestDrawing::writeTable(TagWriter& out, const std::string& name, const std::vector<std::string>& records) const
{
    out.text(0, "TABLE");
    out.text(2, name);
    out.handle(5, takeHandle());
    out.text(100, "AcDbSymbolTable");
    out.integer(70, static_cast<int64_t>(records.size()));
    if (name == "DIMSTYLE")
        out.text(100, "AcDbDimStyleTable");
    for (const std::string& text : records)
        out.raw(text);
    out.text(0, "ENDTAB");
}

void TestDrawing::writeTables(TagWriter& out) const
{
    const auto with = [](std::vector<std::string> first, const std::vector<std::string>& rest)
    {
        first.insert(first.end(), rest.begin(), rest.end());
        return first;
    };
    const std::string plainLine = " 70\n0\n  3\n\n 72\n65\n 73\n0\n 40\n0.0\n";
    const auto linetypeRecord = [&](const std::string& name)
    { return record("LTYPE", "AcDbLinetypeTableRecord", name, plainLine); };
    writeTable(out, "VPORT", {});
    writeTable(out, "LTYPE",
               with({linetypeRecord("ByBlock"), linetypeRecord("ByLayer"), linetypeRecord("Continuous")}, m_linetypes));
    writeTable(out, "LAYER",
               with({record("LAYER", "AcDbLayerTableRecord", "0", " 70\n0\n 62\n7\n  6\nContinuous\n")}, m_layers));
    writeTable(out, "STYLE",
               with({record("STYLE", "AcDbTextStyleTableRecord", "Standard",
                            " 70\n0\n 40\n0.0\n 41\n1.0\n 50\n0.0\n 71\n0\n 42\n2.5\n  3\ntxt\n  4\n\n")},
                    m_styles));
    writeTable(out, "VIEW", {});
    writeTable(out, "UCS", {});
    writeTable(out, "APPID", m_applications);
    writeTable(out, "DIMSTYLE", {record("DIMSTYLE", "AcDbDimStyleTableRecord", "Standard", " 70\n0\n")});
    std::vector<std::string> blocks{blockRecord("*Model_Space", kModelSpace), blockRecord("*Paper_Space", kPaperSpace)};
    for (const Block& block : m_blocks)
        blocks.push_back(blockRecord(block.name, block.record));
    writeTable(out, "BLOCK_RECORD", blocks);
}

void TestDrawing::writeBlock(TagWriter& out, const Block& block) const
{
    out.text(0, "BLOCK");
    out.handle(5, takeHandle());
    out.handle(330, block.record);
    out.text(100, "AcDbEntity");
    out.text(8, "0");
    out.text(100, "AcDbBlockBegin");
    out.text(2, encoded(block.name));
    out.integer(70, 0);
    out.point(10, block.base);
    out.text(3, encoded(block.name));
    out.text(1, {});
    for (const Entity& entity : block.entities)
        out.raw(textOf(entity));
    out.text(0, "ENDBLK");
    out.handle(5, takeHandle());
    out.handle(330, block.record);
    out.text(100, "AcDbEntity");
    out.text(8, "0");
    out.text(100, "AcDbBlockEnd");
}

void TestDrawing::writeObjects(TagWriter& out) const
{
    out.text(0, "DICTIONARY");
    out.handle(5, kRoot);
    out.handle(330, 0);
    out.text(100, "AcDbDictionary");
    out.integer(281, 1);
    out.text(3, "ACAD_GROUP");
    out.handle(350, kGroups);
    out.text(0, "DICTIONARY");
    out.handle(5, kGroups);
    out.handle(330, kRoot);
    out.text(100, "AcDbDictionary");
    out.integer(281, 1);
}

std::string TestDrawing::textOf(const Entity& entity) const
{
    return entity.alignment != nullptr ? entity.text + textOf(*entity.alignment) : entity.text;
}

void TestDrawing::writeSection(TagWriter& out, const TestSection& section, const TestDrawing& drawing)
{
    out.text(2, drawing.encoded(section.m_name));
    out.point(10, section.m_a);
    out.point(11, section.m_b);
    out.point(12, section.m_base);
    out.handle(340, section.m_ground);
    out.integer(70, section.m_flags);
    out.integer(91, static_cast<int64_t>(section.m_points.size()));
    for (const uint64_t handle : section.m_points)
        out.handle(330, handle);
    out.integer(92, static_cast<int64_t>(section.m_dcOffsets.size()));
    for (const double offset : section.m_dcOffsets)
        out.real(43, offset);
    out.integer(93, static_cast<int64_t>(section.m_drawn.size()));
    for (const uint64_t handle : section.m_drawn)
        out.handle(331, handle);
}

std::string TestDrawing::textOf(const TestAlignment& alignment) const
{
    TagWriter out;
    out.text(100, "PlxDbAlignment");
    out.text(1, encoded(alignment.m_name));
    out.real(40, alignment.m_scale);
    out.real(41, alignment.m_extent1);
    out.real(42, alignment.m_extent2);
    out.integer(90, static_cast<int64_t>(alignment.m_sections.size()));
    for (const TestSection& section : alignment.m_sections)
        writeSection(out, section, *this);
    return out.take();
}

std::string TestDrawing::dxf() const
{
    const uint64_t firstFree = m_next;
    TagWriter body;
    beginSection(body, "CLASSES");
    classEntry(body, "PLXDBMEASUREPOINTOBJ", "PlxDbMeasurePointObj", "PlxObjects");
    classEntry(body, "PLXDBALIGNMENT", "PlxDbAlignment", "RouteBase");
    endSection(body);
    beginSection(body, "TABLES");
    writeTables(body);
    endSection(body);
    beginSection(body, "BLOCKS");
    writeBlock(body, {"*Model_Space", {}, kModelSpace, {}});
    writeBlock(body, {"*Paper_Space", {}, kPaperSpace, {}});
    for (const Block& block : m_blocks)
        writeBlock(body, block);
    endSection(body);
    beginSection(body, "ENTITIES");
    for (const Entity& entity : m_entities)
        body.raw(textOf(entity));
    endSection(body);
    beginSection(body, "OBJECTS");
    writeObjects(body);
    endSection(body);
    body.text(0, "EOF");

    TagWriter out;
    beginSection(out, "HEADER");
    out.raw("  9\n$ACADVER\n  1\n" + versionName(m_version) + "\n  9\n$DWGCODEPAGE\n  3\n" + m_codePage + "\n");
    out.text(9, "$HANDSEED");
    out.handle(5, m_next);
    m_next = firstFree;
    out.raw(m_header);
    endSection(out);
    out.raw(body.view());
    return out.take();
}
