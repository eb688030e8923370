#include "sections/scan.h"

#include "host/db/table/symbol_tables.h"
#include "sections/database_cs.h"
#include "sections/plain_scan.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

#include <random>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

/// Rows of symbols as "name offset1 offset2", of codes as "code offset".
std::vector<std::string> text(const ListBlockData& rows)
{
    std::vector<std::string> lines;
    for (const BlockData& row : rows)
        lines.push_back(testing::PrintToString(toUtf8(row.m_strName) + " " + std::to_string(row.m_dOffset1) + " " +
                                               std::to_string(row.m_dOffset2)));
    return lines;
}

std::string row(const std::string& name, double first, double second = 0.0)
{
    return testing::PrintToString(name + " " + std::to_string(first) + " " + std::to_string(second));
}

std::vector<std::string> codes(const ListBlockFcode& rows)
{
    std::vector<std::string> lines;
    for (const BlockFcode& each : rows)
        lines.push_back(toUtf8(each.m_strFcode) + " " + std::to_string(static_cast<int>(each.m_dOffset)));
    return lines;
}

class Scan : public testing::Test
{
protected:
    /// A straight road: sections square to the x axis, end A (negative offsets) above it, 20 to each side.
    TestSection& addSection(double x = 0.0, const std::string& name = "C")
    {
        if (m_road == nullptr)
            m_road = &drawing.alignment("T1").extents(20, 30);
        return m_road->section(name, {x, 20}, {x, -20});
    }

    const ListItemReferenceLine& scan()
    {
        session.open(drawing.dxf());
        ScanCrossSections(database);
        return database.m_listReferenceLines;
    }
    const CrossSectionXdata& firstSection() { return scan()[0].m_listCrossSections[0]; }

    AcDbObjectId id(uint64_t handle)
    {
        AcDbObjectId found;
        session.drawing().getAcDbObjectId(found, false, AcDbHandle{handle});
        return found;
    }

    TestSession session;
    TestDrawing drawing;
    DatabaseCS database;

private:
    TestAlignment* m_road = nullptr;
};

} // namespace

TEST_F(Scan, CrossingsHaveTheOffsetsOfTheFirstTwoPlacesAlongThePolyline)
{
    addSection();
    drawing.feature("B", {{-1, -3.2}, {1, -3.2}});
    drawing.feature("A", {{-1, 3.2}, {1, 3.2}});
    drawing.feature("THRICE", {{-1, -5}, {1, -5}, {-1, 7}, {-1, 9}, {1, 9}});
    drawing.feature("SHORT", {{-1, 0}, {-0.1, 0}});
    drawing.feature("BEYOND", {{-1, 20.1}, {1, 20.1}});
    drawing.feature("", {{-1, 0}, {1, 0}});
    drawing.feature("POINT", {{0, 0}});
    drawing.feature("AT M", {{-1, 0}, {1, 0}});

    EXPECT_THAT(text(firstSection().m_listBlockData2),
                ElementsAre(row("B", 3.2), row("A", -3.2), row("THRICE", 5, -1), row("AT M", 0)));
}

TEST_F(Scan, ClosingSegmentCountsForLightweightAnd2dPolylinesOnly)
{
    addSection();
    drawing.feature("LW", {{1, 4}, {5, 4}, {5, -4}, {-1, -6}}, true);
    drawing.feature2d("2D", {{1, 5}, {-1, 5}, {-1, 9}}, true);
    drawing.feature2d("OPEN 2D", {{-1, 6}, {-2, 6}, {-2, 7}, {-1, 20}});
    drawing.feature3d("3D", {{-1, 6, 1}, {-2, 6, 2}, {-2, 20, 3}, {1, 20.5, 4}}, true);
    drawing.feature3d("3D UP", {{-1, 6, 100}, {1, 6, 200}});

    EXPECT_THAT(text(firstSection().m_listBlockData2),
                ElementsAre(row("LW", 5.666667, 1), row("2D", -5, -7), row("3D UP", -6)));
}

