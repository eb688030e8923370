#include "settings/settings_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace
{

using testing::ElementsAre;

using namespace control_ids::general;

class GeneralPage : public testing::Test
{
protected:
    void SetUp() override { SettingsSession::addSymbol(m_session.section(0).m_listBlockData1, u"near"); }

    /// Runs the dialog with the general page shown.
    int run(const std::function<void(CDialog&)>& play)
    {
        return m_session.run({0},
                             [&play](CDialog& dialog)
                             {
                                 EXPECT_TRUE(dialog.userTab(3));
                                 play(dialog);
                             });
    }

    SettingsSession m_session;
};

void type(CDialog& dialog, int id, const std::u16string& text)
{
    const UserAction action = dialog.userSetText(id, text);
    EXPECT_TRUE(action) << action.reason();
}

std::u16string textOf(const CDialog& dialog, int id)
{
    return dialog.tabControl()->currentPage()->GetDlgItem(id)->GetWindowText();
}

} // namespace

TEST_F(GeneralPage, ShowsTheSharedSettings)
{
    g_DatabaseCS.m_dForwardDistance = 7.256;
    g_DatabaseCS.m_arrDrawFlags = {1, 0, 2, 0};
    g_DatabaseCS.m_arrLayerNames = {u"L1", u"L2", u"", u"L4"};
    g_DatabaseCS.m_nColorFcodeText = 3;
    g_DatabaseCS.m_nColorSymbol = 30;
    run(
        [](CDialog& dialog)
        {
            EXPECT_EQ(textOf(dialog, kForward), u"7.26");
            EXPECT_EQ(textOf(dialog, kBackward), u"5.00");
            EXPECT_EQ(textOf(dialog, kTextHeight), u"0.40");
            EXPECT_EQ(textOf(dialog, kDeltaY), u"2.00");
            const std::vector<std::u16string> table = shownTable(dialog);
            EXPECT_EQ(table.at(0), u"|Vẽ|Tên|Mầu");
            EXPECT_EQ(table.at(1), u"Điền tên symbol||L1|ByLayer");
            EXPECT_EQ(table.at(2), u"Điền Fcode||L2|Green");
            EXPECT_TRUE(table.at(3).ends_with(u"|Color 30"));
            EXPECT_EQ(table.at(4), u"Vẽ ký hiệu Fcode||L4|ByLayer");
            EXPECT_TRUE(dialog.userMark(2, 1, true));
            EXPECT_TRUE(dialog.userMark(3, 1, false));
            EXPECT_TRUE(dialog.userClick(IDOK));
        });
    EXPECT_THAT(g_DatabaseCS.m_arrDrawFlags, ElementsAre(1U, 1U, 0U, 0U));
}

TEST_F(GeneralPage, TakesNumbersAndColorsWhenApplied)
{
    m_session.frontEnd.colors = {130};
    run(
        [](CDialog& dialog)
        {
            type(dialog, kTextHeight, u"abc");
            type(dialog, kDeltaY, u"1.5 m");
            EXPECT_TRUE(dialog.userCell(1, 2, u"a layer that there is not"));
            EXPECT_TRUE(dialog.userCell(1, 3, u"Others..."));
            EXPECT_TRUE(dialog.userCell(2, 3, u"ByBlock"));
            EXPECT_TRUE(dialog.userCell(3, 3, u"Color  12"));
            EXPECT_TRUE(dialog.userCell(4, 3, u"Red"));
            EXPECT_TRUE(dialog.userClick(IDOK));
        });
    EXPECT_EQ(g_DatabaseCS.m_dTextHeight, 0.0);
    EXPECT_EQ(g_DatabaseCS.m_dDeltaY, 1.5);
    EXPECT_EQ(g_DatabaseCS.m_arrLayerNames.at(0), u"a layer that there is not");
    EXPECT_EQ(g_DatabaseCS.m_nColorSymbolText, 130);
    EXPECT_EQ(g_DatabaseCS.m_nColorFcodeText, 7);
    EXPECT_EQ(g_DatabaseCS.m_nColorSymbol, 12);
    run(
        [](CDialog& dialog)
        {
            EXPECT_TRUE(dialog.userCell(1, 3, u"no colour"));
            EXPECT_TRUE(dialog.userClick(IDOK));
        });
    EXPECT_EQ(g_DatabaseCS.m_nColorSymbolText, 7);
}

