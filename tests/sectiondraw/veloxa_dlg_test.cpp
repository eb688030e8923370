#include "section_desk.h"
#include "settings/main_config_dlg.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace
{

class SectionsDialog : public SectionDesk
{
protected:
    SectionsDialog()
    {
        auto& one = m_drawing.alignment("Tuyen1");
        one.section("C1", {0, 20}, {0, -20});
        one.section("C2", {10, 20}, {10, -20});
        m_drawing.alignment("Tuyen2").section("D1", {20, 20}, {20, -20});
        session.open(m_drawing.dxf());
    }

    template <class T>
    static T& control(int id)
    {
        return dynamic_cast<T&>(*dialog().GetDlgItem(id));
    }
    static CComboBox& alignments() { return control<CComboBox>(kAlignments); }
    static bool isChecked(int id) { return control<CButton>(id).GetCheck(); }
    static std::vector<std::pair<std::u16string, bool>> rows()
    {
        std::vector<std::pair<std::u16string, bool>> rows;
        for (const CCheckListBox::Row& row : control<CCheckListBox>(kSections).rows())
            rows.emplace_back(row.text, row.checked);
        return rows;
    }
    std::string settings() const { return session.folder().read("settings/iniSymbol.cfg"); }

    TestDrawing m_drawing;
};

} // namespace

TEST_F(SectionsDialog, OpensWithWhatTheScanFoundAndTheLastChoice)
{
    g_DatabaseCS.m_nColorSymbol = 3;
    DssCommand();
    EXPECT_EQ(dialog().GetWindowText(), u"V\u1ebd \u0111\u1ecba v\u1eadt l\u00ean tr\u1eafc ngang");
    EXPECT_EQ(dialog().GetDlgItem(kClose)->GetWindowText(), u"\u0110\u00f3ng");
    EXPECT_THAT(alignments().items(), ElementsAre(u"Tuyen1", u"Tuyen2"));
    EXPECT_EQ(alignments().GetCurSel(), 0);
    EXPECT_THAT(rows(), ElementsAre(std::pair(u"C1", true), std::pair(u"C2", true)));
    EXPECT_TRUE(isChecked(kSelectAll));
    EXPECT_FALSE(isChecked(kDeselect));
    EXPECT_EQ(g_DatabaseCS.m_nColorSymbol, kColorByLayer);

    g_DatabaseCS.m_nCheckSelect = 1;
    g_DatabaseCS.m_strAlignment = u"TUYEN2";
    DssCommand();
    EXPECT_THAT(session.frontEnd.modeless, SizeIs(1)) << "a new run replaces the dialog of the earlier one";
    EXPECT_EQ(alignments().GetCurSel(), 1);
    EXPECT_THAT(rows(), ElementsAre(std::pair(u"D1", false)));
    EXPECT_TRUE(isChecked(kDeselect));
}

TEST_F(SectionsDialog, CheckBoxesMirrorEachOtherAndAreKept)
{
    DssCommand();
    click(kSelectAll);
    EXPECT_TRUE(isChecked(kDeselect));
    EXPECT_THAT(rows(), ElementsAre(std::pair(u"C1", false), std::pair(u"C2", false)));
    EXPECT_THAT(settings(), HasSubstr("Check Select=1\n"));
    EXPECT_EQ(session.frontEnd.focused, &session.frontEnd.window);

    click(kDeselect);
    EXPECT_TRUE(isChecked(kSelectAll));
    EXPECT_THAT(rows(), ElementsAre(std::pair(u"C1", true), std::pair(u"C2", true)));
    EXPECT_THAT(settings(), HasSubstr("Check Select=0\n"));

    click(kDeselect);
    EXPECT_TRUE(dialog().userChoose(kAlignments, u"Tuyen2"));
    EXPECT_THAT(rows(), ElementsAre(std::pair(u"D1", false)));
}

TEST_F(SectionsDialog, ClosingKeepsTheLargestScalesAndTheAlignment)
{
    DssCommand();
    section(0).m_listBlockData1.append().m_dScaleX = 1.5;
    BlockData& crossing = section(1).m_listBlockData2.append();
    crossing.m_dScaleX = 4;
    crossing.m_dScaleY = 5;
    crossing.m_dRotation = 0.25;
    section(1).m_listBlockData2.append().m_dScaleX = 4; // as large, but later
    section(0).m_listBlockFcode1.append().m_dRotation = 0.5;
    section(0).m_listBlockFcode2.append().m_dScaleX = 9;
    section(0, 1).m_listBlockFcode1.append().m_dScaleX = 0.5;
    EXPECT_TRUE(dialog().userChoose(kAlignments, u"Tuyen2"));
    click(kClose);

    EXPECT_FALSE(dialog().isOpen());
    EXPECT_THAT(settings(), HasSubstr("Symbol ScaleX=4.000000\nSymbol ScaleY=5.000000\nSymbol Rotate=0.250000\n"
                                      "Line ScaleX=1.000000\nLine ScaleY=1.000000\nLine Rotate=0.000000\n"
                                      "Alignment=Tuyen2\n"));
}

TEST_F(SectionsDialog, WithoutAlignmentsOfTheDrawingThereIsNothingToDoOrKeep)
{
    DssCommand();
    session.open(TestDrawing().dxf());
    DssCommand();
    EXPECT_THAT(alignments().items(), IsEmpty());
    EXPECT_THAT(rows(), IsEmpty());
    click(kDraw);
    click(kUndo);
    click(kClose);
    EXPECT_EQ(settings(), "");
}

TEST_F(SectionsDialog, EscapeClosesItAndKeepsNothing)
{
    DssCommand();
    EXPECT_TRUE(dialog().userKey(UserKey::kEscape));
    EXPECT_FALSE(dialog().isOpen());
    EXPECT_EQ(settings(), "");
}

TEST_F(SectionsDialog, SettingsOpenForTheTickedSectionsOnTheWholeDrawing)
{
    DssCommand();
    acDocManagerPtr()->curDocument()->view().zoomWindow({0, 0}, {0.1, 0.1});
    EXPECT_TRUE(dialog().userTick(kSections, 0, false));
    g_DatabaseCS.m_dTextHeight = 0.7;
    g_DatabaseCS.SaveSettings();
    g_DatabaseCS.m_dTextHeight = 9;
    bool opened = false;
    session.frontEnd.plays.emplace_back(
        [&](CDialog& opening)
        {
            opened = true;
            const auto& settings = dynamic_cast<MainConfigDlg&>(opening);
            EXPECT_EQ(settings.m_strAlignmentName, u"Tuyen1");
            EXPECT_EQ(settings.m_idAlignmentObject, g_DatabaseCS.m_listReferenceLines[0].m_idAlignment);
            EXPECT_THAT(settings.m_arrSectionIndices, ElementsAre(1));
            EXPECT_EQ(g_DatabaseCS.m_dTextHeight, 0.7) << "the settings file is read anew";
            EXPECT_TRUE(opening.userKey(UserKey::kEscape));
        });
    click(kSettings);
    EXPECT_TRUE(opened);
    EXPECT_GT(acDocManagerPtr()->curDocument()->view().shown().maxPoint().x, 19) << "zoomed to the extents";
}
