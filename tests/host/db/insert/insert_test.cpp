#include "host/db/entity/block_reference.h"
#include "host/db/table/symbol_tables.h"
#include "store/block_index.h"
#include "support/cases.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <sstream>

using testing::HasSubstr;
using testing::Not;

namespace
{

/// A working drawing and the inserting of symbol drawings into it.
class Insert : public testing::Test
{
protected:
    explicit Insert(int version = 1015) : m_version{version} {}

    void SetUp() override { m_session.open(TestDrawing{m_version}.dxf()); }

    Acad::ErrorStatus insert(const std::string& symbol, const char16_t* name = u"Symbol")
    {
        const TestLock lock;
        m_session.folder().write("symbol.dxf", symbol);
        AcDbDatabase source{false};
        EXPECT_EQ(source.readDwgFile(m_session.folder().modulePath("symbol.dxf").c_str()), Acad::eOk)
            << (m_session.session().unreadableFiles().empty() ? ""
                                                              : m_session.session().unreadableFiles().back().reason);
        return drawing().insert(m_block, name, &source);
    }
    AcDbDatabase& drawing() { return m_session.drawing(); }
    /// The text of what was added to the drawing.
    std::string saved() { return m_session.saved(); }
    /// Names of the kinds in a block.
    std::vector<std::string> kindsIn(std::u16string_view block)
    {
        std::vector<std::string> kinds;
        const ObjectRecord* record = drawing().blocks().record(block);
        if (record == nullptr)
            return {"no such block"};
        for (const AcDbObjectId id : drawing().blocks().entities(*record))
            kinds.emplace_back(drawing().dxfNameOf(*id.record()));
        return kinds;
    }

    TestSession m_session;
    AcDbObjectId m_block;
    int m_version;
};

/// A drawing of the entities of a case: words like 62=3 after the kind of each.
std::string drawingOf(const std::string& version, const std::vector<std::string>& words)
{
    std::string text = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC" + version + "\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
    for (const std::string& word : words)
        for (const std::string& line : pairsOf(std::array{word.find('=') == word.npos ? "0=" + word : word}))
            text += line + "\n";
    return text + "0\nENDSEC\n0\nEOF\n";
}

/// The contents of the block "Symbol" of a drawing's text, written as in the cases; handles and owners left out.
std::string contentsOf(const std::string& file)
{
    std::istringstream lines(file.substr(std::min(file.find("AcDbBlockBegin\n  2\nSymbol\n"), file.size())));
    std::string contents;
    std::string value;
    std::getline(lines, value);
    bool within = false;
    for (std::string code; std::getline(lines, code) && std::getline(lines, value);)
    {
        code.erase(0, code.find_first_not_of(' '));
        if (code == "0" && value == "ENDBLK")
            break;
        within = within || code == "0";
        if (within && code != "5" && code != "330")
            contents += (contents.empty() ? "" : " ") + (code == "0" ? value : code + "=" + value);
    }
    return contents;
}

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

/// A drawing of R12 as old programs write it: no handles, no class markers, no tables.
std::string oldDrawing(const std::string& entities, const std::string& blocks = {})
{
    return "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n9\n$INSBASE\n10\n1.5\n20\n2.5\n30\n0.0\n0\nENDSEC\n" +
           (blocks.empty() ? "" : "0\nSECTION\n2\nBLOCKS\n" + blocks + "0\nENDSEC\n") + "0\nSECTION\n2\nENTITIES\n" +
           entities + "0\nENDSEC\n0\nEOF\n";
}

} // namespace

TEST_F(Insert, EntitiesBecomeWhatTheCasesSay)
{
    const std::vector<Case> cases = readCases("inserts.txt");
    EXPECT_GT(cases.size(), 20U);
    for (const Case& each : cases)
    {
        SCOPED_TRACE(each.name);
        m_session.open(TestDrawing{std::stoi(each.fields.at(0).at(0))}.dxf());
        const std::string before = saved();
        const Acad::ErrorStatus status = insert(drawingOf(each.fields[0].at(1), each.fields.at(1)));
        if (const std::string expected = joined(each.fields.at(2)); expected != "refused")
        {
            EXPECT_EQ(status, Acad::eOk);
            EXPECT_EQ(contentsOf(saved()), expected);
            continue;
        }
        EXPECT_EQ(status, Acad::eFilerError);
        EXPECT_EQ(saved(), before);
    }
}

