#include "host/companion/alignment.h"
#include "host/companion/db_helper.h"
#include "host/companion/measure_point.h"
#include "host/companion/project_config.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace
{

class Companion : public testing::Test
{
protected:
    AcDbDatabase& drawing() { return m_session.drawing(); }
    AcDbObjectId idOf(uint64_t handle)
    {
        AcDbObjectId id;
        drawing().getAcDbObjectId(id, true, AcDbHandle{handle});
        return id;
    }

    TestSession m_session;
};

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    const size_t at = text.find(from);
    return at == std::string::npos ? "not found: " + from : text.replace(at, from.size(), to);
}

} // namespace

TEST_F(Companion, AlignmentGivesItsSectionsInOrder)
{
    TestDrawing text;
    TestAlignment& road = text.alignment("Tuyến 1").scale(200).extents(30, 40);
    TestSection& first = road.section("C1", {0, 20}, {0, -20});
    first.ground({{-20, 3}, {20, 4}}).point("CAY", {3, 4, 5}).dcOffsets({-4.5, 4.5}).flags(1).drawn({0, 0xABCDE});
    road.section("C2", {10, 20}, {10, -20});
    m_session.open(text.dxf());

    const AcDbObjectPointer<PlxDbAlignment> opened{idOf(road.handle())};
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->name(), u"Tuyến 1");
    EXPECT_EQ(opened->scaleValue(), 200.0);
    EXPECT_EQ(opened->extent2(), 40.0);
    ASSERT_EQ(opened->sections().size(), 2U);
    const SectionRecord& c1 = opened->sections()[0];
    EXPECT_EQ(c1.name, u"C1");
    EXPECT_TRUE(c1.pointB.isEqualTo({0, -20, 0}));
    EXPECT_TRUE(c1.basePoint.isEqualTo(first.basePoint()));
    EXPECT_EQ(c1.groundLineId.handle().value(), first.groundLine());
    EXPECT_THAT(c1.dcOffsets, ElementsAre(-4.5, 4.5));
    ASSERT_EQ(c1.drawnIds.size(), 2U);
    EXPECT_TRUE(c1.drawnIds[0].isNull());
    EXPECT_FALSE(AcDbObjectPointer<AcDbObject>{c1.drawnIds[1]}) << "a handle of nothing is an id that does not open";
    ASSERT_EQ(c1.pointIds.size(), 1U);
    const AcDbObjectPointer<PlxDbMeasurePointObj> point{c1.pointIds[0]};
    ASSERT_TRUE(point);
    EXPECT_EQ(point->Get(1), u"CAY");
    EXPECT_EQ(point->Get(2), u"");
    EXPECT_TRUE(point->GetPoint().isEqualTo({3, 4, 5}));
    EXPECT_TRUE(opened->sections()[1].groundLineId.isNull());
}

TEST_F(Companion, DrawnIdsReplaceTheirOwnPairsOnly)
{
    TestDrawing text;
    TestAlignment& road = text.alignment("T1");
    road.section("C1", {0, 20}, {0, -20}).flags(1).drawn({0xABCDE});
    road.section("C2", {1, 20}, {1, -20}).drawn({0xABCDF});
    const uint64_t line = text.line({0, 0, 0}, {1, 1, 0});
    m_session.open(text.dxf());
    std::string expected = m_session.saved();
    {
        const TestLock lock;
        const AcDbObjectPointer<PlxDbAlignment> opened{idOf(road.handle()), AcDb::kForWrite};
        opened->setDrawnIds(0, {idOf(line), AcDbObjectId::kNull});
        opened->setSectionFlag(0, 2);
        opened->setSectionFlag(9, 2);
    }
    TagWriter drawn;
    drawn.integer(93, 2);
    drawn.handle(331, line);
    drawn.handle(331, 0);
    expected = replaced(expected, " 93\n1\n331\nABCDE\n", std::string{drawn.view()});
    expected = replaced(expected, " 70\n1\n 91\n", " 70\n3\n 91\n");
    EXPECT_EQ(m_session.saved(), expected);

    m_session.open(expected);
    const AcDbObjectPointer<PlxDbAlignment> again{idOf(road.handle())};
    ASSERT_TRUE(again);
    EXPECT_EQ(again->sections()[0].flags, 3);
    EXPECT_EQ(again->sections()[0].drawnIds.size(), 2U);
    EXPECT_EQ(again->sections()[1].drawnIds.size(), 1U);
}

