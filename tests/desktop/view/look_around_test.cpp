#include "desktop/view/view_test.h"

#include <gmock/gmock.h>

using testing::DoubleNear;
using testing::SizeIs;

namespace
{

constexpr double kPixel = 0.05; ///< of what is compared, pixels

/// A drawing of 100 by 60 units: a frame on the layer ROAD, a red line from its lower left to its upper right corner, a
/// circle that no line touches.
struct Plan
{
    TestDrawing drawing;
    uint64_t frame = 0;
    uint64_t line = 0;
    uint64_t circle = 0;

    Plan()
    {
        drawing.onLayer("ROAD");
        frame = drawing.feature("", {{0, 0}, {100, 0}, {100, 60}, {0, 60}}, true);
        drawing.onLayer("0");
        line = drawing.entity("LINE", " 62\n1\n100\nAcDbLine\n 10\n0\n 20\n0\n 11\n100\n 21\n60\n");
        circle = drawing.entity("CIRCLE", " 62\n3\n100\nAcDbCircle\n 10\n20\n 20\n40\n 40\n5\n");
    }
};

} // namespace

TEST_F(ViewTest, WheelKeepsThePlaceUnderTheCursorAndTwoMiddleClicksShowEverything)
{
    show(Plan{}.drawing);
    const desktop::ViewFrame whole = m_view.frame();
    const QPoint cursor{310, 77};
    const picture::Vertex before = m_view.toWorld(cursor);
    wheel(cursor, 5);
    const picture::Vertex after = m_view.toWorld(cursor);
    const double pixel = m_view.frame().height / kHeight;
    EXPECT_LT(m_view.frame().height, whole.height / 3);
    EXPECT_THAT(after.x, DoubleNear(before.x, kPixel * pixel));
    EXPECT_THAT(after.y, DoubleNear(before.y, kPixel * pixel));
    QTest::mouseDClick(&m_view, Qt::MiddleButton, {}, cursor);
    EXPECT_EQ(m_view.frame().height, whole.height);
    EXPECT_EQ(m_view.frame().centre.x, whole.centre.x);
    const Box2d shown = m_view.shownBox();
    EXPECT_TRUE(shown.minX < 0 && shown.maxX > 100 && shown.minY < 0 && shown.maxY > 60);
}

TEST_F(ViewTest, MiddleButtonCarriesThePlaceItHoldsAndArrowsStep)
{
    show(Plan{}.drawing);
    const QPoint from{200, 150};
    const QPoint to{263, 121};
    const picture::Vertex held = m_view.toWorld(from);
    QTest::mousePress(&m_view, Qt::MiddleButton, {}, from);
    QTest::mouseMove(&m_view, {230, 140});
    QTest::mouseMove(&m_view, to);
    QTest::mouseRelease(&m_view, Qt::MiddleButton, {}, to);
    const double pixel = m_view.frame().height / kHeight;
    EXPECT_THAT(m_view.toWorld(to).x, DoubleNear(held.x, kPixel * pixel));
    EXPECT_THAT(m_view.toWorld(to).y, DoubleNear(held.y, kPixel * pixel));
    QTest::mouseMove(&m_view, {10, 10});
    EXPECT_THAT(m_view.toWorld(to).x, DoubleNear(held.x, kPixel * pixel)) << "the button is up";
    const double x = m_view.frame().centre.x;
    QTest::keyClick(&m_view, Qt::Key_Right);
    EXPECT_GT(m_view.frame().centre.x, x);
    QTest::keyClick(&m_view, Qt::Key_Left);
    EXPECT_THAT(m_view.frame().centre.x, DoubleNear(x, kPixel * pixel));
}

TEST_F(ViewTest, ClickPicksWhatIsDrawnThereTopmostFirst)
{
    const Plan plan;
    show(plan.drawing);
    QSignalSpy picked{&m_view, &desktop::DrawingView::picked};
    const auto click = [&](QPoint place)
    {
        QTest::mouseClick(&m_view, Qt::LeftButton, {}, place);
        return picked.takeLast().at(0).value<AcDbObjectId>();
    };
    EXPECT_EQ(click(at(50, 30)), idOf(plan.line));
    EXPECT_EQ(click(at(50, 0)), idOf(plan.frame));
    EXPECT_EQ(click(at(0, 0)), idOf(plan.line)) << "the line lies over the frame";
    EXPECT_EQ(click(at(25, 40) + QPoint{2, 0}), idOf(plan.circle));
    EXPECT_TRUE(click(at(20, 40)).isNull()) << "the inside of a circle is not the circle";
    EXPECT_TRUE(click(at(80, 10)).isNull());
    m_view.setHidden({idOf(plan.line)}, {});
    EXPECT_EQ(click(at(0, 0)), idOf(plan.frame));
    m_view.setHidden({}, {u"road"});
    EXPECT_TRUE(click(at(50, 0)).isNull());
}