TEST_F(Insert, OldDrawingBecomesABlockOfToday)
{
    ASSERT_EQ(insert(oldDrawing("0\nLINE\n8\nTREES\n62\n3\n10\n0\n20\n0\n11\n1\n21\n1\n"
                                "0\nARC\n8\n0\n10\n0\n20\n0\n40\n1\n50\n0\n51\n90\n"
                                "0\nPOLYLINE\n8\n0\n66\n1\n70\n1\n0\nVERTEX\n8\n0\n10\n0\n20\n0\n42\n1\n"
                                "0\nVERTEX\n8\n0\n10\n1\n20\n0\n0\nSEQEND\n8\n0\n"
                                "0\nVIEWPORT\n8\n0\n10\n0\n20\n0\n")),
              Acad::eOk);

    EXPECT_THAT(kindsIn(u"Symbol"), testing::ElementsAre("LINE", "ARC", "POLYLINE"));
    const AcDbObjectPointer<AcDbBlockTableRecord> block{m_block};
    ASSERT_TRUE(block);
    EXPECT_TRUE(block->origin().isEqualTo({1.5, 2.5, 0.0}));
    const AcDbObjectPointer<AcDbEntity> line{block->entityIds()[0]};
    ASSERT_TRUE(line);
    EXPECT_EQ(line->layer(), u"TREES");
    EXPECT_EQ(line->colorIndex(), 3);
    EXPECT_FALSE(line->layerId().isNull());
    const AcDbObjectPointer<AcDbEntity> loop{block->entityIds()[2]};
    ASSERT_EQ(loop->curves().size(), 1U);
    EXPECT_TRUE(loop->curves()[0].hasArcs());
}

TEST_F(Insert, SlantedStylesStaySlanted)
{
    const std::string styles = "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nSTYLE\n70\n1\n0\nSTYLE\n2\nSLANT\n70\n0\n40\n0.0\n"
                               "41\n1.0\n50\n15.0\n71\n0\n42\n1.0\n3\ntxt\n4\n\n0\nENDTAB\n0\nENDSEC\n";
    std::string symbol = oldDrawing("0\nTEXT\n8\n0\n10\n0.0\n20\n0.0\n40\n1.0\n1\nA\n7\nSLANT\n");
    symbol.insert(symbol.find("0\nSECTION\n2\nENTITIES"), styles);
    ASSERT_EQ(insert(symbol), Acad::eOk);

    EXPECT_THAT(saved(), HasSubstr("  2\nSLANT\n 70\n0\n 40\n0.0\n 41\n1.0\n 50\n15.0\n"));
}

TEST_F(Insert, NestedBlocksComeAlongAndKnownOnesAreKept)
{
    TestDrawing symbol{1032};
    symbol.beginBlock("Leaf", {1, 0, 0}).line({0, 0, 0}, {1, 0, 0});
    symbol.endBlock().beginBlock("Branch").insert("Leaf", {0, 0, 0});
    symbol.endBlock().beginBlock("Unused").line({0, 0, 0}, {1, 0, 0});
    symbol.endBlock().insert("Branch", {0, 0, 0});
    symbol.insert("Nowhere", {0, 0, 0});
    ASSERT_EQ(insert(symbol.dxf()), Acad::eOk);

    EXPECT_THAT(kindsIn(u"Symbol"), testing::ElementsAre("INSERT"));
    EXPECT_THAT(kindsIn(u"branch"), testing::ElementsAre("INSERT"));
    EXPECT_THAT(kindsIn(u"LEAF"), testing::ElementsAre("LINE"));
    EXPECT_THAT(kindsIn(u"Unused"), testing::ElementsAre("no such block"));
    const std::string file = saved();
    const auto placeOf = [&file](const std::string& name) { return file.find("100\nAcDbBlockBegin\n  2\n" + name); };
    EXPECT_LT(placeOf("Leaf"), placeOf("Branch")) << "a block stands before the ones that use it";
    EXPECT_LT(placeOf("Branch"), placeOf("Symbol"));

    TestDrawing other{1032};
    other.beginBlock("LEAF").point("X", {0, 0, 0});
    other.endBlock().insert("leaf", {0, 0, 0});
    ASSERT_EQ(insert(other.dxf(), u"Other"), Acad::eOk);
    EXPECT_THAT(kindsIn(u"Leaf"), testing::ElementsAre("LINE"));
}