TEST_F(Companion, SectionWithoutListsGetsThemAtItsEnd)
{
    TestDrawing text;
    const uint64_t bare = text.entity("PLXDBALIGNMENT", "100\nPlxDbAlignment\n  1\nT\n 90\n2\n  2\nC1\n  2\nC2\n"
                                                        "1001\nSV_INFOR\n1000\nX\n");
    m_session.open(text.dxf());
    {
        const TestLock lock;
        const AcDbObjectPointer<PlxDbAlignment> opened{idOf(bare), AcDb::kForWrite};
        opened->setSectionFlag(0, 2);
        opened->setSectionFlag(1, 2);
    }
    EXPECT_THAT(m_session.saved(), HasSubstr("  2\nC1\n 70\n2\n 93\n0\n  2\nC2\n 70\n2\n 93\n0\n1001\nSV_INFOR\n"));
}

TEST_F(Companion, DeleteEntityPassesOverWhatCannotBeErased)
{
    TestDrawing text;
    text.layer("LOCKED", 4);
    const uint64_t line = text.line({0, 0, 0}, {1, 1, 0});
    const uint64_t locked = text.onLayer("LOCKED").line({0, 0, 0}, {1, 1, 0});
    m_session.open(text.dxf());
    const TestLock lock;
    AcDbObjectIdArray ids{AcDbObjectId::kNull, idOf(0xABCDE), idOf(locked), idOf(line), idOf(line)};
    DbHelper::DeleteEntity(ids, true);
    EXPECT_TRUE(idOf(line).isErased());
    EXPECT_FALSE(idOf(locked).isErased());
}

TEST_F(Companion, ProjectConfigKeepsLinesThroughSaveAndOpen)
{
    const std::vector<std::u16string> lines{u"[SYMBOL]", u"", u"  Cây đế, \x4E2D", std::u16string(700, u'ế'), u"a,b"};
    for (const int version : {1015, 1032})
    {
        m_session.open(TestDrawing{version}.dxf());
        std::vector<std::u16string> read;
        EXPECT_EQ(ProjectConfig::Read(&drawing(), u"DICTIONARY_DSS_2F", read), 0);
        {
            const TestLock lock;
            ProjectConfig::Write(&drawing(), u"DICTIONARY_DSS_2F", {u"earlier"});
            ProjectConfig::Write(&drawing(), u"Khóa", {});
            ProjectConfig::Write(&drawing(), u"DICTIONARY_DSS_2F", lines);
        }
        const std::string file = m_session.saved();
        m_session.open(file);
        EXPECT_NE(ProjectConfig::Read(&drawing(), u"dictionary_dss_2f", read), 0);
        EXPECT_EQ(read, lines);
        EXPECT_NE(ProjectConfig::Read(&drawing(), u"Khóa", read), 0);
        EXPECT_TRUE(read.empty());
        EXPECT_EQ(file.find("earlier"), std::string::npos);
    }
}

TEST_F(Companion, ProjectConfigFindsAKeyByItsOwnSpellingFirst)
{
    m_session.open(TestDrawing{1015}.dxf());
    {
        const TestLock lock;
        ProjectConfig::Write(&drawing(), u"first", {u"1"});
        ProjectConfig::Write(&drawing(), u"other", {u"2"});
    }
    m_session.open(replaced(m_session.saved(), "\nother\n", "\nFIRST\n"));
    const auto read = [&](const std::u16string& key)
    {
        std::vector<std::u16string> lines;
        ProjectConfig::Read(&drawing(), key, lines);
        return lines;
    };
    EXPECT_THAT(read(u"FIRST"), ElementsAre(u"2"));
    EXPECT_THAT(read(u"First"), ElementsAre(u"1"));
    {
        const TestLock lock;
        ProjectConfig::Write(&drawing(), u"FIRST", {u"3"});
    }
    EXPECT_THAT(read(u"first"), ElementsAre(u"1"));
    EXPECT_THAT(read(u"FIRST"), ElementsAre(u"3"));
}

TEST_F(Companion, RepeatedFieldsAreReadByNumber)
{
    TestDrawing text;
    const uint64_t point = text.entity("PLXDBMEASUREPOINTOBJ",
                                       "100\nPlxDbPointObj\n 10\n1.0\n 20\n2.0\n 30\n3.0\n 70\n1\n  1\nNHA\n 70\n4\n"
                                       "  1\nghi chú\n100\nPlxDbMeasurePointObj\n 70\n1\n  1\nother\n");
    m_session.open(text.dxf());
    const AcDbObjectPointer<PlxDbPointObj> opened{idOf(point)};
    ASSERT_TRUE(opened);
    EXPECT_EQ(opened->Get(1), u"NHA");
    EXPECT_EQ(opened->Get(4), u"ghi chú");
}
