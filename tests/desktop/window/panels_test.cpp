#include "desktop/panels/layer_panel.h"
#include "desktop/panels/section_actions.h"
#include "desktop/window/window_test.h"

#include <QDialog>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeWidget>

#include <gmock/gmock.h>

#include <iostream>

using testing::HasSubstr;
using testing::Not;

namespace
{

enum LayerColumn
{
    kOn,
    kFrozen,
    kColor,
    kName
};

class Layers : public WindowTest
{
protected:
    Layers()
    {
        TestDrawing drawing;
        drawing.layer("ROAD", 0, 3).layer("TREES", 1, 2).layer("OFF", 0, -5);
        drawing.onLayer("ROAD");
        drawing.line({0, 0, 0}, {100, 50, 0});
        open("a.dxf", drawing.dxf());
        window().findChild<QDockWidget*>("layersPanel")->show();
    }

    QTreeWidget& list() { return find<QTreeWidget>("layers"); }
    QTreeWidgetItem& item(const QString& layer) { return *list().findItems(layer, Qt::MatchExactly, kName).front(); }
    void click(const QString& layer, LayerColumn column, Qt::KeyboardModifiers modifiers = {})
    {
        const QModelIndex index = list().model()->index(list().indexOfTopLevelItem(&item(layer)), column);
        QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers, list().visualRect(index).center());
    }
    /// A layer's pairs in the drawing as it would be saved.
    desktop::LayerState state(const QString& layer)
    {
        for (const desktop::LayerState& each : desktop::layersOf(tab().document()->database()))
            if (each.name == layer)
                return each;
        throw std::runtime_error{"no such layer"};
    }
    AcDbObjectId pickLine() { return view().pick(view().toWidget({50, 25})); }
};

TEST_F(Layers, AreSwitchedInTheDrawingOneStepAtATime)
{
    EXPECT_FALSE(pickLine().isNull());
    click("ROAD", kOn);
    EXPECT_TRUE(state("ROAD").isOff);
    EXPECT_TRUE(pickLine().isNull()) << "what is off is not seen";
    click("TREES", kFrozen);
    EXPECT_FALSE(state("TREES").isFrozen);
    EXPECT_EQ(window().tabs().tabText(0), "* a.dxf");
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(state("TREES").isFrozen);
    EXPECT_TRUE(state("ROAD").isOff);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(state("ROAD").isOff);
    EXPECT_FALSE(pickLine().isNull());
    EXPECT_EQ(window().tabs().tabText(0), "a.dxf");
    key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TRUE(state("ROAD").isOff);
}

TEST_F(Layers, OnlyTheChosenOnesAreShownAndAllAgain)
{
    click("TREES", kName);
    click("OFF", kName, Qt::ControlModifier);
    QTest::mouseClick(&find<QPushButton>("onlyLayers"), Qt::LeftButton);
    EXPECT_TRUE(state("ROAD").isOff);
    EXPECT_TRUE(state("0").isOff);
    EXPECT_FALSE(state("OFF").isOff);
    EXPECT_FALSE(state("TREES").isOff || state("TREES").isFrozen);
    QTest::mouseClick(&find<QPushButton>("allLayers"), Qt::LeftButton);
    EXPECT_FALSE(state("ROAD").isOff || state("OFF").isOff);
    key(Qt::Key_Z, Qt::ControlModifier);
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(state("OFF").isOff && state("TREES").isFrozen);
    EXPECT_EQ(window().tabs().tabText(0), "a.dxf");
}

TEST_F(Layers, ColoursAreChosenAndTypingFilters)
{
    whenAsked(
        [](QWidget& box)
        {
            box.findChild<QSpinBox*>("colorNumber")->setValue(30);
            static_cast<QDialog&>(box).accept();
        });
    click("ROAD", kColor);
    EXPECT_EQ(state("ROAD").color, 30);
    find<QLineEdit>("layerFilter").setFocus();
    type("tre");
    EXPECT_TRUE(item("ROAD").isHidden());
    EXPECT_FALSE(item("TREES").isHidden());
}

