#include "host/ui/dialog.h"
#include "host/ui/tab_ctrl.h"
#include "store/text/text.h"
#include "support/test_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using enum ControlKind;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr ControlTemplate kPageControls[] = {{20, kButton, 0, 0, 50, 14, u"Clear"}, {10, kGrid, 0, 20, 100, 50}};
constexpr DialogTemplate kPage{2, 100, 80, DialogFrame::kPage, {}, u"MS Sans Serif", 8, kPageControls};

constexpr ControlTemplate kControls[] = {
    {30, kTabControl, 0, 0, 200, 100},
    {1, kDefaultButton, 10, 110, 50, 14, u"OK"},
    {20, kButton, 70, 110, 50, 14, u"Draw"},
    {21, kCheckBox, 130, 110, 50, 10, u"All"},
    {22, kEdit, 10, 130, 40, 14},
    {23, kDropDownList, 60, 130, 60, 70},
    {24, kCheckList, 130, 130, 60, 40},
    {kNoControlId, kGroupBox, 5, 105, 190, 70, u"Choices"},
};
constexpr DialogTemplate kDialog{1, 200, 180, DialogFrame::kSizable, u"Test", u"MS Sans Serif", 8, kControls};

using Log = std::vector<std::string>;

class TestPage : public CTabPageSSL
{
public:
    TestPage(Log& log, std::string name) : CTabPageSSL{kPage}, m_log{log}, m_name{std::move(name)}
    {
        onMessage(20, Notification::kClicked, &TestPage::OnClear);
        onGridClick(10, &TestPage::OnGrid);
    }
    std::string_view className() const override { return "TestPage"; }

    CButton& m_clear = control<CButton>(20);
    CGridCtrl& m_grid = control<CGridCtrl>(10);

private:
    void OnClear() { m_log.push_back(m_name + " cleared"); }
    void OnGrid(const GridClick& click)
    {
        m_log.push_back(m_name + " grid " + std::to_string(click.row) + "," + std::to_string(click.column) + ":" +
                        std::to_string(click.buttonState));
    }
    void OnLeaveTab() override { m_log.push_back(m_name + (IsWindowVisible() ? " left" : " hidden too early")); }
    void OnEnterTab() override { m_log.push_back(m_name + (IsWindowVisible() ? " entered" : " not shown")); }

    Log& m_log;
    std::string m_name;
};

class TestDialog : public CDialog
{
public:
    explicit TestDialog(CWnd* parent = nullptr) : CDialog{kDialog, parent}
    {
        onMessage(20, Notification::kClicked, &TestDialog::OnDraw);
        onMessage(21, Notification::kClicked, &TestDialog::OnAll);
        onMessage(23, Notification::kSelectionChanged, &TestDialog::OnChosen);
    }
    std::string_view className() const override { return "TestDialog"; }
    CSize minimumSize() const override { return {280, 260}; }

    Log m_log;
    CTabCtrlSSL& m_tab = control<CTabCtrlSSL>(30);
    CButton& m_draw = control<CButton>(20);
    CButton& m_all = control<CButton>(21);
    CEdit& m_edit = control<CEdit>(22);
    CComboBox& m_combo = control<CComboBox>(23);
    CCheckListBox& m_list = control<CCheckListBox>(24);
    TestPage m_first{m_log, "first"};
    TestPage m_second{m_log, "second"};

private:
    void OnInitDialog() override
    {
        m_first.CreatePage(m_tab);
        m_tab.AddPage(u"First", m_first);
        m_second.CreatePage(m_tab);
        m_tab.AddPage(u"Second", m_second);
        for (const char16_t* text : {u"T1", u"T2", u"t1"})
            m_combo.AddString(text);
        for (const char16_t* text : {u"C1", u"C2"})
            m_list.AddString(text);
    }
    bool PreTranslateMessage(const UserMessage& message) override
    {
        m_log.push_back("down " + std::to_string(message.target->GetDlgCtrlID()));
        return CDialog::PreTranslateMessage(message);
    }
    void OnSize(int width, int height) override
    {
        m_log.push_back("size " + std::to_string(width) + "x" + std::to_string(height));
    }
    void OnDraw() { m_log.push_back("draw"); }
    void OnAll() { m_log.push_back(m_all.GetCheck() ? "all on" : "all off"); }
    void OnChosen() { m_log.push_back("chosen " + toUtf8(m_combo.GetWindowText())); }
};

