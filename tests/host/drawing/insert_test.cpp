#include "host/drawing/block_index.h"
#include "host/drawing/block_reference.h"
#include "host/drawing/symbol_tables.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

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

/// A drawing of R12 as old programs write it: no handles, no class markers, no tables.
std::string oldDrawing(const std::string& entities, const std::string& blocks = {})
{
    return "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n9\n$INSBASE\n10\n1.5\n20\n2.5\n30\n0.0\n0\nENDSEC\n" +
           (blocks.empty() ? "" : "0\nSECTION\n2\nBLOCKS\n" + blocks + "0\nENDSEC\n") + "0\nSECTION\n2\nENTITIES\n" +
           entities + "0\nENDSEC\n0\nEOF\n";
}

} // namespace

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

    const std::string file = saved();
    EXPECT_THAT(file, HasSubstr("100\nAcDbCircle\n"));
    EXPECT_THAT(file, HasSubstr("100\nAcDbArc\n 50\n0\n 51\n90\n"));
    EXPECT_THAT(file, HasSubstr("100\nAcDb2dVertex\n"));
}

TEST_F(Insert, SlantedTextsStaySlanted)
{
    const std::string styles = "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nSTYLE\n70\n1\n0\nSTYLE\n2\nSLANT\n70\n0\n40\n0.0\n"
                               "41\n1.0\n50\n15.0\n71\n0\n42\n1.0\n3\ntxt\n4\n\n0\nENDTAB\n0\nENDSEC\n";
    std::string symbol = oldDrawing("0\nTEXT\n8\n0\n10\n0.0\n20\n0.0\n40\n1.0\n1\nA\n51\n12.0\n7\nSLANT\n73\n1\n");
    symbol.insert(symbol.find("0\nSECTION\n2\nENTITIES"), styles);
    ASSERT_EQ(insert(symbol), Acad::eOk);

    const std::string file = saved();
    EXPECT_THAT(file, HasSubstr("  2\nSLANT\n 70\n0\n 40\n0.0\n 41\n1.0\n 50\n15.0\n"));
    EXPECT_THAT(file, HasSubstr("  1\nA\n 51\n12.0\n  7\nSLANT\n100\nAcDbText\n 73\n1\n"));
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

TEST_F(Insert, WhatAnOlderDrawingCannotHoldStaysBehind)
{
    TestDrawing symbol{1032};
    symbol.entity("LINE", "420\n255\n102\n{ACAD_REACTORS\n330\nAA\n102\n}\n347\nAB\n100\nAcDbLine\n 10\n0.0\n 20\n0.0\n"
                          " 11\n1.0\n 21\n1.0\n");
    symbol.entity("HATCH", "100\nAcDbHatch\n 10\n0.0\n 20\n0.0\n 30\n0.0\n210\n0.0\n220\n0.0\n230\n1.0\n  2\nSOLID\n"
                           " 70\n1\n 71\n1\n 91\n1\n 92\n3\n 72\n0\n 73\n1\n 93\n3\n 10\n0.0\n 20\n0.0\n 10\n1.0\n"
                           " 20\n0.0\n 10\n0.0\n 20\n1.0\n 97\n1\n330\nBEEF\n 75\n1\n 76\n1\n 98\n0\n450\n1\n460\n0.5\n"
                           "470\nLINEAR\n");
    symbol.entity("LWPOLYLINE", "100\nAcDbPolyline\n 90\n2\n 70\n0\n 10\n0.0\n 20\n0.0\n 91\n71\n 10\n1.0\n 20\n0.0\n"
                                " 91\n72\n");
    symbol.entity("IMAGE", "100\nAcDbRasterImage\n340\nABBA\n");
    ASSERT_EQ(insert(symbol.dxf()), Acad::eOk);

    EXPECT_THAT(kindsIn(u"Symbol"), testing::ElementsAre("LINE", "HATCH", "LWPOLYLINE"));
    const std::string file = saved();
    for (const char* left : {"420\n255", "ACAD_REACTORS", "347\n", "BEEF", "LINEAR", " 71\n1\n", " 91\n7"})
        EXPECT_THAT(file.substr(file.find("AcDbBlockBegin")), Not(HasSubstr(left)));
    EXPECT_THAT(file, HasSubstr(" 97\n0\n"));
}

TEST_F(Insert, ADirectionWithoutLengthStandsUpright)
{
    TestDrawing symbol{1015};
    symbol.entity("CIRCLE", "100\nAcDbCircle\n 10\n1.0\n999\nbetween\n 20\n2.0\n 30\n0.0\n 40\n3.0\n"
                            "210\n0.0\n220\n0.0\n230\n0.0\n");
    ASSERT_EQ(insert(symbol.dxf()), Acad::eOk);

    EXPECT_THAT(kindsIn(u"Symbol"), testing::ElementsAre("CIRCLE"));
    EXPECT_THAT(saved(), HasSubstr("210\n0.0\n220\n0.0\n230\n1.0\n"));
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

TEST_F(Insert, NamesThatNothingCanHaveStayBehind)
{
    ASSERT_EQ(insert(oldDrawing("0\nPOINT\n8\n*bad\n6\n\n10\n0.0\n20\n0.0\n")), Acad::eOk);
    EXPECT_THAT(saved(), testing::AllOf(Not(HasSubstr("*bad")), Not(HasSubstr("  6\n\n"))));
}

TEST_F(Insert, DamagedEntitiesStayOutOfTheDrawing)
{
    const std::string before = saved();
    EXPECT_EQ(insert(oldDrawing("0\nLINE\n8\n0\n10\n0.0\n20\n0.0\n11\n5.0\n31\n0.0\n")), Acad::eFilerError);
    EXPECT_EQ(insert(oldDrawing("0\nPOLYLINE\n8\n0\n66\n1\n70\n0\n0\nVERTEX\n8\n0\n10\n1.0\n0\nSEQEND\n")),
              Acad::eFilerError);
    const std::string line = " 72\n1\n 10\n0.0\n 20\n0.0\n 11\n1.0\n 21\n0.0\n";
    const auto hatch = [](const std::string& edges)
    {
        TestDrawing symbol{1015};
        symbol.entity("HATCH",
                      "100\nAcDbHatch\n 10\n0.0\n 20\n0.0\n 30\n0.0\n  2\nSOLID\n 70\n1\n 71\n0\n 91\n1\n 92\n1\n"
                      " 93\n2\n" +
                          edges + " 97\n0\n 75\n1\n 76\n1\n 98\n0\n");
        return symbol.dxf();
    };
    EXPECT_EQ(insert(hatch(line)), Acad::eFilerError) << "an edge is missing";
    EXPECT_EQ(insert(hatch(line + " 72\n0\n")), Acad::eFilerError) << "an edge of no kind";
    TestDrawing nested{1015};
    nested.beginBlock("Inner").entity("HATCH", "100\nAcDbHatch\n  2\nSOLID\n");
    nested.endBlock().insert("Inner", {0, 0, 0});
    EXPECT_EQ(insert(nested.dxf()), Acad::eFilerError);
    EXPECT_EQ(saved(), before);
    EXPECT_EQ(insert(hatch(line + line)), Acad::eOk);
}

/// Spline edges with fit data and without, the loop's count behind them or the next edge.
TEST_F(Insert, SplineEdgesOfHatchesGetTheFormOfTheDrawingsVersion)
{
    const std::string head = "100\nAcDbHatch\n 10\n0.0\n 20\n0.0\n 30\n0.0\n  2\nSOLID\n 70\n1\n 71\n0\n 91\n2\n";
    const std::string spline =
        " 72\n4\n 94\n1\n 73\n0\n 74\n0\n 95\n4\n 96\n2\n 40\n0.0\n 40\n0.0\n 40\n1.0\n 40\n1.0\n"
        " 10\n0.0\n 20\n0.0\n 10\n1.0\n 20\n1.0\n";
    const std::string fit = " 97\n2\n 11\n0.0\n 21\n0.0\n 11\n1.0\n 21\n1.0\n 12\n1.0\n 22\n1.0\n 13\n1.0\n 23\n1.0\n";
    const std::string line = " 72\n1\n 10\n1.0\n 20\n1.0\n 11\n0.0\n 21\n0.0\n";
    const std::string none = " 97\n0\n";
    const std::string tail = " 75\n1\n 76\n1\n 98\n0\n";
    const auto loops = [&](const std::string& one, const std::string& other)
    {
        const std::string sources = none;
        return head + " 92\n1\n 93\n2\n" + spline + one + line + sources + " 92\n1\n 93\n2\n" + line + spline + other +
               sources + tail;
    };
    const auto hatch = [](int version, const std::string& pairs)
    {
        TestDrawing symbol{version};
        symbol.entity("HATCH", pairs);
        return symbol.dxf();
    };
    for (const int target : {1015, 1032})
    {
        m_session.open(TestDrawing{target}.dxf());
        EXPECT_EQ(insert(hatch(1032, loops(fit, none)), u"Fit"), Acad::eOk);
        EXPECT_EQ(insert(hatch(1015, loops({}, {})), u"Old"), Acad::eOk);
        const std::string file = saved();
        EXPECT_THAT(file, HasSubstr(target == 1032 ? loops(fit, none) : loops({}, {})));
        EXPECT_THAT(file, HasSubstr(target == 1032 ? loops(none, none) : loops({}, {})));
    }
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
