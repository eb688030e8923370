#include "settings/settings_session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using namespace control_ids::table;
using testing::ElementsAre;

class TablePages : public testing::Test
{
protected:
    SettingsSession m_session;

    ListBlockData& nearby(size_t section) { return m_session.section(section).m_listBlockData1; }
    ListBlockData& crossing(size_t section) { return m_session.section(section).m_listBlockData2; }
    ListBlockFcode& codes(size_t section) { return m_session.section(section).m_listBlockFcode1; }
    ListBlockFcode& plan(size_t section) { return m_session.section(section).m_listBlockFcode2; }
};

void press(CDialog& dialog, int id)
{
    const UserAction action = dialog.userClick(id);
    EXPECT_TRUE(action) << action.reason();
}

void type(CDialog& dialog, int row, int column, const std::u16string& text)
{
    const UserAction action = dialog.userCell(row, column, text);
    EXPECT_TRUE(action) << action.reason();
}

void expectEmptyTable(const CDialog& dialog)
{
    const std::vector<std::u16string> rows = shownTable(dialog);
    ASSERT_EQ(rows.size(), 10U);
    for (size_t row = 1; row < rows.size(); ++row)
        EXPECT_EQ(rows[row], u"||||");
}

} // namespace

TEST_F(TablePages, ShowOneRowForEachNameOfTheChosenSectionsWithTheValuesMetFirst)
{
    SettingsSession::addSymbol(crossing(0), u"ab", u"first.dwg").m_dScaleX = 2.0;
    SettingsSession::addSymbol(nearby(1), u"AB", u"second.dwg");
    SettingsSession::addSymbol(nearby(1), u"");
    SettingsSession::addSymbol(nearby(2), u"unchosen");
    SettingsSession::addFcode(codes(0), u"DC1", u"D:\\dc.dwg").m_dRotation = 1.505;
    SettingsSession::addFcode(codes(0), u"");
    SettingsSession::addFcode(plan(1), u"Cây");
    m_session.run({0, 1},
                  [](CDialog& dialog)
                  {
                      EXPECT_THAT(shownTable(dialog), ElementsAre(u"Tên|Tên file|Tỷ lệ X|Tỷ lệ Y|Góc quay",
                                                                  u"||1.00|1.00|0.00", u"ab|first.dwg|2.00|1.00|0.00"));
                      EXPECT_TRUE(dialog.userTab(1));
                      EXPECT_THAT(shownTable(dialog), ElementsAre(u"Fcode|Tên file|Tỷ lệ X|Tỷ lệ Y|Góc quay",
                                                                  u"DC1|D:\\dc.dwg|1.00|1.00|1.50"));
                      EXPECT_TRUE(dialog.userTab(2));
                      EXPECT_EQ(shownTable(dialog).at(1), u"Cây||1.00|1.00|0.00");
                  });
}

TEST_F(TablePages, WriteTheirRowsIntoEveryChosenRecordOnOk)
{
    BlockData& symbol = SettingsSession::addSymbol(nearby(0), u"ab");
    BlockData& sameName = SettingsSession::addSymbol(crossing(1), u"AB");
    BlockData& unchosen = SettingsSession::addSymbol(crossing(2), u"ab");
    BlockFcode& code = SettingsSession::addFcode(codes(1), u"DC1");
    BlockFcode& planCode = SettingsSession::addFcode(plan(1), u"DC1");
    const int result = m_session.run({1, 0},
                                     [](CDialog& dialog)
                                     {
                                         type(dialog, 1, 2, u"1,5");
                                         type(dialog, 1, 3, u" 2.5e1x");
                                         type(dialog, 1, 4, u"abc");
                                         EXPECT_FALSE(dialog.userCell(1, 0, u"key"));
                                         EXPECT_FALSE(dialog.userCell(1, 1, u"file"));
                                         EXPECT_TRUE(dialog.userTab(2));
                                         type(dialog, 1, 4, u"-1");
                                         press(dialog, IDOK);
                                     });
    EXPECT_EQ(result, IDOK);
    for (const BlockData* row : {&symbol, &sameName})
    {
        EXPECT_EQ(row->m_dScaleX, 1.0);
        EXPECT_EQ(row->m_dScaleY, 25.0);
        EXPECT_EQ(row->m_dRotation, 0.0);
    }
    EXPECT_EQ(unchosen.m_dScaleY, 1.0);
    EXPECT_EQ(code.m_dRotation, 0.0);
    EXPECT_EQ(planCode.m_dRotation, -1.0);
    EXPECT_NE(m_session.settingsFile(), "");
}

TEST_F(TablePages, ChangeNoRecordWhenCancelled)
{
    const BlockData& symbol = SettingsSession::addSymbol(nearby(0), u"ab", u"a.dwg");
    m_session.run({0},
                  [](CDialog& dialog)
                  {
                      press(dialog, kClear);
                      EXPECT_TRUE(dialog.userKey(UserKey::kEscape));
                  });
    EXPECT_EQ(symbol.m_strFile, u"a.dwg");
    EXPECT_EQ(m_session.settingsFile(), "");
}

