#include "dbkit/placing.h"
#include "dbkit/symbol_block.h"
#include "dbkit/symbol_tables.h"
#include "host/db/database.h"
#include "host/db/entity/block_reference.h"
#include "host/db/entity/text_entity.h"
#include "host/db/table/symbol_tables.h"
#include "host/ui/controls.h"
#include "support/test_drawing.h"
#include "support/test_session.h"
#include "util/folders.h"

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace
{

class Toolkit : public testing::Test
{
protected:
    /// Texts show where entities end up.
    static Acad::ErrorStatus place(AcDbObjectId& id, Coordinates coordinates, Space space)
    {
        auto text = std::make_unique<AcDbText>();
        text->setTextString(u"X");
        text->setHeight(1);
        text->setPosition({1, 0, 0});
        return AppendToSpace(std::move(text), id, coordinates, space);
    }
    AcGePoint3d placed(Coordinates coordinates)
    {
        AcDbObjectId id;
        EXPECT_EQ(place(id, coordinates, Space::kCurrent), Acad::eOk);
        return AcDbObjectPointer<AcDbText>(id)->position();
    }
    AcDbObjectIdArray entitiesOf(const char16_t* space)
    {
        return AcDbObjectPointer<AcDbBlockTableRecord>(GetSymbolId(space, SymbolTable::kBlocks))->entityIds();
    }

    TestSession session;
    TestDrawing drawing;
};

} // namespace

TEST_F(Toolkit, LayersAndStylesAreMadeOnceAndLeftAloneAfterwards)
{
    drawing.layer("OLD", 5, 3);
    session.open(drawing.dxf());
    ModuleFolder = u"/module";
    const TestLock lock;
    EnsureLayer(u"");
    EnsureLayer(u"old");
    EnsureLayer(u"C\u00E2y xanh");
    EnsureLayer(u"C\u00C2Y XANH");
    EnsureTextStyle(u"MADIAVATTN");
    EnsureTextStyle(u"madiavattn");

    std::vector<std::u16string> names{u"first"};
    ListLayerNames(names);
    EXPECT_THAT(names, ElementsAre(u"first", u"0", u"OLD", u"C\u00E2y xanh"));
    const AcDbObjectPointer<AcDbLayerTableRecord> old(GetSymbolId(u"OLD", SymbolTable::kLayers));
    EXPECT_TRUE(old->isFrozen() && old->isLocked());
    EXPECT_EQ(old->color().colorIndex(), 3);
    const AcDbObjectPointer<AcDbLayerTableRecord> made(GetSymbolId(u"C\u00E2y xanh", SymbolTable::kLayers));
    EXPECT_FALSE(made->isFrozen() || made->isLocked() || made->isOff());
    EXPECT_EQ(made->linetypeObjectId(), GetSymbolId(u"continuous", SymbolTable::kLinetypes));
    const AcDbObjectPointer<AcDbTextStyleTableRecord> style(GetTextStyleId(u"MADIAVATTN"));
    EXPECT_EQ(style->fileName(), u"/module\\Vnsimple.shx");
    EXPECT_EQ(style->textSize(), 0);
    ModuleFolder.clear();
}

TEST_F(Toolkit, AnErasedStyleIsKnownToThoseWhoAskForItButMadeAnewAndNotCounted)
{
    session.open(drawing.style("S1", "a.shx").style("S2", "b.shx").dxf());
    const TestLock lock;
    const auto countOfStyles = [](const std::string& file)
    { return file.substr(file.find(" 70\n", file.find("TABLE\n  2\nSTYLE\n")), 6); };
    const std::string before = countOfStyles(session.saved());
    const AcDbObjectId erased = GetTextStyleId(u"S1");
    AcDbObjectPointer<AcDbTextStyleTableRecord>(erased, AcDb::kForWrite)->erase();

    EXPECT_EQ(GetTextStyleId(u"S1"), erased);
    EXPECT_TRUE(GetSymbolId(u"S1", SymbolTable::kTextStyles).isNull());
    EnsureTextStyle(u"S1");
    EXPECT_NE(GetSymbolId(u"S1", SymbolTable::kTextStyles), erased);
    EXPECT_EQ(countOfStyles(session.saved()), before) << "one is gone, one is new";
}

TEST_F(Toolkit, NamesOfATableFillADropDownList)
{
    drawing.style("S1", "a.shx").style("S2", "b.shx");
    drawing.header("$CLAYER", "  8\nROAD\n").layer("ROAD");
    session.open(drawing.dxf());
    CComboBox combo;
    const AcDbObjectIdArray ids = FillSymbolCombo(combo, SymbolTable::kTextStyles, GetTextStyleId(u"s1"));
    EXPECT_EQ(combo.GetWindowText(), u"S1");
    ASSERT_EQ(ids.size(), combo.items().size());
    EXPECT_EQ(ids.back(), GetTextStyleId(u"S2"));
    CComboBox none;
    FillSymbolCombo(none, SymbolTable::kTextStyles, AcDbObjectId::kNull);
    EXPECT_EQ(none.GetCurSel(), -1);

    EXPECT_EQ(CurrentLayerName(), u"ROAD");
    std::vector<std::u16string> names;
    EXPECT_EQ(ListSymbolNames(names, static_cast<SymbolTable>(8)), 0);
    EXPECT_TRUE(GetSymbolId(u"S1", static_cast<SymbolTable>(-1)).isNull());
    EXPECT_TRUE(GetSymbolId(u"S3", SymbolTable::kTextStyles).isNull());
}