TEST_F(Scan, SectionsKeepWhatTheirRecordsSay)
{
    addSection(0, "C1").base({7, 8, 9});
    addSection(10, "C2").ground({{-20, 3}, {20, 4}});
    drawing.alignment("T2").scale(200).section("D1", {3, 4}, {3, 4});

    const ListItemReferenceLine& tree = scan();

    ASSERT_EQ(tree.size(), 2u);
    EXPECT_EQ(tree[0].m_strName, u"T1");
    const CrossSectionXdata& first = tree[0].m_listCrossSections[0];
    EXPECT_EQ(first.m_strName, u"C1");
    EXPECT_TRUE(first.m_ptCenter.isEqualTo({0, 0, 0}));
    EXPECT_TRUE(first.m_vecDir.isEqualTo({0, 1, 0}));
    EXPECT_EQ(first.m_dExtent1, 20);
    EXPECT_EQ(first.m_dExtent2, 30);
    EXPECT_TRUE(first.m_ptOrigin.isEqualTo({7, 8, 9}));
    EXPECT_TRUE(first.m_idGroundLine.isNull());
    EXPECT_EQ(first.m_dScale, 1);
    EXPECT_FALSE(tree[0].m_listCrossSections[1].m_idGroundLine.isNull());
    EXPECT_EQ(tree[1].m_listCrossSections[0].m_dScale, 5);
}

TEST_F(Scan, SurveyPointsGiveARowForTheSectionAndOneForThePlan)
{
    addSection()
        .point("CAY", {0, -4, 12.5})
        .point("mt1", {0, 1, 0})
        .point("MP1", {0, 1, 0})
        .point("MT2", {0, 1, 0})
        .point("MP2", {0, 1, 0})
        .point("MT3", {0, 1, 0})
        .point("MP3", {0, 1, 0})
        .point("MP4", {0, 1, 0})
        .point("", {0, 2, 0})
        .point("CỌC", {0, 6, 0})
        .dcOffsets({-8, 9});
    addSection(10).point("dc_t", {10, 3, 0}).dcOffsets({-8, 9});
    addSection(20).dcOffsets({-8});
    addSection(30).pointHandles({0xFFFF1}).dcOffsets({1, 2, 3});

    const ListCSXdata& sections = scan()[0].m_listCrossSections;

    EXPECT_THAT(codes(sections[0].m_listBlockFcode1), ElementsAre("CAY 4", "MP4 -1", "CỌC -6", "DC1 -8", "DC2 9"));
    EXPECT_THAT(codes(sections[0].m_listBlockFcode2), ElementsAre("CAY 4", "MP4 -1", "CỌC -6"));
    EXPECT_TRUE(sections[0].m_listBlockFcode2[0].m_ptPosition.isEqualTo({0, -4, 12.5}));
    EXPECT_THAT(codes(sections[1].m_listBlockFcode1), ElementsAre("dc_t -3"));
    EXPECT_THAT(codes(sections[2].m_listBlockFcode1), IsEmpty());
    EXPECT_THAT(codes(sections[3].m_listBlockFcode1), ElementsAre("DC1 1", "DC2 2"));
}

TEST_F(Scan, SettingsAreCarriedOverByNameAndTheFirstRowOfANameCounts)
{
    addSection().point("CAY", {0, -4, 0}).point("CAY", {0, 5, 0});
    drawing.feature("MUONG", {{-1, -3}, {1, -3}});
    drawing.feature("muong", {{-1, 6}, {1, 6}});
    scan();
    CrossSectionXdata& section = database.m_listReferenceLines[0].m_listCrossSections[0];
    section.m_listBlockData2[0].m_strFile = u"first";
    section.m_listBlockData2[1].m_strFile = u"second";
    section.m_listBlockFcode1[1].m_strFile = u"not the first";
    section.m_listBlockFcode1[0].m_dScaleX = 2;
    section.m_listBlockFcode2[0].m_dRotation = 0.5;

    ScanCrossSections(database);

    const CrossSectionXdata& again = database.m_listReferenceLines[0].m_listCrossSections[0];
    EXPECT_EQ(again.m_listBlockData2[0].m_strFile, u"first");
    EXPECT_EQ(again.m_listBlockData2[1].m_strFile, u"first");
    EXPECT_EQ(again.m_listBlockFcode1[1].m_strFile, u"");
    EXPECT_EQ(again.m_listBlockFcode1[1].m_dScaleX, 2);
    EXPECT_EQ(again.m_listBlockFcode1[1].m_dRotation, 0);
    EXPECT_EQ(again.m_listBlockFcode2[1].m_dRotation, 0.5);
}