TEST_F(Layers, WhatCannotBeChangedIsToldAndLeftWhole)
{
    QString said;
    answer("Close", &said);
    click("0", kFrozen);
    EXPECT_TRUE(said.contains("current layer")) << said.toStdString();
    m_faults.unwritable.insert(state("TREES").id);
    answer("Close", &said);
    QTest::mouseClick(&find<QPushButton>("allLayers"), Qt::LeftButton);
    EXPECT_TRUE(said.contains("TREES")) << said.toStdString();
    EXPECT_TRUE(state("OFF").isOff) << "the layers before it are back as they were";
    EXPECT_EQ(window().tabs().tabText(0), "a.dxf");
}

/// A road of three sections in the plan, with their drawings above one another far from it.
std::string roadDrawing()
{
    TestDrawing drawing;
    TestAlignment& road = drawing.alignment("T1");
    road.extents(30, 30);
    for (int i = 0; i < 3; ++i)
    {
        const double x = 100.0 * i;
        TestSection& section = road.section("Km0+" + std::to_string(100 * i), {x, 20}, {x, -20});
        section.base({1000, 200.0 * i, 0});
        if (i < 2)
            section.ground({{-20, 3}, {0, 4}, {20, 5}});
        for (const double offset : {-10.0, 0.0, 10.0})
            section.point("CAY", {x, -offset, 14.0 + offset / 20.0});
    }
    drawing.feature("MUONG", {{-50, 5}, {250, 5}});
    return drawing.dxf();
}

class Sections : public WindowTest
{
protected:
    Sections() { open("road.dxf", roadDrawing()); }

    QTreeWidget& tree() { return find<QTreeWidget>("sections"); }
    desktop::DrawingView& sectionView() { return tab().sectionView(); }
    QString sectionName() { return find<QLabel>("sectionName").text(); }
    QString placeAt(desktop::DrawingView& where, double x, double y)
    {
        QTest::mouseMove(&where, where.toWidget({x, y}).toPoint());
        return find<QLabel>("place").text();
    }
};

TEST_F(Sections, AreListedWithWhatWasFoundAndFollowedInBothViews)
{
    EXPECT_TRUE(window().findChild<QDockWidget*>("sectionsPanel")->isVisible()) << "the drawing has an alignment";
    QTreeWidgetItem& line = *tree().topLevelItem(0);
    ASSERT_EQ(line.childCount(), 3);
    EXPECT_EQ(line.child(0)->text(1), "3 features, 3 codes");
    EXPECT_TRUE(line.child(2)->text(1).contains("no ground line"));

    key(Qt::Key_PageDown);
    EXPECT_EQ(sectionName(), "T1 · Km0+0");
    EXPECT_TRUE(sectionView().isVisible());
    EXPECT_NEAR(view().frame().centre.x, 0, 1e-6);
    EXPECT_NEAR(sectionView().frame().centre.x, 1000, 5);
    key(Qt::Key_PageDown);
    EXPECT_EQ(sectionName(), "T1 · Km0+100");
    EXPECT_NEAR(view().frame().centre.x, 100, 1e-6);
    EXPECT_NEAR(sectionView().frame().centre.y, 203, 5);
    EXPECT_EQ(tree().currentItem(), line.child(1));
    key(Qt::Key_PageUp);
    EXPECT_EQ(sectionName(), "T1 · Km0+0");
    key(Qt::Key_PageUp);
    EXPECT_TRUE(history().contains("first section"));
    tree().setCurrentItem(line.child(2));
    EXPECT_EQ(sectionName(), "T1 · Km0+200");
    EXPECT_TRUE(history().contains("Km0+200 has no ground line"));
    key(Qt::Key_F7);
    EXPECT_FALSE(sectionView().isVisible());
}

TEST_F(Sections, TheCursorTellsStationAndOffsetAndTheGround)
{
    view().zoomTo({149.99, -10.01, 150.01, -9.99});
    EXPECT_EQ(placeAt(view(), 150, -10), "T1: Km0+150.00, offset +10.00");
    key(Qt::Key_PageDown);
    key(Qt::Key_PageDown);
    // The survey points say that the datum lies at 10.
    sectionView().zoomTo({1009.99, 203.99, 1010.01, 204.01});
    EXPECT_EQ(placeAt(sectionView(), 1010, 204), "Offset +10.00, ground at elevation 14.50");
}