TEST_F(Insert, WhatEntitiesNameComesAlong)
{
    TestDrawing symbol{1027};
    symbol.linetype("DASHED").layer("Cây", 4, 30, "DASHED").style("Chữ", "Vnsimple.shx");
    symbol.onLayer("Cây").entity("TEXT", "100\nAcDbText\n 10\n0.0\n 20\n0.0\n 40\n1.0\n  1\nĐá ơi\n  7\nChữ\n"
                                         "100\nAcDbText\n1001\nNEW_APP\n1000\nhỏi\n1005\n1F\n");
    ASSERT_EQ(insert(symbol.dxf()), Acad::eOk);

    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(drawing().getSymbolTable(layers), Acad::eOk);
    AcDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(layers->getAt(u"CÂY", layer, AcDb::kForRead), Acad::eOk);
    layers->close();
    EXPECT_TRUE(layer->isLocked());
    EXPECT_EQ(layer->color().colorIndex(), 30);
    EXPECT_FALSE(layer->linetypeObjectId().isNull());
    layer->close();

    const std::string file = saved();
    EXPECT_THAT(file, HasSubstr("  2\nDASHED\n"));
    EXPECT_THAT(file, HasSubstr("  3\nVnsimple.shx\n"));
    EXPECT_THAT(file, HasSubstr("  2\nNEW_APP\n"));
    EXPECT_THAT(file, HasSubstr("1005\n0\n"));
    EXPECT_THAT(file, Not(HasSubstr("Đá ơi"))) << "a drawing of R2000 is not written in UTF-8";
}

TEST_F(Insert, ReferencesKeepTheirAttributes)
{
    TestDrawing symbol{1015};
    symbol.beginBlock("Tag").line({0, 0, 0}, {1, 0, 0});
    symbol.endBlock();
    symbol.entity("INSERT", " 66\n1\n100\nAcDbBlockReference\n  2\nTag\n 10\n0.0\n 20\n0.0\n");
    symbol.entity("ATTRIB",
                  "100\nAcDbText\n 10\n0.0\n 20\n0.0\n 40\n1.0\n  1\n12\n100\nAcDbAttribute\n  2\nNO\n 70\n0\n");
    symbol.entity("SEQEND", "");
    symbol.line({0, 0, 0}, {1, 1, 0});
    ASSERT_EQ(insert(symbol.dxf()), Acad::eOk);

    EXPECT_THAT(kindsIn(u"Symbol"), testing::ElementsAre("INSERT", "LINE"));
    EXPECT_THAT(saved(), HasSubstr("100\nAcDbAttribute\n  2\nNO\n"));
}

TEST_F(Insert, CirclesAndNamesThatAreTakenAreRefusedAndLeaveNoTrace)
{
    const std::string before = saved();
    TestDrawing circle{1015};
    circle.beginBlock("A").insert("B", {0, 0, 0});
    circle.endBlock().beginBlock("B").insert("A", {0, 0, 0});
    circle.endBlock().insert("A", {0, 0, 0});
    EXPECT_EQ(insert(circle.dxf()), Acad::eSelfReference);
    EXPECT_EQ(insert(circle.dxf(), u""), Acad::eInvalidInput);
    EXPECT_EQ(insert(circle.dxf(), u"a|b"), Acad::eInvalidInput);

    TestDrawing itself{1015};
    itself.beginBlock("Symbol").line({0, 0, 0}, {1, 0, 0});
    itself.endBlock().insert("Symbol", {0, 0, 0});
    EXPECT_EQ(insert(itself.dxf()), Acad::eSelfReference);
    EXPECT_EQ(saved(), before);

    ASSERT_EQ(insert(oldDrawing({})), Acad::eOk);
    EXPECT_EQ(insert(oldDrawing({}), u"SYMBOL"), Acad::eDuplicateRecordName);
}

TEST_F(Insert, DepthOfNestingDoesNotMatter)
{
    constexpr int kDepth = 10'000;
    TestDrawing symbol{1021};
    symbol.beginBlock("B0").line({0, 0, 0}, {1, 0, 0});
    for (int i = 1; i < kDepth; ++i)
        symbol.endBlock().beginBlock("B" + std::to_string(i)).insert("B" + std::to_string(i - 1), {0, 0, 0});
    symbol.endBlock().insert("B" + std::to_string(kDepth - 1), {0, 0, 0});
    ASSERT_EQ(insert(symbol.dxf()), Acad::eOk);
    EXPECT_THAT(kindsIn(u"B0"), testing::ElementsAre("LINE"));
}
