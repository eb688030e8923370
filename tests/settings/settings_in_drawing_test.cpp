#include "dbkit/symbol_tables.h"
#include "sections/refresh.h"
#include "sections/scan.h"
#include "sections/survey_info.h"
#include "settings/drawing_settings.h"
#include "settings/settings_session.h"
#include "support/test_drawing.h"

#include <gmock/gmock.h>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class SettingsInDrawing : public testing::Test
{
protected:
    /// Opens a drawing of two alignments and takes the one at `index` for the dialog.
    void open(const std::string& dxf, size_t index = 0)
    {
        m_session.open(dxf);
        AcDbObjectIdArray ids;
        std::vector<std::u16string> names;
        ASSERT_EQ(FindAlignments(ids, names), 2);
        m_session.alignment = ids[index];
        m_other = ids[1 - index];
        m_symbol = &SettingsSession::addSymbol(m_session.section(0).m_listBlockData2, u"Cây");
    }

    TestDrawing& twoAlignments()
    {
        m_drawing.alignment("T1").section("C1", {0, 20}, {0, -20});
        m_drawing.alignment("T2").section("C1", {50, 20}, {50, -20});
        return m_drawing;
    }

    SettingsSession m_session;
    TestDrawing m_drawing;
    AcDbObjectId m_other;
    BlockData* m_symbol = nullptr;
};

void cancel(CDialog& dialog)
{
    EXPECT_TRUE(dialog.userKey(UserKey::kEscape));
}

} // namespace

TEST_F(SettingsInDrawing, AreKeptWhateverWayTheDialogEndsAndTakenWhenItOpensAgain)
{
    open(twoAlignments().dxf());
    m_session.run({0}, cancel);
    EXPECT_THAT(ReadDrawingSettings(m_session.alignment), ElementsAre(u"[ALL]", u"5.00,5.00,0.40,2.00"));

    m_session.frontEnd.files = {u"D:\\cây.dwg"};
    m_session.run({0},
                  [](CDialog& dialog)
                  {
                      EXPECT_TRUE(dialog.userPress(1, 1));
                      EXPECT_TRUE(dialog.userTab(3));
                      EXPECT_TRUE(dialog.userSetText(control_ids::general::kForward, u"7"));
                      EXPECT_TRUE(dialog.userSetText(control_ids::general::kTextHeight, u""));
                      cancel(dialog);
                  });
    EXPECT_EQ(m_symbol->m_strFile, u"");
    EXPECT_EQ(g_DatabaseCS.m_dForwardDistance, 5.0);

    open(m_session.saved());
    m_session.run({0}, cancel);
    EXPECT_EQ(m_symbol->m_strFile, u"D:\\cây.dwg") << "applied although the dialog was cancelled";
    EXPECT_EQ(g_DatabaseCS.m_dForwardDistance, 7.0);
    EXPECT_EQ(g_DatabaseCS.m_dTextHeight, 0.4);
    EXPECT_TRUE(g_DatabaseCS.m_bDistanceChanged);
    EXPECT_THAT(ReadDrawingSettings(m_session.alignment),
                ElementsAre(u"[SYMBOL]", u"Cây,D:\\cây.dwg,1.00,1.00,0.00", u"[ALL]", u"5.00,7,0.4,2.00"));
    EXPECT_THAT(ReadDrawingSettings(m_other), IsEmpty());
}

TEST_F(SettingsInDrawing, CountOnlyAsFarAsTheyCanBeRead)
{
    open(twoAlignments().dxf());
    for (const char16_t* general : {u"6,6,6", u"6,6,6,6,6", u""})
    {
        WriteDrawingSettings(m_session.alignment,
                             {u"[symbol]", u"Cây,too,few", u"[All]", general, u"9,9,9,9", u"[BD]", u"Cây,x,1,1,1"});
        m_session.run({0}, cancel);
        EXPECT_EQ(m_symbol->m_strFile, u"");
        EXPECT_EQ(g_DatabaseCS.m_dForwardDistance, 5.0);
    }
}

TEST_F(SettingsInDrawing, AreNeitherReadNorWrittenWithoutAnAlignmentOfIt)
{
    open(twoAlignments().dxf());
    const std::string before = m_session.saved();
    WriteDrawingSettings(AcDbObjectId::kNull, {u"[ALL]"});
    WriteDrawingSettings(m_session.alignment, {});
    EXPECT_EQ(m_session.saved(), before);

    const AcDbObjectId first = m_session.alignment;
    WriteDrawingSettings(first, {u"[ALL]", u"6,6,6,6"});
    open(before);
    EXPECT_THAT(ReadDrawingSettings(first), IsEmpty()) << "of a drawing that is not the current one";
    WriteDrawingSettings(first, {u"[ALL]"});
    EXPECT_EQ(m_session.saved(), before);
}