TEST_F(Sections, WhatWasDrawnIsHiddenByAKeyAndErasedAsOneStep)
{
    open("drawn.dxf",
         [&]
         {
             TestDrawing drawing;
             TestSection& section = drawing.alignment("T1").section("C1", {0, 20}, {0, -20});
             section.base({1000, 0, 0}).ground({{-20, 3}, {20, 5}});
             section.drawn({drawing.line({990, 10, 0}, {1010, 10, 0})});
             return drawing.dxf();
         }());
    const auto isSeen = [this] { return !view().pick(view().toWidget({1000, 10})).isNull(); };
    view().zoomTo({980, 0, 1020, 20});
    EXPECT_TRUE(isSeen());
    key(Qt::Key_F8);
    EXPECT_FALSE(isSeen());
    EXPECT_EQ(window().tabs().tabText(1), "drawn.dxf") << "the drawing knows nothing of it";
    key(Qt::Key_F8);
    EXPECT_TRUE(isSeen());
    type("erasedrawn ");
    EXPECT_FALSE(isSeen());
    EXPECT_EQ(window().tabs().tabText(1), "* drawn.dxf");
    view().setFocus();
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(isSeen());
    EXPECT_EQ(window().tabs().tabText(1), "drawn.dxf");
}

TEST_F(Sections, WhatIsWrongIsListedAndLedTo)
{
    TestDrawing drawing;
    TestAlignment& road = drawing.alignment("T1");
    road.section("C1", {0, 20}, {0, -20}).base({1000, 0, 0});
    TestSection& twice = road.section("C2", {50, 20}, {50, -20}).base({1000, 100, 0}).ground({{-20, 3}, {20, 3}});
    twice.point("CAY", {50, -8, 0});
    twice.point("CAY", {50, -8, 0});
    drawing.entity("CIRCLE", "100\nAcDbCircle\n 10\n300\n 20\n0\n 40\nwide\n");
    open("wrong.dxf", drawing.dxf());
    auto& faults = find<QListWidget>("faults");
    const auto choose = [&](const QString& words)
    {
        const QList<QListWidgetItem*> found = faults.findItems(words, Qt::MatchContains);
        if (found.isEmpty())
        {
            for (int i = 0; i < faults.count(); ++i)
                std::cerr << faults.item(i)->text().toStdString() << '\n';
            FAIL() << "nothing says " << words.toStdString();
        }
        QListWidgetItem& item = *found.front();
        QTest::mouseClick(faults.viewport(), Qt::LeftButton, {}, faults.visualItemRect(&item).center());
    };
    choose("C1 has no ground line");
    EXPECT_EQ(sectionName(), "T1 · C1");
    choose("CAY stands 4 times at +8.00");
    EXPECT_EQ(sectionName(), "T1 · C2");
    EXPECT_NEAR(view().frame().centre.x, 50, 1e-6);
    EXPECT_NEAR(view().frame().centre.y, -8, 1e-6);
    EXPECT_NEAR(sectionView().frame().centre.x, 1008, 1e-6);
    EXPECT_NEAR(sectionView().frame().centre.y, 103, 1e-6);
    EXPECT_EQ(faults.findItems("CIRCLE, damaged (1)", Qt::MatchContains).size(), 1);
}

TEST_F(Sections, ADrawingWithoutAlignmentSaysSo)
{
    open("empty.dxf", TestDrawing{}.dxf());
    EXPECT_TRUE(find<QLabel>("sectionMessage").text().contains("no alignment"));
    EXPECT_FALSE(tree().isVisible());
    QTest::mouseClick(window().tabs().tabBar(), Qt::LeftButton, {}, window().tabs().tabBar()->tabRect(0).center());
    EXPECT_TRUE(tree().isVisible());
}

} // namespace