TEST_F(Toolkit, EntitiesGoIntoTheSpaceAskedForAndIntoWorldCoordinates)
{
    drawing.header("$UCSORG", " 10\n100.0\n 20\n50.0\n 30\n0.0\n");
    drawing.header("$UCSXDIR", " 10\n0.0\n 20\n1.0\n 30\n0.0\n");
    drawing.header("$UCSYDIR", " 10\n-1.0\n 20\n0.0\n 30\n0.0\n");
    session.open(drawing.dxf());
    const TestLock lock;
    EXPECT_TRUE(placed(Coordinates::kUser).isEqualTo({100, 51, 0}));
    EXPECT_TRUE(placed(Coordinates::kWorld).isEqualTo({1, 0, 0}));
    AcDbObjectId id;
    EXPECT_EQ(place(id, Coordinates::kWorld, Space::kPaper), Acad::eOk);
    EXPECT_THAT(entitiesOf(u"*Paper_Space"), ElementsAre(id));
    EXPECT_EQ(entitiesOf(u"*Model_Space").size(), 2u);
}

TEST_F(Toolkit, ThePaperSpaceIsTheCurrentOneWhileALayoutIsShown)
{
    drawing.header("$TILEMODE", " 70\n0\n").header("$PUCSORG", " 10\n9.0\n 20\n9.0\n 30\n0.0\n");
    session.open(drawing.dxf());
    const TestLock lock;
    EXPECT_TRUE(placed(Coordinates::kUser).isEqualTo({10, 9, 0}));
    AcDbObjectId id;
    EXPECT_EQ(place(id, Coordinates::kWorld, Space::kModel), Acad::eOk);
    EXPECT_THAT(entitiesOf(u"*Model_Space"), ElementsAre(id));
    EXPECT_EQ(entitiesOf(u"*Paper_Space").size(), 1u);
}

TEST_F(Toolkit, ARefusedEntityChangesNothing)
{
    session.open(drawing.dxf());
    const TestLock lock;
    session.faults.noAppend = true;
    AcDbObjectId id;
    EXPECT_NE(place(id, Coordinates::kWorld, Space::kModel), Acad::eOk);
    EXPECT_TRUE(id.isNull());
    EXPECT_TRUE(entitiesOf(u"*Model_Space").empty());
}

TEST_F(Toolkit, ASymbolFileIsReadOnceAndBecomesTheBlockOfItsName)
{
    TestDrawing symbol;
    symbol.line({0, 0, 0}, {1, 1, 0});
    session.folder().write("Cay xanh.dxf", symbol.dxf());
    session.folder().write("broken.dxf", "no drawing");
    session.open(drawing.dxf());
    const TestLock lock;
    const std::u16string path = session.folder().modulePath("Cay xanh.dxf");

    const auto block = LoadSymbolBlock(path);
    ASSERT_TRUE(block.has_value());
    EXPECT_EQ(*block, GetSymbolId(u"cay XANH", SymbolTable::kBlocks));
    EXPECT_EQ(AcDbObjectPointer<AcDbBlockTableRecord>(*block)->entityIds().size(), 1u);
    EXPECT_EQ(LoadSymbolBlock(u"Z:\\gone\\CAY XANH.dwg"), block);
    EXPECT_FALSE(LoadSymbolBlock(session.folder().modulePath("broken.dxf")).has_value());
    EXPECT_FALSE(LoadSymbolBlock(session.folder().modulePath("missing.dxf")).has_value());
    EXPECT_FALSE(LoadSymbolBlock(u".dxf").has_value());
    EXPECT_EQ(session.session().unreadableFiles().size(), 3u);
}

TEST(SymbolBlock, IsNamedAfterTheLastLevelOfThePathWithoutItsEnding)
{
    EXPECT_EQ(SymbolBlockName(u"C:\\sym\\Cay.dwg"), u"Cay");
    EXPECT_EQ(SymbolBlockName(u"/sym/a\\b.c/Den cao.DXF"), u"Den cao");
    EXPECT_EQ(SymbolBlockName(u"Cay.dwg\\"), u"Cay");
    EXPECT_EQ(SymbolBlockName(u"C:\\.dwg"), u"");
    EXPECT_EQ(SymbolBlockName(u"abc"), u"");
    EXPECT_EQ(SymbolBlockName(u""), u"");
}