TEST_F(GeneralPage, DistancesCountAsChangedBeyondAThousandth)
{
    run(
        [](CDialog& dialog)
        {
            type(dialog, kBackward, u"5.0009");
            EXPECT_TRUE(dialog.userTab(0));
            EXPECT_FALSE(g_DatabaseCS.m_bDistanceChanged);
            EXPECT_TRUE(dialog.userTab(3));
            type(dialog, kBackward, u"5.0011");
            EXPECT_TRUE(dialog.userTab(0));
            EXPECT_TRUE(g_DatabaseCS.m_bDistanceChanged);
        });
    EXPECT_EQ(g_DatabaseCS.m_dBackwardDistance, 5.0011);
}

TEST_F(GeneralPage, ADistanceBeyondAllNumbersIsChangedOnce)
{
    run(
        [](CDialog& dialog)
        {
            type(dialog, kForward, u"1e999");
            EXPECT_TRUE(dialog.userTab(0));
            EXPECT_TRUE(std::exchange(g_DatabaseCS.m_bDistanceChanged, false));
            EXPECT_TRUE(dialog.userTab(3));
            EXPECT_TRUE(dialog.userTab(0));
            EXPECT_FALSE(g_DatabaseCS.m_bDistanceChanged);
        });
}

TEST_F(GeneralPage, FillsTheDialogWhenItIsEnlargedAndNeverOverlaps)
{
    run(
        [](CDialog& dialog)
        {
            const auto rectOf = [&dialog](int id)
            { return dialog.tabControl()->currentPage()->GetDlgItem(id)->rect(); };
            EXPECT_TRUE(dialog.userResize(100, 100));
            EXPECT_EQ(dialog.clientSize(), (CSize{630, 303}));
            EXPECT_LT(rectOf(kBackward).right, rectOf(kNoControlId).left) << "search zone and text parameters";
            EXPECT_LE(rectOf(kNoControlId).right, rectOf(kSearchGroup).right);

            EXPECT_TRUE(dialog.userResize(1030, 603));
            EXPECT_EQ(dialog.tabControl()->rect(), (CRect{7, 7, 1020, 563}));
            EXPECT_EQ(dialog.GetDlgItem(control_ids::settings::kHelp)->rect().right, 1020);
            EXPECT_EQ(dialog.GetDlgItem(IDOK)->rect().bottom, 593);
            EXPECT_EQ(dialog.GetDlgItem(IDCANCEL)->rect().left - dialog.GetDlgItem(IDOK)->rect().right, 10);
            EXPECT_EQ(rectOf(kSearchGroup), (CRect{3, 2, 1000, 51}));
            EXPECT_EQ(rectOf(kOptionsGroup), (CRect{3, 55, 1000, 527}));
            EXPECT_EQ(rectOf(kOptions), (CRect{15, 72, 990, 524}));
            for (const auto& tab : dialog.tabControl()->tabs())
                EXPECT_EQ(static_cast<const CWnd*>(tab.page)->rect(), rectAt(3, 21, 1006, 532));
            EXPECT_TRUE(dialog.userTab(2));
            EXPECT_EQ(rectOf(control_ids::table::kGrid), (CRect{20, 28, 990, 497}));
            EXPECT_EQ(rectOf(control_ids::table::kClear).bottom, 528);
            auto* grid =
                dynamic_cast<CGridCtrl*>(dialog.tabControl()->currentPage()->GetDlgItem(control_ids::table::kGrid));
            EXPECT_EQ(grid->GetColumnWidth(1), 179 + 82);
        });
}