TEST_F(Scan, WhatCannotBeOpenedIsPassedOverButAnAlignmentEndsTheScan)
{
    addSection();
    const uint64_t busy = drawing.feature("BUSY", {{-1, 1}, {1, 1}});
    drawing.feature("FREE", {{-1, 2}, {1, 2}});
    const uint64_t second = drawing.alignment("T2").handle();
    drawing.alignment("T3");
    session.open(drawing.dxf());

    const TestLock lock;
    const AcDbObjectPointer<AcDbObject> busyPolyline(id(busy), AcDb::kForWrite);
    const AcDbObjectPointer<AcDbObject> busyAlignment(id(second), AcDb::kForWrite);
    ScanCrossSections(database);

    ASSERT_EQ(database.m_listReferenceLines.size(), 1u);
    EXPECT_THAT(text(database.m_listReferenceLines[0].m_listCrossSections[0].m_listBlockData2),
                ElementsAre(row("FREE", -2)));
}

TEST_F(Scan, DrawingWithoutAlignmentsLeavesTheTree)
{
    addSection();
    scan();
    session.open(TestDrawing{}.dxf());
    ScanCrossSections(database);
    EXPECT_EQ(database.m_listReferenceLines.size(), 1u);
}

TEST_F(Scan, RandomDrawingsGiveTheRowsOfThePlainLoop)
{
    std::mt19937 random(7);
    const auto number = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    size_t found = 0;
    for (int round = 0; round < 12; ++round)
    {
        // On a lattice, so that vertices touch and segments lie on the section lines; far out in every third drawing.
        const double corner = round % 3 == 0 ? 2'000'000.25 : 0.0;
        const auto at = [&](int range) { return corner + number(-range, range); };
        TestDrawing world;
        TestAlignment& road = world.alignment("T").extents(number(1, 12), 1);
        for (int i = 0; i < 12; ++i)
            road.section("C", {at(10), at(10)}, {at(10), at(10)});
        for (int i = 0; i < 40; ++i)
        {
            std::vector<AcGePoint2d> flat;
            std::vector<AcGePoint3d> spatial;
            for (int count = number(0, 8); count >= 0; --count)
            {
                flat.emplace_back(number(0, 60) == 0 ? 1e300 : at(12), at(12));
                spatial.emplace_back(flat.back().x, flat.back().y, number(0, 5));
            }
            const bool closed = number(0, 1) == 1;
            const std::string code = "F" + std::to_string(i);
            if (i % 3 == 0)
                world.feature(code, flat, closed);
            else if (i % 3 == 1)
                world.feature2d(code, flat, closed);
            else
                world.feature3d(code, spatial, closed);
        }
        session.open(world.dxf());
        ScanCrossSections(database);
        AcDbObjectId modelSpace;
        AcDbObjectPointer<AcDbBlockTable>(session.drawing().tableId(AcDbBlockTable::desc()))
            ->getIdAt(u"*Model_Space", modelSpace);
        const AcDbObjectIdArray polylines = AcDbObjectPointer<AcDbBlockTableRecord>(modelSpace)->entityIds();
        for (const CrossSectionXdata& section : database.m_listReferenceLines[0].m_listCrossSections)
        {
            const std::vector<BlockData> expected = plainCrossings(section, polylines);
            ASSERT_EQ(section.m_listBlockData2.size(), expected.size());
            for (size_t i = 0; i < expected.size(); ++i)
            {
                EXPECT_EQ(section.m_listBlockData2[i].m_strName, expected[i].m_strName);
                EXPECT_EQ(section.m_listBlockData2[i].m_dOffset1, expected[i].m_dOffset1);
                EXPECT_EQ(section.m_listBlockData2[i].m_dOffset2, expected[i].m_dOffset2);
            }
            found += expected.size();
        }
    }
    EXPECT_GT(found, 1000u);
}

TEST(SignedOffset, IsNegativeOnlyOnTheSectionLineTowardsItsEndA)
{
    const AcGePoint3d m{10, 10, 0};
    const AcGeVector3d u{0, 1, 0};
    EXPECT_EQ(SignedOffset(m, u, {10, 14, 7}), -4);
    EXPECT_EQ(SignedOffset(m, u, {10, 6, 7}), 4);
    EXPECT_LT(SignedOffset(m, u, {10.0009, 14, 0}), 0);
    EXPECT_GT(SignedOffset(m, u, {10.0011, 14, 0}), 0);
    EXPECT_EQ(SignedOffset(m, u, m), 0);
    // A section above the world's plane: its height turns the way to every point downwards.
    EXPECT_EQ(SignedOffset({10, 10, 5}, u, {10, 14, 5}), 4);
}
