#include "host/ui/dialog.h"
#include "support/test_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using testing::ElementsAre;
using testing::Pair;

constexpr ControlTemplate kControls[] = {{101, ControlKind::kGrid, 0, 0, 100, 50}};
constexpr DialogTemplate kDialog{1, 120, 60, DialogFrame::kFixed, {}, u"MS Sans Serif", 8, kControls};

/// A table of a header and two rows: text, button, check box, list, colour.
class GridDialog : public CDialog
{
public:
    GridDialog() : CDialog{kDialog, nullptr} { onGridClick(101, &GridDialog::OnClick); }
    std::string_view className() const override { return "GridDialog"; }

    CGridCtrl& m_grid = control<CGridCtrl>(101);
    std::vector<std::pair<int, int>> m_clicks; ///< column and button state

private:
    void OnInitDialog() override
    {
        m_grid.SetColumnCount(5);
        m_grid.SetRowCount(3);
        m_grid.SetFixedRowCount(1);
        m_grid.makeCell<CGridBtnCell>(1, 1).SetupButton(u"...", 24);
        m_grid.makeCell<CGridCellCheck>(1, 2).SetReadOnly(true);
        m_grid.makeCell<CGridCellCombo>(1, 3).SetOptions({u"0", u"ROAD"});
        m_grid.makeCell<CGridCellComboColor>(1, 4).SetText(u"Red");
    }
    void OnClick(const GridClick& click) { m_clicks.emplace_back(click.column, click.buttonState); }
};

class Grid : public testing::Test
{
protected:
    void SetUp() override { m_dialog.Create(); }

    TestSession m_session;
    MemoryFrontEnd& m_frontEnd = m_session.frontEnd;
    GridDialog m_dialog;
    CGridCtrl& m_grid = m_dialog.m_grid;
};

} // namespace

TEST_F(Grid, IsEditedInPlaceWhereItsCellsTakeText)
{
    EXPECT_TRUE(m_dialog.userCell(1, 0, u"CAY"));
    EXPECT_TRUE(m_dialog.userCell(1, 3, u"typed, not picked"));
    EXPECT_EQ(m_grid.GetItemText(1, 0), u"CAY");
    EXPECT_EQ(m_grid.GetItemText(1, 3), u"typed, not picked");

    EXPECT_FALSE(m_dialog.userCell(0, 0, u"x")) << "header";
    EXPECT_FALSE(m_dialog.userCell(1, 1, u"x")) << "only its button changes it";
    EXPECT_FALSE(m_dialog.userCell(1, 2, u"x")) << "check box";
    EXPECT_FALSE(m_dialog.userCell(3, 0, u"x"));
    EXPECT_FALSE(m_dialog.userCell(1, -1, u"x"));
    m_grid.SetColumnEditable(0, false);
    EXPECT_FALSE(m_dialog.userCell(1, 0, u"x"));
    m_grid.EnableWindow(false);
    EXPECT_FALSE(m_dialog.userCell(2, 1, u"x"));
}

TEST_F(Grid, MarksReadOnlyCheckBoxesAndPressesButtons)
{
    EXPECT_TRUE(m_dialog.userMark(1, 2, true));
    EXPECT_TRUE(m_grid.cellAs<CGridCellCheck>(1, 2)->GetCheck());
    EXPECT_FALSE(m_dialog.userMark(1, 1, true));
    EXPECT_FALSE(m_dialog.userMark(0, 2, true));

    EXPECT_TRUE(m_dialog.userPress(1, 1));
    EXPECT_TRUE(m_dialog.userClickCell(1, 1));
    EXPECT_TRUE(m_dialog.userClickCell(0, 3));
    EXPECT_FALSE(m_dialog.userPress(1, 0));
    EXPECT_THAT(m_dialog.m_clicks, ElementsAre(Pair(1, 0), Pair(1, 1), Pair(3, 1)));
}

TEST_F(Grid, OffersOtherColorsThroughTheColorDialog)
{
    m_frontEnd.colors = {30, std::nullopt};
    EXPECT_TRUE(m_dialog.userCell(1, 4, u"Others..."));
    EXPECT_EQ(m_grid.GetItemText(1, 4), u"Color 30");
    EXPECT_TRUE(m_dialog.userCell(1, 4, u"Others..."));
    EXPECT_EQ(m_grid.GetItemText(1, 4), u"Color 30") << "cancelled";
    EXPECT_THAT(m_frontEnd.colorQuestions, ElementsAre(1, 30));
    EXPECT_TRUE(m_dialog.userCell(1, 4, u"bylayer"));
    EXPECT_EQ(m_grid.GetItemText(1, 4), u"ByLayer");
    EXPECT_THAT(m_grid.cellAs<CGridCellComboColor>(1, 4)->items(),
                ElementsAre(u"ByLayer", u"ByBlock", u"Red", u"Yellow", u"Green", u"Cyan", u"Blue", u"Magenta",
                            u"White/Black", u"Color 30", u"Others..."));
}

TEST_F(Grid, KeepsTheCellsThatStayAndTheLookOfOnesThatChangeKind)
{
    m_grid.SetItemText(1, 0, u"CAY");
    m_grid.cell(1, 0).SetBackColor({255, 255, 224});
    m_grid.cell(1, 0).SetFormat(kCellCentredLine);
    m_grid.makeCell<CGridCellCheck>(1, 0);
    m_grid.SetRowCount(2);
    m_grid.SetRowCount(10);
    m_grid.SetColumnCount(6);
    EXPECT_EQ(m_grid.GetItemText(1, 0), u"CAY");
    EXPECT_EQ(m_grid.cell(1, 0).GetBackColor(), (CellColor{255, 255, 224}));
    EXPECT_EQ(m_grid.cell(1, 0).GetFormat(), unsigned{kCellCentredLine});
    EXPECT_EQ(m_grid.cell(9, 5).kindName(), "text");
    EXPECT_THROW(m_grid.cell(10, 0), std::out_of_range);

    m_frontEnd.changes.clear();
    m_grid.SetItemText(9, 5, u"x");
    EXPECT_THAT(m_frontEnd.changes, ElementsAre(&m_grid));
}
