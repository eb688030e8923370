#include "plan/dvbd_command.h"

#include "host/db/entity/block_reference.h"
#include "host/db/host_services.h"
#include "host/db/table/symbol_tables.h"
#include "plan/dlg_draw_fcode.h"
#include "resources/control_ids.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

#include <sstream>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace
{

constexpr int kCode = 0;
constexpr int kFile = 1;
constexpr int kScaleX = 2;
constexpr int kRotation = 4;
constexpr int kAtVertex = 5;

/// A user who runs DVBD and fills its table.
class Dvbd : public testing::Test
{
protected:
    using Play = std::function<void(CDialog&)>;

    void run(const Play& play)
    {
        session.frontEnd.plays.push_back(play);
        DvbdCommand();
        EXPECT_THAT(session.frontEnd.plays, IsEmpty());
    }
    /// Gives the code in each row its symbol and confirms.
    void place(std::initializer_list<std::pair<int, std::u16string>> files, bool atVertex = false)
    {
        run(
            [&](CDialog& table)
            {
                for (const auto& [row, file] : files)
                {
                    browse(table, row, file);
                    expectDone(table.userMark(row, kAtVertex, atVertex));
                }
                expectDone(table.userClick(IDOK));
            });
    }
    void browse(CDialog& table, int row, const std::u16string& file)
    {
        session.frontEnd.files.push_back(file);
        expectDone(table.userPress(row, kFile));
    }
    static void expectDone(const UserAction& action) { EXPECT_TRUE(action) << action.reason(); }
    std::u16string symbolFile(const std::string& name) const
    {
        TestDrawing symbol;
        symbol.line({-1, 0, 0}, {1, 0, 0});
        session.folder().write(name, symbol.dxf());
        return session.folder().modulePath(name);
    }
    /// Living block references of the drawing, a line each.
    static std::vector<std::string> blocks();

    TestSession session;
};

std::vector<std::string> Dvbd::blocks()
{
    AcDbDatabase& drawing = *acdbHostApplicationServices()->workingDatabase();
    AcDbObjectId space;
    AcDbObjectPointer<AcDbBlockTable>(drawing.tableId(AcDbBlockTable::desc()))->getIdAt(u"*Model_Space", space);
    std::vector<std::string> lines;
    for (const AcDbObjectId id : AcDbObjectPointer<AcDbBlockTableRecord>(space)->entityIds())
    {
        const AcDbObjectPointer<AcDbBlockReference> block(id);
        if (!block)
            continue;
        const AcDbObjectPointer<AcDbBlockTableRecord> definition(block->blockTableRecord());
        std::ostringstream out;
        out << toUtf8(definition->getName()) << " " << block->position().x << "," << block->position().y << ","
            << block->position().z << " x" << block->scaleFactors().sx << "," << block->scaleFactors().sy << " r"
            << block->rotation() << " " << toUtf8(block->layer());
        lines.push_back(out.str());
    }
    return lines;
}

} // namespace

TEST_F(Dvbd, EachPointGetsTheSymbolOfItsCodeWhateverItsCase)
{
    TestDrawing drawing;
    drawing.point("cay", {1, 2, 3});
    drawing.point("COT", {4, 5, 6});
    drawing.point("CAY", {7, 8, 9});
    drawing.point("", {0, 0, 0});
    drawing.point("DA", {10, 11, 12});
    session.open(drawing.dxf());
    const std::u16string tree = symbolFile("TREE.dxf");
    run(
        [&](CDialog& table)
        {
            EXPECT_EQ(dynamic_cast<CGridCtrl&>(*table.GetDlgItem(control_ids::table::kGrid)).GetRowCount(), 4);
            browse(table, 1, tree);
            expectDone(table.userCell(1, kScaleX, u"2.5"));
            expectDone(table.userCell(1, kRotation, u"0.25 rad"));
            browse(table, 2, symbolFile("Cot.dxf"));
            expectDone(table.userCell(2, kScaleX, u""));
            expectDone(table.userClick(IDOK));
        });
    EXPECT_THAT(blocks(), ElementsAre("TREE 1,2,3 x2.5,1 r0.25 DiaVatBinhDo", "Cot 4,5,6 x1,1 r0 DiaVatBinhDo",
                                      "TREE 7,8,9 x2.5,1 r0.25 DiaVatBinhDo"));
    EXPECT_EQ(session.folder().read("settings/FcodeBD.cfg"), "cay#" + toUtf8(tree) + "#2.5#1.00#0.25 rad#0\nCOT#" +
                                                                 toUtf8(session.folder().modulePath("Cot.dxf")) +
                                                                 "#1#1.00#0.00#0\nDA#NULL#1.00#1.00#0.00#0\n");
}