class Dialogs : public testing::Test
{
protected:
    TestSession m_session;
    MemoryFrontEnd& m_frontEnd = m_session.frontEnd;
};

/// A dialog left open beside the test, with page "first" shown.
class OpenDialog : public Dialogs
{
protected:
    void SetUp() override
    {
        m_dialog.Create();
        m_dialog.m_log.clear();
    }

    TestDialog m_dialog{&m_frontEnd.window};
};

} // namespace

TEST_F(Dialogs, StandWhereTheirTemplateSaysInPixelsOfTheDisplay)
{
    const TestDialog plain;
    EXPECT_EQ(plain.rect(), rectAt(0, 0, 300, 293));
    EXPECT_EQ(plain.m_draw.rect(), rectAt(105, 179, 75, 23));
    EXPECT_EQ(plain.m_combo.rect().height(), 21) << "closed";
    EXPECT_EQ(plain.GetFont().height, -11);
    EXPECT_EQ(plain.GetWindowText(), u"Test");
    EXPECT_EQ(plain.m_draw.GetParent(), &plain);

    m_frontEnd.dpi = 192;
    EXPECT_EQ(TestDialog{}.m_draw.rect(), rectAt(210, 358, 150, 46));
}

TEST_F(Dialogs, RunModallyUntilEndedAndAreCancelledWhenNobodyIsThere)
{
    TestDialog dialog;
    const auto runWith = [&](std::function<void(CDialog&)> play)
    {
        m_frontEnd.plays.push_back(std::move(play));
        return TestDialog{}.DoModal();
    };
    EXPECT_EQ(runWith([](CDialog& open) { EXPECT_TRUE(open.userClick(IDOK)); }), IDOK);
    EXPECT_EQ(runWith([](CDialog& open) { EXPECT_TRUE(open.userKey(UserKey::kEnter)); }), IDOK);
    EXPECT_EQ(runWith([](CDialog& open) { EXPECT_TRUE(open.userKey(UserKey::kEscape)); }), IDCANCEL);
    EXPECT_EQ(runWith([](CDialog& open) { EXPECT_TRUE(open.userClose()); }), IDCANCEL);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_THAT(dialog.userClick(20).reason(), HasSubstr("closed"));
    EXPECT_TRUE(m_frontEnd.modeless.empty());
}

TEST_F(OpenDialog, ThatIsModelessIsHiddenWhenEndedAndGoneWithItsObject)
{
    EXPECT_THAT(m_frontEnd.modeless, ElementsAre(&m_dialog));
    EXPECT_TRUE(m_dialog.userKey(UserKey::kEscape));
    EXPECT_TRUE(m_frontEnd.modeless.empty());
    EXPECT_FALSE(m_dialog.IsWindowVisible());
    EXPECT_FALSE(m_dialog.userKey(UserKey::kEscape));
    {
        TestDialog other;
        other.Create();
        EXPECT_THAT(m_frontEnd.modeless, ElementsAre(&other));
    }
    EXPECT_TRUE(m_frontEnd.modeless.empty());
}

TEST_F(OpenDialog, SeesThePressBeforeTheToggleBeforeTheHandler)
{
    EXPECT_TRUE(m_dialog.userClick(21));
    EXPECT_TRUE(m_dialog.userClick(21));
    EXPECT_THAT(m_dialog.m_log, ElementsAre("down 21", "all on", "down 21", "all off"));
    EXPECT_EQ(m_dialog.focusedChild(), &m_dialog.m_all);
}

TEST_F(OpenDialog, TakesWhatTheUserTypesChoosesAndTicks)
{
    EXPECT_TRUE(m_dialog.userSetText(22, u"1,5"));
    EXPECT_EQ(m_dialog.m_edit.GetWindowText(), u"1,5");
    EXPECT_TRUE(m_dialog.userChoose(23, u"t1"));
    EXPECT_EQ(m_dialog.m_combo.GetCurSel(), 2) << "the exact entry counts before one that differs in case";
    EXPECT_TRUE(m_dialog.userChoose(23, 1));
    EXPECT_TRUE(m_dialog.userChoose(23, u"T2"));
    EXPECT_THAT(m_dialog.m_log, ElementsAre("chosen t1", "chosen T2"));
    EXPECT_TRUE(m_dialog.userTick(24, 1, true));
    EXPECT_TRUE(m_dialog.m_list.GetCheck(1));
    EXPECT_FALSE(m_dialog.m_list.GetCheck(0));
}