TEST_F(SettingsInDrawing, OfferItsLayersAndTextStyles)
{
    twoAlignments().layer("ROAD", 0, 3).layer("Cây", 0, 5).header("$CLAYER", "  8\nROAD\n");
    open(m_drawing.style("Standard", "txt").style("madiavattn2", "Vnsimple.shx").dxf());
    m_session.run({0},
                  [](CDialog& dialog)
                  {
                      EXPECT_TRUE(dialog.userTab(3));
                      const CDialog& page = *dialog.tabControl()->currentPage();
                      auto* grid = dynamic_cast<CGridCtrl*>(page.GetDlgItem(control_ids::general::kOptions));
                      EXPECT_THAT(grid->cellAs<CGridCellCombo>(1, 2)->items(), ElementsAre(u"0", u"ROAD", u"Cây"));
                      EXPECT_EQ(grid->GetItemText(4, 2), u"ROAD");
                      EXPECT_EQ(page.GetDlgItem(control_ids::general::kTextStyle)->GetWindowText(), u"madiavattn2");
                      EXPECT_TRUE(dialog.userClick(IDOK));
                  });
    EXPECT_EQ(g_DatabaseCS.m_nColorSymbol, 3) << "ByLayer is the current layer's colour";
    EXPECT_FALSE(g_DatabaseCS.m_idTextStyle.isNull());
    EXPECT_EQ(g_DatabaseCS.m_idTextStyle, GetTextStyleId(u"MADIAVATTN2"));
}

TEST_F(SettingsInDrawing, TakeNoTextStyleWhenTheModulesOwnIsMissing)
{
    open(twoAlignments().style("Standard", "txt").dxf());
    g_DatabaseCS.m_idTextStyle = GetTextStyleId(u"Standard");
    m_session.run({0}, [](CDialog& dialog) { EXPECT_TRUE(dialog.userClick(IDOK)); });
    EXPECT_TRUE(g_DatabaseCS.m_idTextStyle.isNull());
}

TEST_F(SettingsInDrawing, RefreshTheSectionsOnlyWhenADistanceChanges)
{
    m_drawing.beginBlock("TREE").line({0, 0, 0}, {0, 1, 0});
    m_drawing.endBlock().insert("TREE", {6, 5, 0}, "CAY");
    m_drawing.insert("TREE", {-4, 5, 0}, "DEN");
    open(twoAlignments().dxf());
    ScanCrossSections(g_DatabaseCS);
    EXPECT_TRUE(m_session.session().runCommand(u"zoom e"));
    RefreshAllSections(g_DatabaseCS);
    m_session.run(
        {0},
        [](CDialog& dialog)
        {
            EXPECT_TRUE(dialog.userCell(1, 2, u"9"));
            EXPECT_TRUE(dialog.userTab(3));
            EXPECT_TRUE(dialog.userSetText(control_ids::general::kForward, u"5.0004"));
            EXPECT_TRUE(dialog.userTab(0));
            EXPECT_FALSE(g_DatabaseCS.m_bDistanceChanged);
            EXPECT_THAT(shownTable(dialog), ElementsAre(testing::_, u"DEN||9|1.00|0.00")) << "kept as the user left it";

            EXPECT_TRUE(dialog.userTab(3));
            EXPECT_TRUE(dialog.userSetText(control_ids::general::kForward, u"7"));
            EXPECT_TRUE(dialog.userSetText(control_ids::general::kBackward, u"7"));
            EXPECT_TRUE(dialog.userTab(0));
            EXPECT_THAT(shownTable(dialog), ElementsAre(testing::_, u"CAY||1.00|1.00|0.00", u"DEN||1.00|1.00|0.00"));
            EXPECT_TRUE(dialog.userCell(1, 2, u"9"));
            EXPECT_TRUE(dialog.userTab(1));
            EXPECT_TRUE(dialog.userTab(0));
            EXPECT_EQ(shownTable(dialog).at(1), u"CAY||1.00|1.00|0.00") << "rebuilt again";
        });
    EXPECT_EQ(g_DatabaseCS.m_dForwardDistance, 7.0);
    EXPECT_EQ(g_DatabaseCS.m_dBackwardDistance, 7.0);
    EXPECT_TRUE(g_DatabaseCS.m_bDistanceChanged);
}
