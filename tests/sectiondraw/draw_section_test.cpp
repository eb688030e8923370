#include "host/db/entity/polyline.h"
#include "section_desk.h"
#include "sectiondraw/ground_line.h"
#include "store/text/text.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace
{

/// A drawing with one section, five drawing units to a unit of offset, and ground at height 63.2 over it all.
struct OneSection
{
    TestDrawing drawing;
    TestSection& section;

    OneSection() : section(drawing.alignment("T1").scale(200).section("C1", {0, 20}, {0, -20}))
    {
        section.base({100, 50, 0}).ground({{-20, 13.2}, {20, 13.2}});
    }
};

class DrawnSection : public SectionDesk
{
protected:
    /// A feature at offsets -3 and 2, with the scales 2 and 3.
    static void giveTwoCrossings(OneSection& one)
    {
        one.drawing.feature("MUONG", {{-5, 3}, {5, 3}, {5, -2}, {-5, -2}});
    }
};

} // namespace

TEST_F(DrawnSection, SymbolAndLabelStandOnTheGroundAtTheOffset)
{
    OneSection one;
    one.drawing.layer("DV").feature("CAY", {{-5, -2}, {5, -2}});
    useLayers(u"DV", u"", u"KH", u"");
    dss(one.drawing);
    BlockData& row = section(0).m_listBlockData2[0];
    row.m_strFile = symbolFile("Cay.dxf");
    row.m_dScaleX = 2;
    row.m_dScaleY = 3;
    row.m_dRotation = 0.5;
    g_DatabaseCS.m_nColorSymbolText = 7;
    click(kDraw);

    EXPECT_THAT(drawnOn(0),
                ElementsAre("block Cay (110,63.2) x2,3,1 r0.5 on KH", "line (110,63.2) (110,65.2) on DV colour 7",
                            "line (109.8,63.4) (110,63.2) (110.2,63.4) on DV colour 7",
                            "text CAY (110,65.3) h0.4 on DV colour 7"));
    EXPECT_EQ(record(0).flags, 0x02);
    EXPECT_EQ(record(0).drawnIds, section(0).m_arrDrawnIds);
}

TEST_F(DrawnSection, TwoCrossingsGiveTheBlocksFirstThenTheLabels)
{
    OneSection one;
    giveTwoCrossings(one);
    useLayers(u"", u"", u"", u"");
    dss(one.drawing);
    section(0).m_listBlockData2[0].m_strFile = symbolFile("Muong.dxf");
    click(kDraw);

    EXPECT_THAT(drawnOn(0), ElementsAre("block Muong (85,63.2) x1,1,1 r0", "block Muong (110,63.2) x1,1,1 r0",
                                        "line (85,63.2) (85,65.2)", "line (84.8,63.4) (85,63.2) (85.2,63.4)",
                                        "text MUONG (85,65.3) h0.4", "line (110,63.2) (110,65.2)",
                                        "line (109.8,63.4) (110,63.2) (110.2,63.4)", "text MUONG (110,65.3) h0.4"));
}

TEST_F(DrawnSection, CodesAreLabelledAndDcPointsMarked)
{
    OneSection one;
    one.section.point("dc2", {0, -4, 1}).point("DC3", {0, 6, 2.5});
    useLayers(u"", u"MA", u"", u"KHMA");
    dss(one.drawing);
    for (ListBlockFcode* rows : {&section(0).m_listBlockFcode1, &section(0).m_listBlockFcode2})
        for (BlockFcode& row : *rows)
            row.m_strFile = symbolFile("Moc.dxf");
    g_DatabaseCS.m_dDeltaY = 0.001;
    click(kDraw);

    const std::string mark = " [1001 PLX_GEOPOINT] [1002 {] [1000 dc2] [1002 }]";
    EXPECT_THAT(drawnOn(0),
                ElementsAre("block Moc (120,63.2) x1,1,1 r0 on KHMA", "text dc2 (120,63.2) h0.4 on MA" + mark,
                            "block Moc (70,63.2) x1,1,1 r0 on KHMA", "text DC3 (70,63.2) h0.4 on MA",
                            "block Moc (0,-4,1) x1,1,1 r0 on KHMA", "block Moc (0,6,2.5) x1,1,1 r0 on KHMA"));

    g_DatabaseCS.m_dDeltaY = 2;
    click(kDraw);
    EXPECT_THAT(drawnOn(0), AllOf(Contains("line (120,63.2) (120,65.2) on MA" + mark),
                                  Contains("line (119.8,63.4) (120,63.2) (120.2,63.4) on MA" + mark)));
}