TEST_F(Dvbd, ErasesWhatStandsOnItsLayerAlsoWhenCancelled)
{
    TestDrawing drawing;
    drawing.beginBlock("TREE").line({0, 0, 0}, {1, 0, 0});
    drawing.endBlock().point("CAY", {1, 2, 3});
    drawing.insert("TREE", {5, 5, 0});
    drawing.onLayer("DiaVatBinhDo").insert("TREE", {6, 6, 0});
    drawing.entity("INSERT", " 66\n1\n100\nAcDbBlockReference\n  2\nTREE\n 10\n7.0\n 20\n7.0\n 30\n0.0\n");
    drawing.entity("ATTRIB", "100\nAcDbText\n 10\n0.0\n 20\n0.0\n 30\n0.0\n 40\n1.0\n  1\nNo 7\n"
                             "100\nAcDbAttribute\n  2\nNO\n 70\n0\n");
    drawing.entity("SEQEND", "");
    drawing.line({0, 0, 0}, {1, 1, 0});
    session.open(drawing.dxf());
    run([](CDialog& table) { expectDone(table.userClick(IDCANCEL)); });
    EXPECT_THAT(blocks(), ElementsAre("TREE 5,5,0 x1,1 r0 0"));
    EXPECT_EQ(session.folder().read("settings/FcodeBD.cfg"), "");
    const std::string saved = session.saved();
    EXPECT_THAT(saved, Not(HasSubstr("ATTRIB"))) << "what belongs to a reference goes with it";
    EXPECT_THAT(saved, Not(HasSubstr("SEQEND")));

    session.folder().write("Tree.dxf", "the block that is there counts");
    place({{1, session.folder().modulePath("Tree.dxf")}});
    place({});
    EXPECT_THAT(blocks(), ElementsAre("TREE 5,5,0 x1,1 r0 0", "TREE 1,2,3 x1,1 r0 DiaVatBinhDo"));
}

TEST_F(Dvbd, FlaggedCodesArePlacedAtVerticesOfCodedPolylinesOnly)
{
    TestDrawing drawing;
    for (const double x : {10.0, 20.0, 30.0, 40.0, 50.0})
        drawing.point("COT", {x, 20, 5});
    drawing.feature("RAO", {{0, 0}, {10, 20}});
    drawing.feature2d("RAO", {{20, 20.001}, {30, 20}});
    drawing.feature3d("RAO", {{40, 20, 7}, {0, 0, 7}});
    drawing.feature("", {{50, 20}, {0, 0}});
    session.open(drawing.dxf());
    place({{1, symbolFile("Cot.dxf")}}, true);
    EXPECT_THAT(blocks(), ElementsAre("Cot 10,20,5 x1,1 r0 DiaVatBinhDo", "Cot 30,20,5 x1,1 r0 DiaVatBinhDo",
                                      "Cot 40,20,5 x1,1 r0 DiaVatBinhDo"));
}

TEST_F(Dvbd, ASymbolThatCannotBeReadEndsThePlacing)
{
    TestDrawing drawing;
    for (const char* code : {"A", "B", "C"})
        drawing.point(code, {1, 1, 1});
    session.open(drawing.dxf());
    session.folder().write("Bad.dxf", "no drawing");
    place({{1, symbolFile("A.dxf")}, {2, session.folder().modulePath("Bad.dxf")}, {3, symbolFile("C.dxf")}});
    EXPECT_THAT(blocks(), ElementsAre("A 1,1,1 x1,1 r0 DiaVatBinhDo"));
}

TEST_F(Dvbd, WithoutPointsTheTableIsEmptyAndOkKeepsNothing)
{
    session.open(TestDrawing().dxf());
    run(
        [&](CDialog& table)
        {
            auto& grid = dynamic_cast<CGridCtrl&>(*table.GetDlgItem(control_ids::table::kGrid));
            EXPECT_EQ(grid.GetRowCount(), 20);
            EXPECT_EQ(grid.GetItemText(19, kCode), u"");
            EXPECT_TRUE(grid.cellAs<CGridCellCheck>(19, kAtVertex)->GetCheck());
            expectDone(table.userClick(IDOK));
        });
    EXPECT_EQ(session.folder().read("settings/FcodeBD.cfg"), "");
}