TEST_F(TablePages, ClearKeepsTheKeysAndForgetsWhatWasUsedLast)
{
    const BlockData& symbol = SettingsSession::addSymbol(nearby(0), u"ab", u"a.dwg");
    g_DatabaseCS.m_strPathSelect = u"D:\\";
    g_DatabaseCS.m_strFileLineLastSelect = u"D:\\a.dwg";
    g_DatabaseCS.m_dLineScaleY = 3.0;
    m_session.run({0},
                  [](CDialog& dialog)
                  {
                      press(dialog, kClear);
                      EXPECT_EQ(shownTable(dialog).at(1), u"ab||||");
                      press(dialog, IDOK);
                  });
    EXPECT_EQ(symbol.m_strFile, u"");
    EXPECT_EQ(symbol.m_dScaleX, 0.0);
    EXPECT_EQ(g_DatabaseCS.m_strPathSelect + g_DatabaseCS.m_strFileLineLastSelect, u"");
    EXPECT_EQ(g_DatabaseCS.m_dSymbolScaleX + g_DatabaseCS.m_dLineScaleY, 0.0);
}

TEST_F(TablePages, TakeASymbolFileFromTheButtonOfItsRow)
{
    SettingsSession::addSymbol(nearby(0), u"ab");
    SettingsSession::addFcode(codes(0), u"DC1");
    m_session.frontEnd.files = {u"D:\\sym\\cây.dwg", std::nullopt, u"/sym/dc.dxf", u"\\"};
    m_session.run({0},
                  [&](CDialog& dialog)
                  {
                      EXPECT_TRUE(dialog.userClickCell(1, 1));
                      EXPECT_TRUE(dialog.userClickCell(0, 1));
                      EXPECT_TRUE(m_session.frontEnd.fileQuestions.empty());
                      EXPECT_TRUE(dialog.userPress(1, 1));
                      EXPECT_EQ(g_DatabaseCS.m_strPathSelect, u"D:\\sym\\");
                      EXPECT_TRUE(dialog.userPress(1, 1)) << "cancelled";
                      EXPECT_EQ(shownTable(dialog).at(1), u"ab|D:\\sym\\cây.dwg|1.00|1.00|0.00");
                      EXPECT_TRUE(dialog.userTab(1));
                      EXPECT_TRUE(dialog.userPress(1, 1));
                  });
    EXPECT_EQ(g_DatabaseCS.m_strFileSymbolLastSelect, u"D:\\sym\\cây.dwg");
    EXPECT_EQ(g_DatabaseCS.m_strFileLineLastSelect, u"/sym/dc.dxf");
    EXPECT_EQ(g_DatabaseCS.m_strPathSelect, u"/sym/");
    EXPECT_EQ(m_session.frontEnd.fileQuestions.front().defaultExtension, u"dwg");

    m_session.run({0}, [](CDialog& dialog) { EXPECT_TRUE(dialog.userPress(1, 1)); });
    EXPECT_EQ(g_DatabaseCS.m_strPathSelect, u"") << "of separators only";
}

TEST_F(TablePages, WithoutRowsShowAnEmptyTableAndTheFeatureCodesAreDisabled)
{
    SettingsSession::addFcode(codes(0), u"DC1");
    for (const std::vector<size_t>& chosen : {std::vector<size_t>{}, std::vector<size_t>{2}})
    {
        m_session.run(chosen,
                      [](CDialog& dialog)
                      {
                          expectEmptyTable(dialog);
                          type(dialog, 1, 2, u"1");
                          EXPECT_TRUE(dialog.userTab(1));
                          expectEmptyTable(dialog);
                          EXPECT_FALSE(dialog.userCell(1, 2, u"1"));
                          EXPECT_FALSE(dialog.userClick(kSaveFile));
                          press(dialog, IDOK);
                      });
    }
}

TEST_F(TablePages, CarryAllTablesInOneLibraryFile)
{
    SettingsSession::addSymbol(nearby(0), u"A1", u"D:\\a1.dwg");
    SettingsSession::addSymbol(nearby(0), u"without file").m_dScaleX = 2.0;
    SettingsSession::addFcode(plan(0), u"Cây", u"cây.dwg");
    const std::u16string path = m_session.folder().modulePath("set.dv");
    m_session.frontEnd.files = {path};
    m_session.run({0}, [](CDialog& dialog) { press(dialog, kSaveFile); });
    EXPECT_EQ(m_session.folder().read("set.dv"),
              "[SYMBOL]\nA1,D:\\a1.dwg,1.00,1.00,0.00\n[BD]\nC\xA9y,c\xA9y.dwg,1.00,1.00,0.00\n");

    BlockData& again = SettingsSession::addSymbol(nearby(1), u"a1", u"other.dwg");
    SettingsSession::addSymbol(nearby(1), u"A2", u"kept.dwg");
    m_session.frontEnd.files = {path};
    m_session.run({1},
                  [](CDialog& dialog)
                  {
                      EXPECT_TRUE(dialog.userTab(0));
                      press(dialog, kOpenFile);
                      EXPECT_EQ(shownTable(dialog).at(1), u"a1|D:\\a1.dwg|1.00|1.00|0.00");
                      EXPECT_EQ(shownTable(dialog).at(2), u"A2|kept.dwg|1.00|1.00|0.00");
                      press(dialog, IDOK);
                  });
    EXPECT_EQ(again.m_strFile, u"D:\\a1.dwg");
}

TEST_F(TablePages, LeaveALibraryFileAloneWhenThereIsNothingToSave)
{
    SettingsSession::addSymbol(nearby(0), u"A1");
    m_session.folder().write("set.dv", "kept");
    m_session.frontEnd.files = {m_session.folder().modulePath("set.dv"), m_session.folder().modulePath("none.dv"),
                                std::nullopt};
    m_session.run({0},
                  [](CDialog& dialog)
                  {
                      press(dialog, kSaveFile);
                      press(dialog, kOpenFile);
                      press(dialog, kOpenFile);
                      EXPECT_EQ(shownTable(dialog).at(1), u"A1||1.00|1.00|0.00");
                  });
    EXPECT_EQ(m_session.folder().read("set.dv"), "kept");
}
