#include "section_desk.h"

#include <gmock/gmock.h>

#include <algorithm>

using testing::Each;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace
{

/// Six sections, each with the one feature and a coded point.
void addSections(TestDrawing& drawing, TestAlignment& alignment)
{
    for (int i = 0; i < 6; ++i)
    {
        const double x = 10.0 * i;
        alignment.section("C" + std::to_string(i), {x, 20}, {x, -20})
            .ground({{-20, 3}, {20, 4}})
            .point("COT", {x, 5, 0});
    }
    drawing.feature("MUONG", {{-100, -2}, {100, -2}});
}

class Redraw : public SectionDesk
{
protected:
    Redraw()
    {
        addSections(m_drawing, m_drawing.alignment("T1"));
        useLayers(u"", u"", u"", u"");
        dss(m_drawing);
        m_untouched = living().size();
    }

    void drawOnly(std::initializer_list<int> rows)
    {
        for (int row = 0; row < 6; ++row)
            EXPECT_TRUE(dialog().userTick(kSections, row, std::count(rows.begin(), rows.end(), row) > 0));
        click(kDraw);
    }

    TestDrawing m_drawing;
    size_t m_untouched = 0;
};

constexpr size_t kOnEach = 6; ///< two labels of three entities

} // namespace

TEST_F(Redraw, ReplacesWhatTheTickedSectionsHeldAndNothingElse)
{
    click(kDraw);
    ASSERT_EQ(living().size(), m_untouched + 6 * kOnEach);
    const AcDbObjectIdArray first = record(1).drawnIds;
    const AcDbObjectIdArray kept = record(2).drawnIds;

    drawOnly({1, 3});

    EXPECT_EQ(living().size(), m_untouched + 6 * kOnEach);
    EXPECT_THAT(describe(first), Each("gone"));
    EXPECT_THAT(drawnOn(1), Not(testing::Contains("gone")));
    EXPECT_EQ(record(2).drawnIds, kept);
}

TEST_F(Redraw, UndoTakesBackTheDrawingsOfAllSections)
{
    drawOnly({0, 5});
    drawOnly({2});
    {
        const TestLock lock;
        const AcDbObjectPointer<AcDbEntity> byHand(record(2).drawnIds[1], AcDb::kForWrite);
        byHand->erase();
    }
    acDocManagerPtr()->sendStringToExecute(acDocManagerPtr()->curDocument(), u"Zoom 0,0");
    click(kUndo);

    EXPECT_EQ(acDocManagerPtr()->curDocument()->pendingInput(), u"") << "Escape takes back what is half typed";
    EXPECT_EQ(living().size(), m_untouched);
    EXPECT_THAT(record(2).drawnIds, IsEmpty());
    EXPECT_THAT(section(5).m_arrDrawnIds, IsEmpty());
    EXPECT_EQ(record(2).flags, 0x02) << "the mark of a drawn section stays";
}

TEST_F(Redraw, DrawingRemembersWhatWasPlacedAcrossSaving)
{
    drawOnly({1, 4});
    session.open(session.saved());
    DssCommand();
    ASSERT_EQ(living().size(), m_untouched + 2 * kOnEach);
    ASSERT_THAT(drawnOn(4), SizeIs(kOnEach));
    ASSERT_THAT(section(4).m_arrDrawnIds, IsEmpty());

    drawOnly({4});
    EXPECT_EQ(living().size(), m_untouched + 2 * kOnEach);
    click(kUndo);
    EXPECT_EQ(living().size(), m_untouched);
}

TEST_F(Redraw, NothingIsDrawnWhenTheAlignmentCannotBeChanged)
{
    session.faults.unwritable = {g_DatabaseCS.m_listReferenceLines[0].m_idAlignment};
    drawOnly({0});
    EXPECT_EQ(living().size(), m_untouched);

    session.faults.unwritable.clear();
    drawOnly({0});
    session.faults.unwritable = {g_DatabaseCS.m_listReferenceLines[0].m_idAlignment};
    click(kUndo);
    EXPECT_EQ(living().size(), m_untouched) << "what this session placed is known without the alignment";
    EXPECT_THAT(record(0).drawnIds, SizeIs(kOnEach));
}

TEST_F(Redraw, ActsOnTheDrawingItWasScannedFromOnly)
{
    click(kDraw);
    const size_t drawn = living().size();
    session.open(m_drawing.dxf());
    click(kDraw);
    click(kUndo);
    EXPECT_EQ(living().size(), m_untouched) << "in the other drawing";

    acDocManagerPtr()->setCurrent(acDocManagerPtr()->at(0));
    EXPECT_EQ(living().size(), drawn);
}