TEST_F(ViewTest, PickFindsTextsHatchesPointsAndWhatStandsInBlocks)
{
    TestDrawing drawing;
    drawing.beginBlock("TREE").line({-1, 0, 0}, {1, 0, 0});
    drawing.endBlock();
    const uint64_t text = drawing.text("MUONG", {10, 10, 0}, 2.0);
    const uint64_t solid =
        drawing.entity("SOLID", "100\nAcDbTrace\n 10\n30\n 20\n10\n 11\n40\n 21\n10\n 12\n30\n 22\n20\n 13\n"
                                "40\n 23\n20\n");
    const uint64_t point = drawing.entity("POINT", "100\nAcDbPoint\n 10\n50\n 20\n15\n");
    const uint64_t tree =
        drawing.entity("INSERT", "100\nAcDbBlockReference\n  2\nTREE\n 10\n60\n 20\n15\n 41\n3\n 42\n3\n 50\n"
                                 "90\n");
    const uint64_t xline = drawing.entity("XLINE", "100\nAcDbXline\n 10\n0\n 20\n30\n 11\n1\n 21\n0\n");
    show(drawing);
    EXPECT_EQ(m_view.pick(at(11, 11)), idOf(text));
    EXPECT_EQ(m_view.pick(at(35, 15)), idOf(solid));
    EXPECT_EQ(m_view.pick(at(50, 15)), idOf(point));
    EXPECT_EQ(m_view.pick(at(60, 17.5)), idOf(tree)) << "the line of the block is turned upright";
    EXPECT_TRUE(m_view.pick(at(63, 15)).isNull());
    EXPECT_EQ(m_view.pick(at(57, 30)), idOf(xline)) << "far from its base point";
}

TEST_F(ViewTest, HidingAndHighlightingChangeTheScreenOnly)
{
    const Plan plan;
    show(plan.drawing);
    const uint64_t changes = m_session.drawing().changeCount();
    const QPoint onLine = at(50, 30);
    const QPoint onFrame = at(70, 0);
    const auto brightest = [](const QImage& image, QPoint place)
    {
        QColor best = Qt::black;
        for (int x = -1; x <= 1; ++x)
            for (int y = -1; y <= 1; ++y)
                if (const QColor color = image.pixelColor(place + QPoint{x, y}); color.value() > best.value())
                    best = color;
        return best;
    };
    EXPECT_GT(brightest(picture(), onLine).red(), 120);
    m_view.setHidden({idOf(plan.line)}, {u"ROAD"});
    const QImage hidden = picture();
    EXPECT_EQ(brightest(hidden, onLine).value(), 0);
    EXPECT_EQ(brightest(hidden, onFrame).value(), 0);
    EXPECT_GT(brightest(hidden, at(25, 40)).green(), 120);
    m_view.setHidden({}, {});
    m_view.setHighlighted({idOf(plan.line)});
    EXPECT_TRUE(QTest::qWaitFor([&] { return brightest(picture(), onLine).blue() > 200; }));
    m_view.setHighlighted({});
    EXPECT_TRUE(QTest::qWaitFor([&] { return brightest(picture(), onLine).blue() < 50; }));
    EXPECT_EQ(m_session.drawing().changeCount(), changes);
}

TEST_F(ViewTest, WindowsAreDrawnZoomedToAndGivenUp)
{
    show(Plan{}.drawing);
    QSignalSpy drawn{&m_view, &desktop::DrawingView::windowDrawn};
    const auto drag = [&](QPoint from, QPoint to)
    {
        QTest::mousePress(&m_view, Qt::LeftButton, {}, from);
        QTest::mouseMove(&m_view, to);
        QTest::mouseRelease(&m_view, Qt::LeftButton, {}, to);
    };
    const QPoint low{100, 200};
    const QPoint high{180, 140};
    const picture::Vertex corner = m_view.toWorld(low);
    const picture::Vertex opposite = m_view.toWorld(high);
    drag(high, low);
    ASSERT_THAT(drawn, SizeIs(1));
    const auto box = drawn.at(0).at(0).value<Box2d>();
    EXPECT_TRUE(drawn.at(0).at(1).toBool()) << "from right to left";
    EXPECT_THAT(box.minX, DoubleNear(corner.x, 1e-9));
    EXPECT_THAT(box.maxY, DoubleNear(opposite.y, 1e-9));

    const desktop::ViewFrame before = m_view.frame();
    m_view.setTool(desktop::DrawingView::Tool::kWindow);
    QTest::mouseClick(&m_view, Qt::LeftButton, {}, low);
    QTest::keyClick(&m_view, Qt::Key_Escape);
    EXPECT_EQ(m_view.tool(), desktop::DrawingView::Tool::kWindow) << "Escape gives up the first corner first";
    drag(low, high);
    EXPECT_EQ(m_view.tool(), desktop::DrawingView::Tool::kPick);
    EXPECT_THAT(m_view.frame().centre.x, DoubleNear((corner.x + opposite.x) / 2, 1e-9));
    EXPECT_LT(m_view.frame().height, before.height / 3);
    EXPECT_THAT(m_view.shownBox().minX, testing::Le(corner.x + 1e-9));
}