TEST_F(OpenDialog, RefusesWhatCannotBeDoneAndSaysWhy)
{
    EXPECT_THAT(m_dialog.userClick(99).reason(), HasSubstr("no control 99"));
    EXPECT_FALSE(m_dialog.userClick(kNoControlId));
    EXPECT_THAT(m_dialog.userClick(22).reason(), HasSubstr("edit"));
    EXPECT_THAT(m_dialog.userSetText(21, u"x").reason(), HasSubstr("checkbox"));
    EXPECT_FALSE(m_dialog.userChoose(23, u"T3"));
    EXPECT_FALSE(m_dialog.userChoose(23, -1));
    EXPECT_FALSE(m_dialog.userTick(24, 2, true));
    EXPECT_FALSE(m_dialog.userTab(2));
    m_dialog.m_all.EnableWindow(false);
    EXPECT_THAT(m_dialog.userClick(21).reason(), HasSubstr("disabled"));
    m_dialog.m_edit.ShowWindow(false);
    EXPECT_THAT(m_dialog.userSetText(22, u"x").reason(), HasSubstr("hidden"));
    EXPECT_TRUE(m_dialog.m_log.empty());
}

TEST_F(OpenDialog, LooksForAControlOnTheShownPageFirst)
{
    EXPECT_TRUE(m_dialog.userClick(20));
    EXPECT_TRUE(m_dialog.userTab(1));
    m_dialog.m_second.EnableWindow(false);
    EXPECT_FALSE(m_dialog.userClick(20)) << "a disabled page hides the dialog's control of the same id";
    EXPECT_THAT(m_dialog.m_log, ElementsAre("down 20", "first cleared", "first left", "second entered"));
}

TEST_F(OpenDialog, ShowsOnePageAndGivesItTheFocusWhereItWas)
{
    EXPECT_TRUE(m_dialog.userClick(20));
    EXPECT_TRUE(m_dialog.userTab(0));
    EXPECT_THAT(m_dialog.m_log, ElementsAre("down 20", "first cleared")) << "the shown page is not entered again";
    EXPECT_TRUE(m_dialog.userTab(1));
    EXPECT_FALSE(m_dialog.m_first.IsWindowVisible());
    EXPECT_TRUE(m_dialog.m_second.isReachable());
    EXPECT_EQ(m_frontEnd.focused, nullptr);
    EXPECT_TRUE(m_dialog.userTab(0));
    EXPECT_EQ(m_frontEnd.focused, &m_dialog.m_first.m_clear);
    EXPECT_EQ(m_dialog.m_first.rect(), (CRect{4, 21, 296, 159}));
    EXPECT_TRUE(m_dialog.m_first.userKey(UserKey::kEscape));
    EXPECT_TRUE(m_dialog.m_first.isOpen()) << "Escape never closes a page";
}

TEST_F(OpenDialog, KeepsItsLeastSizeFromEveryEdge)
{
    struct Case
    {
        SizingEdge edge;
        CRect wanted;
        CRect result;
    };
    const Case cases[] = {
        {kLeftEdge, {150, 0, 400, 300}, {120, 0, 400, 300}},
        {kTopEdge | kLeftEdge, {150, 100, 400, 300}, {120, 40, 400, 300}},
        {kBottomEdge | kRightEdge, {150, 100, 160, 110}, {150, 100, 430, 360}},
        {kTopEdge | kRightEdge, {0, 290, 500, 300}, {0, 40, 500, 300}},
        {kBottomEdge, {0, 0, 900, 100}, {0, 0, 900, 260}},
    };
    for (const Case& each : cases)
    {
        EXPECT_TRUE(m_dialog.userSizing(each.edge, each.wanted));
        EXPECT_EQ(m_dialog.rect(), each.result);
    }
    m_dialog.m_log.clear();
    EXPECT_TRUE(m_dialog.userResize(800, 500));
    EXPECT_TRUE(m_dialog.userResize(1, -5));
    EXPECT_THAT(m_dialog.m_log, ElementsAre("size 800x500", "size 280x260"));
    EXPECT_FALSE(m_dialog.m_first.userResize(800, 500));
}
