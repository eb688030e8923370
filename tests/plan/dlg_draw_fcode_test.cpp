#include "plan/dlg_draw_fcode.h"

#include "resources/control_ids.h"
#include "store/text/text.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace
{

using namespace control_ids::table;

/// The table as a user works it.
class PlanTable : public testing::Test
{
protected:
    PlanTable() { std::filesystem::create_directory(session.folder().path() / "settings"); }

    int run(const std::function<void(DlgDrawFCode&)>& play)
    {
        session.frontEnd.plays.push_back([&](CDialog& dialog) { play(dynamic_cast<DlgDrawFCode&>(dialog)); });
        return table.DoModal();
    }
    static void click(CDialog& dialog, int id)
    {
        const UserAction done = dialog.userClick(id);
        EXPECT_TRUE(done) << done.reason();
    }
    void answerFile(const std::string& name) { session.frontEnd.files.push_back(session.folder().modulePath(name)); }

    static CGridCtrl& grid(CDialog& dialog) { return dynamic_cast<CGridCtrl&>(*dialog.GetDlgItem(kGrid)); }
    /// A row of the table, its cells joined.
    static std::string row(CDialog& dialog, int number)
    {
        std::string text;
        for (int column = 0; column < 5; ++column)
            text += toUtf8(grid(dialog).GetItemText(number, column)) + "|";
        return text + (grid(dialog).cellAs<CGridCellCheck>(number, 5)->GetCheck() ? "on" : "off");
    }
    void writeState(const std::string& bytes) { session.folder().write("settings/FcodeBD.cfg", bytes); }

    TestSession session;
    DlgDrawFCode table;
};

} // namespace

TEST_F(PlanTable, StartsAsItWasLeft)
{
    writeState(
        "A#NULL#1#1#0#1\nb#c:\\cay, to.dwg#2,5#1e1#abc\nB#second#3#3#3#1\nshort#x#1#1\nD#f#1#1#0#1#1\nE#f#1#1#0#2\n");
    table.codes = {u"a", u"B", u"C", u"D", u"E"};
    const int result = run(
        [](DlgDrawFCode& dialog)
        {
            EXPECT_EQ(dialog.GetWindowText(), u"V\u1ebd \u0111\u1ecba v\u1eadt");
            EXPECT_EQ(row(dialog, 1), "a||1.00|1.00|0.00|on");
            EXPECT_EQ(row(dialog, 2), "B|c:\\cay, to.dwg|2.00|10.00|0.00|off");
            EXPECT_EQ(row(dialog, 3), "C||1.00|1.00|0.00|off");
            EXPECT_EQ(row(dialog, 4), "D|f|1.00|1.00|0.00|off") << "seven fields";
            EXPECT_EQ(row(dialog, 5), "E|f|1.00|1.00|0.00|on");
            EXPECT_EQ(grid(dialog).GetItemText(0, 5), u"Ch\u00e8n t\u1ea1i \u0111\u1ec9nh pline");
            EXPECT_FALSE(dialog.userCell(1, 1, u"typed")) << "the file is chosen, not typed";
        });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_TRUE(table.files.empty());
}

TEST_F(PlanTable, OkGivesNumbersAndKeepsTexts)
{
    table.codes = {u"C\u00e2y", u"B"};
    const int result = run(
        [&](DlgDrawFCode& dialog)
        {
            EXPECT_TRUE(dialog.userCell(1, 2, u""));
            EXPECT_TRUE(dialog.userCell(1, 3, u" 2.5x"));
            EXPECT_TRUE(dialog.userCell(1, 4, u""));
            EXPECT_TRUE(dialog.userCell(2, 2, u"x"));
            EXPECT_TRUE(dialog.userMark(2, 5, true));
            click(dialog, IDOK);
        });
    EXPECT_EQ(result, IDOK);
    EXPECT_THAT(table.scaleX, ElementsAre(1, 0));
    EXPECT_THAT(table.scaleY, ElementsAre(2.5, 1));
    EXPECT_THAT(table.rotation, ElementsAre(0, 0));
    EXPECT_THAT(table.atVertex, ElementsAre(0, 1));
    EXPECT_EQ(session.folder().read("settings/FcodeBD.cfg"), "C\xa9y#NULL#1# 2.5x#0#0\nB#NULL#x#1.00#0.00#1\n");
}

TEST_F(PlanTable, TravelsThroughAFile)
{
    session.folder().write("in.dvbd", "B,first,2,3,x,5\nb,second,1,1,1,1\nA,f,1,1,0\nC,f,1,1,0,1,1\nD,f,1,1\n\n");
    table.codes = {u"A", u"b", u"C", u"D"};
    run(
        [&](DlgDrawFCode& dialog)
        {
            click(dialog, kSaveFile); // no answer: cancelled
            answerFile("none.dvbd");
            click(dialog, kSaveFile);
            EXPECT_FALSE(std::filesystem::exists(session.folder().path() / "none.dvbd"));

            answerFile("in.dvbd");
            click(dialog, kOpenFile);
            EXPECT_EQ(row(dialog, 1), "A|f|1|1|0|off");
            EXPECT_EQ(row(dialog, 2), "b|first|2|3|x|on");
            EXPECT_EQ(row(dialog, 3), "C|f|1|1|0|off");
            EXPECT_EQ(row(dialog, 4), "D||1.00|1.00|0.00|off");

            EXPECT_TRUE(dialog.userCell(1, 2, u""));
            answerFile("out.dvbd");
            click(dialog, kSaveFile);
            EXPECT_EQ(session.folder().read("out.dvbd"), "A,f,1,1,0,0\nb,first,2,3,x,1\nC,f,1,1,0,0\n");

            click(dialog, kClear);
            EXPECT_EQ(row(dialog, 2), "b|||||off");
        });
    EXPECT_EQ(session.frontEnd.fileQuestions.back().defaultExtension, u"dvbd");
    EXPECT_TRUE(session.frontEnd.fileQuestions.back().saving);
}

TEST_F(PlanTable, SymbolIsChosenByTheButtonOfItsCell)
{
    table.codes = {u"A"};
    run(
        [&](DlgDrawFCode& dialog)
        {
            EXPECT_TRUE(dialog.userClickCell(1, 1)) << "on the text: nothing is asked";
            EXPECT_TRUE(dialog.userPress(1, 1)) << "no answer: cancelled";
            EXPECT_EQ(row(dialog, 1), "A||1.00|1.00|0.00|off");
            session.frontEnd.files.push_back(u"D:\\Sym\\TREE.dwg");
            EXPECT_TRUE(dialog.userPress(1, 1));
            EXPECT_EQ(row(dialog, 1), "A|D:\\Sym\\TREE.dwg|1.00|1.00|0.00|off");
        });
    ASSERT_EQ(session.frontEnd.fileQuestions.size(), 2U);
    EXPECT_EQ(session.frontEnd.fileQuestions[0].title, u"Select File");
    EXPECT_EQ(session.frontEnd.fileQuestions[0].defaultExtension, u"dwg");
}