TEST_F(ViewTest, MeasuringTellsPiecesAndTheirSum)
{
    show(Plan{}.drawing);
    QSignalSpy measured{&m_view, &desktop::DrawingView::measured};
    m_view.setTool(desktop::DrawingView::Tool::kMeasure);
    const double pixel = m_view.frame().height / kHeight;
    QTest::mouseClick(&m_view, Qt::LeftButton, {}, {100, 100});
    QTest::mouseMove(&m_view, {130, 140});
    ASSERT_FALSE(measured.isEmpty());
    EXPECT_THAT(measured.last().at(0).toDouble(), DoubleNear(50 * pixel, 1e-6));
    QTest::mouseClick(&m_view, Qt::LeftButton, {}, {130, 140});
    QTest::mouseMove(&m_view, {130, 240});
    EXPECT_THAT(measured.last().at(0).toDouble(), DoubleNear(100 * pixel, 1e-6));
    EXPECT_THAT(measured.last().at(1).toDouble(), DoubleNear(150 * pixel, 1e-6));
    QTest::mouseClick(&m_view, Qt::RightButton, {}, {130, 240});
    EXPECT_EQ(m_view.tool(), desktop::DrawingView::Tool::kPick);
}

TEST_F(ViewTest, WhatWasPaintedIsCarriedAlongUntilTilesAreThere)
{
    const Plan plan;
    show(plan.drawing);
    picture();
    wheel({200, 150}, 1);
    const QImage atOnce = m_view.grab().toImage();
    const QImage sharp = picture();
    const QPoint onFrame = m_view.toWidget({70, 0}).toPoint();
    const auto isLit = [&](const QImage& image)
    {
        for (int y = -3; y <= 3; ++y)
            if (image.pixelColor(onFrame + QPoint{0, y}).value() > 60)
                return true;
        return false;
    };
    EXPECT_TRUE(isLit(atOnce));
    EXPECT_TRUE(isLit(sharp));
}

TEST_F(ViewTest, AnEmptyDrawingAndExtremeCoordinatesShowNothingWrong)
{
    TestDrawing drawing;
    show(drawing);
    EXPECT_EQ(picture().pixel(200, 150) & 0xFFFFFFU, 0U);
    m_view.zoomExtents();
    m_view.setFrame({{1e300, -1e300}, 1e-300});
    wheel({3, 3}, 50);
    wheel({3, 3}, -400);
    m_view.pan({1e9, -1e9});
    EXPECT_TRUE(std::isfinite(m_view.frame().centre.x));
    picture();
    EXPECT_TRUE(m_view.pick({10, 10}).isNull());
}

TEST_F(ViewTest, LayoutsShowModelSpaceThroughTheirWindows)
{
    TestDrawing drawing;
    drawing.layer("SECRET");
    drawing.entity("LINE", " 62\n1\n100\nAcDbLine\n 10\n1000\n 20\n500\n 11\n1100\n 21\n500\n");
    drawing.inPaperSpace();
    // A window of 80 by 40 about (50, 30) that shows 100 units of the plan in its height, the line in its middle.
    drawing.entity("VIEWPORT",
                   "100\nAcDbViewport\n 10\n50\n 20\n30\n 40\n80\n 41\n40\n 68\n2\n 69\n2\n 12\n1050\n 22\n500\n"
                   " 16\n0\n 26\n0\n 36\n1\n 17\n0\n 27\n0\n 45\n100\n");
    drawing.inPaperSpace(false);
    show(drawing);
    const std::vector<DrawingSpace> spaces = m_scene->spaces();
    ASSERT_THAT(spaces, SizeIs(2));
    m_view.setSpace(spaces[1].block);
    const QImage image = picture();
    // The line is 100 units long: 40 on the sheet, from 30 to 70.
    EXPECT_GT(QColor{image.pixel(at(50, 30))}.red() + QColor{image.pixel(at(50, 30) + QPoint{0, -1})}.red(), 120);
    EXPECT_GT(QColor{image.pixel(at(32, 30))}.red() + QColor{image.pixel(at(32, 30) + QPoint{0, -1})}.red(), 120);
    EXPECT_EQ(image.pixel(at(27, 30)) & 0xFFFFFFU, 0U);
    m_view.setSpace(nullptr);
    EXPECT_GT(m_view.frame().centre.x, 1000);
}
