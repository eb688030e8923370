#include "sections/refresh.h"

#include "host/db/database.h"
#include "host/db/entity/block_reference.h"
#include "host/ed/command.h"
#include "sections/database_cs.h"
#include "sections/scan.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

class Refresh : public testing::Test
{
protected:
    /// A section square to the x axis, end A above it, 20 to each side when not said otherwise.
    void open(double extent1 = 20, double extent2 = 20)
    {
        drawing.alignment("T1").extents(extent1, extent2).section("C1", {0, 20}, {0, -20});
        session.open(drawing.dxf());
        ScanCrossSections(tree);
        acedCommandS({u"Zoom", u"e"});
    }
    CrossSectionXdata& section() { return tree.m_listReferenceLines[0].m_listCrossSections[0]; }
    std::vector<std::string> rows()
    {
        std::vector<std::string> lines;
        for (const BlockData& row : section().m_listBlockData1)
            lines.push_back(toUtf8(row.m_strName) + " " + std::to_string(static_cast<int>(row.m_dOffset1)));
        return lines;
    }

    TestSession session;
    TestDrawing drawing;
    DatabaseCS tree;
};

} // namespace

TEST_F(Refresh, CodedObjectsInTheBandBecomeRowsInTheDrawingsOrder)
{
    drawing.beginBlock("TREE").line({0, 0, 0}, {0, 1, 0});
    drawing.endBlock();
    drawing.point("TOWARDS A", {2, 3, 50});
    drawing.insert("TREE", {-2, -7, 0}, "CAY");
    drawing.insert("TREE", {0, 5, 0});
    drawing.point("", {0, 6, 0});
    drawing.feature("LINE", {{-1, 8}, {1, 8}});
    drawing.point("AT M", {3, 0, 0});
    drawing.point("AHEAD", {-4.9, -1, 0});
    drawing.point("BEHIND", {1.9, -2, 0});
    drawing.point("TOO FAR AHEAD", {-5.1, -1, 0});
    drawing.point("TOO FAR BEHIND", {3.1, -2, 0});
    drawing.point("BEYOND", {0, 20.5, 0});
    open();

    RefreshSection(section(), 5, 3, {{}, 2, 3, 0.5});

    EXPECT_THAT(rows(), ElementsAre("TOWARDS A -3", "CAY 7", "AHEAD 1", "BEHIND 2"));
    const BlockData& first = section().m_listBlockData1[0];
    EXPECT_EQ(first.m_dScaleX, 2);
    EXPECT_EQ(first.m_dScaleY, 3);
    EXPECT_EQ(first.m_dRotation, 0.5);
    EXPECT_EQ(first.m_dOffset2, 0);
    EXPECT_TRUE(first.m_strFile.empty());
}

TEST_F(Refresh, ABandOfUnequalHalvesEndsAheadWhereItsSecondHalfDoes)
{
    drawing.point("BEHIND, FAR", {2, 30, 0});
    drawing.point("AHEAD, FAR", {-4, 15, 0});
    drawing.point("AHEAD, NEAR", {-4, 9, 0});
    drawing.point("BEYOND B", {0, -11, 0});
    open(40, 10);

    RefreshSection(section(), 5, 3, {});

    EXPECT_THAT(rows(), ElementsAre("BEHIND, FAR -30", "AHEAD, NEAR -9"));
}

TEST_F(Refresh, WhatIsFarAheadCountsAsLongAsTheProbeReachesIt)
{
    drawing.point("NEARER", {-900, 5, 0});
    drawing.point("FARTHER", {-1100, 5, 0});
    open();
    RefreshSection(section(), 2000, 5, {});
    EXPECT_THAT(rows(), ElementsAre("NEARER -5"));
}

TEST_F(Refresh, RowsOfObjectsThatAreStillThereStayAsTheyAre)
{
    const uint64_t kept = drawing.point("KEPT", {0, 3, 0});
    drawing.point("GONE", {4, 3, 0});
    open();
    RefreshSection(section(), 5, 5, {});
    ASSERT_THAT(rows(), ElementsAre("KEPT -3", "GONE -3"));
    BlockData& row = section().m_listBlockData1[0];
    row.m_strFile = u"C:\\Cay.dwg";
    row.m_dScaleX = 7;
    row.m_dOffset1 = -11;
    row.m_strName = u"RENAMED";

    RefreshSection(section(), 3, 3, {});

    ASSERT_THAT(rows(), ElementsAre("RENAMED -11"));
    EXPECT_EQ(section().m_listBlockData1[0].m_strFile, u"C:\\Cay.dwg");
    EXPECT_EQ(section().m_listBlockData1[0].m_dScaleX, 7);
    EXPECT_EQ(section().m_listBlockData1[0].m_idBlock.handle().value(), kept);

    section().m_listBlockData1[0].m_dOffset1 = 0;
    RefreshSection(section(), 3, 3, {});
    EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(Refresh, SeesOnlyWhatTheViewShows)
{
    drawing.point("SHOWN", {0, 3, 0});
    drawing.point("HIDDEN", {0, -3, 0});
    open();
    acedCommandS({u"Zoom", u"-9,1", u"9,9"});
    RefreshSection(section(), 5, 5, {});
    EXPECT_THAT(rows(), ElementsAre("SHOWN -3"));
}

TEST_F(Refresh, AllSectionsMeansThoseOfTheCurrentDrawing)
{
    drawing.point("P", {0, 3, 0});
    open();
    tree.m_dForwardDistance = 1;
    tree.StoreScales({{}, 2, 3, 0.5}, {});
    RefreshAllSections(tree);
    EXPECT_THAT(rows(), ElementsAre("P -3"));
    EXPECT_EQ(section().m_listBlockData1[0].m_dScaleY, 3);

    session.open(TestDrawing{}.dxf());
    RefreshAllSections(tree);
    EXPECT_THAT(rows(), ElementsAre("P -3"));
}