TEST_F(DrawnSection, OptionsThatAreNotOneAreOff)
{
    OneSection one;
    one.drawing.feature("CAY", {{-5, -2}, {5, -2}});
    one.section.point("COT", {0, 6, 0});
    dss(one.drawing);
    section(0).m_listBlockData2[0].m_strFile = symbolFile("Cay.dxf");
    section(0).m_listBlockFcode1[0].m_strFile = symbolFile("Cot.dxf");
    click(kDraw);
    EXPECT_THAT(drawnOn(0), ElementsAre("block Cay (110,63.2) x1,1,1 r0")) << "no settings were read";

    useLayers(u"", u"", u"", u"");
    g_DatabaseCS.m_arrDrawFlags = {2, 0, 0, 1};
    click(kDraw);
    EXPECT_THAT(drawnOn(0), ElementsAre("block Cot (70,63.2) x1,1,1 r0"));
}

TEST_F(DrawnSection, LayerOfNameLabelsIsNotMadeTheOthersAre)
{
    OneSection one;
    giveTwoCrossings(one);
    one.section.point("COT", {0, 6, 0});
    useLayers(u"KHONG", u"MA", u"KH", u"KHMA");
    dss(one.drawing);
    click(kDraw);

    EXPECT_THAT(drawnOn(0), AllOf(Contains("text MUONG (85,65.3) h0.4"), Contains("text COT (70,65.3) h0.4 on MA")));
    const std::string saved = session.saved();
    EXPECT_THAT(saved, AllOf(HasSubstr("\nKH\n"), HasSubstr("\nKHMA\n"), Not(HasSubstr("\nKHONG\n"))));
}

TEST_F(DrawnSection, RowsWithoutUsableSymbolOrGroundAreLeftOut)
{
    OneSection one;
    one.section.ground({{-10, 13.2}, {2, 13.2}, {2.5, -1}, {20, -1}});
    one.drawing.feature("HONG", {{-5, -1}, {5, -1}}); // its symbol is garbage
    one.drawing.feature("CAY", {{-5, 1}, {5, 1}});
    one.drawing.feature("RAO", {{-5, 8}, {5, 8}, {5, -9}, {-5, -9}}); // where the ground lies below the datum
    one.section.point("COT", {0, -9, 0});
    useLayers(u"", u"", u"", u"");
    dss(one.drawing);
    session.folder().write("hong.dxf", "no drawing");
    section(0).m_listBlockData2[0].m_strFile = session.folder().modulePath("hong.dxf");
    section(0).m_listBlockFcode1[0].m_strFile = symbolFile("Cot.dxf");
    g_DatabaseCS.m_dDeltaY = 0;
    click(kDraw);

    EXPECT_THAT(drawnOn(0), ElementsAre("text CAY (95,63.2) h0.4", "text RAO (60,63.2) h0.4"));
}

TEST_F(DrawnSection, WithoutGroundLineOnlyThePlanIsDrawn)
{
    OneSection one;
    one.section.groundHandle(0xDEAD).point("COT", {3, 6, 1});
    giveTwoCrossings(one);
    useLayers(u"", u"", u"", u"");
    dss(one.drawing);
    section(0).m_listBlockFcode1[0].m_strFile = symbolFile("Cot.dxf");
    section(0).m_listBlockFcode2[0].m_strFile = symbolFile("Cot.dxf");
    click(kDraw);

    EXPECT_THAT(drawnOn(0), ElementsAre("block Cot (3,6,1) x1,1,1 r0"));
}

TEST_F(DrawnSection, SymbolFileIsReadOnceAndNotAgainWhenTheBlockIsThere)
{
    OneSection one;
    giveTwoCrossings(one);
    dss(one.drawing);
    section(0).m_listBlockData2[0].m_strFile = symbolFile("Muong.dxf");
    click(kDraw);
    session.folder().write("Muong.dxf", "no drawing any more");
    click(kDraw);

    EXPECT_EQ(drawnOn(0).size(), 2U);
    EXPECT_TRUE(session.session().unreadableFiles().empty());
}

TEST_F(DrawnSection, FileThatCannotBeReadGetsTheBlockThatAnotherOfItsNameBecame)
{
    OneSection one;
    for (const char* code : {"A", "B", "A"})
        one.drawing.feature(code, {{-5, 3}, {5, 3}});
    useLayers(u"", u"", u"", u"");
    g_DatabaseCS.m_arrDrawFlags[kSymbolText] = 0;
    dss(one.drawing);
    ListBlockData& rows = section(0).m_listBlockData2;
    rows[0].m_strFile = rows[2].m_strFile = u"C:\\nowhere\\Cay.dxf";
    rows[1].m_strFile = symbolFile("Cay.dxf");
    click(kDraw);

    EXPECT_THAT(drawnOn(0), testing::SizeIs(2));
}

TEST_F(DrawnSection, WhatTheDrawingRefusesIsRememberedAsNull)
{
    OneSection one;
    giveTwoCrossings(one);
    useLayers(u"", u"", u"", u"");
    dss(one.drawing);
    session.faults.noAppend = true;
    click(kDraw);
    EXPECT_THAT(drawnOn(0), AllOf(testing::SizeIs(6), Each("null")));

    session.faults.noAppend = false;
    click(kUndo);
    EXPECT_THAT(drawnOn(0), IsEmpty());
}

TEST_F(DrawnSection, LabelsAreInTheFormOfTheFontWhetherTheScratchFileCanBeMadeOrNot)
{
    OneSection one;
    one.section.point("C\u00c2Y \u1ea1", {0, -4, 0}).point("COT", {0, -2, 0});
    useLayers(u"", u"", u"", u"");
    g_DatabaseCS.m_dDeltaY = 0;
    dss(one.drawing);
    click(kDraw);
    EXPECT_THAT(drawnOn(0), ElementsAre("text C\u00a2Y \u00b9 (120,63.2) h0.4", "text COT (110,63.2) h0.4"));
    EXPECT_EQ(session.folder().read("settings/temp.temp"), "COT\n");

    session.faults.failingWrites[(session.folder().path() / "settings/temp.temp").string()] = 0;
    click(kDraw);
    EXPECT_THAT(drawnOn(0), ElementsAre("text C\u00a2Y \u00b9 (120,63.2) h0.4", "text COT (110,63.2) h0.4"));
}

TEST_F(DrawnSection, GroundIsLookedForUpwardsAndNotTooFar)
{
    OneSection one;
    one.section.ground({{-20, 1000}, {0, 1000}, {0, 1000.5}, {4, 1000.5}, {4, 3}, {6, 3}, {6, 9}, {4, 9}});
    dss(one.drawing);

    GroundLine ground(section(0));
    EXPECT_DOUBLE_EQ(ground.FindGroundPoint(-1).value().y, 1050);
    EXPECT_FALSE(ground.FindGroundPoint(2));
    EXPECT_DOUBLE_EQ(ground.FindGroundPoint(5).value().y, 53) << "the first along the ground line";
    EXPECT_FALSE(ground.FindGroundPoint(7));
}
