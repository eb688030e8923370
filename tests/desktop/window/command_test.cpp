#include "desktop/command/command_line.h"
#include "desktop/panels/find_bar.h"
#include "desktop/panels/property_panel.h"
#include "desktop/window/window_test.h"

#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

#include <cmath>

namespace
{

class Commands : public WindowTest
{
protected:
    Commands()
    {
        TestDrawing drawing;
        drawing.layer("ROAD");
        drawing.onLayer("ROAD");
        m_line = drawing.line({0, 0, 0}, {100, 50, 0});
        drawing.onLayer("0");
        drawing.text("C\xC3\xA2y xo\xC3\xA0i", {20, 40, 0}, 2.0);
        drawing.text("MANGO", {60, 10, 0}, 2.0);
        drawing.feature("MUONG", {{0, 5}, {90, 5}});
        drawing.point("CAY", {50, 40, 3});
        open("a.dxf", drawing.dxf());
    }

    QString prompt() { return window().interpreter().prompt(); }
    void click(double x, double y)
    {
        QTest::mouseClick(&view(), Qt::LeftButton, {}, view().toWidget({x, y}).toPoint());
    }
    /// What the property panel says under a name.
    QString property(const QString& name)
    {
        for (QTreeWidgetItem* item :
             find<QTreeWidget>("properties").findItems(name, Qt::MatchExactly | Qt::MatchRecursive))
            return item->text(1);
        return {};
    }

    uint64_t m_line = 0;
};

TEST_F(Commands, TypingAnywhereGoesToTheCommandLineAndBlankConfirms)
{
    view().setFocus();
    type("zoom ");
    EXPECT_FALSE(prompt().isEmpty());
    type("10,20 ");
    type("30,25");
    key(Qt::Key_Return);
    EXPECT_TRUE(prompt().isEmpty());
    EXPECT_NEAR(view().frame().centre.x, 20, 1e-6);
    EXPECT_NEAR(view().frame().centre.y, 22.5, 1e-6);

    view().setFocus();
    type("z p ");
    EXPECT_GT(view().shownBox().maxX, 99);
    type("foo ");
    EXPECT_TRUE(history().contains("no command foo"));
}

TEST_F(Commands, EmptyLineRepeatsEscapeGivesUpAndHistoryComesBack)
{
    type("zoom\r");
    key(Qt::Key_Escape);
    EXPECT_TRUE(prompt().isEmpty());
    EXPECT_TRUE(history().contains("*Cancelled*"));
    key(Qt::Key_Space);
    EXPECT_FALSE(prompt().isEmpty()) << "a blank on the empty line repeats ZOOM";
    key(Qt::Key_Escape);
    auto& input = find<QLineEdit>("commandInput");
    type("his");
    key(Qt::Key_Tab);
    EXPECT_EQ(input.text(), "HISTORY");
    key(Qt::Key_Escape);
    key(Qt::Key_Up);
    EXPECT_EQ(input.text(), "zoom");
}

TEST_F(Commands, PlacesCanBeClicked)
{
    type("zoom ");
    click(20, 10);
    click(60, 30);
    EXPECT_NEAR(view().frame().centre.x, 40, 1);
    EXPECT_NEAR(view().frame().centre.y, 20, 1);
}

TEST_F(Commands, AnEntityThatIsClickedIsDescribed)
{
    click(50, 25);
    EXPECT_EQ(property("Layer"), "ROAD");
    EXPECT_EQ(property("Handle"), QString::number(m_line, 16).toUpper());
    EXPECT_EQ(property("Start"), "0, 0");
    EXPECT_EQ(property("Length"), "111.8034");
    click(45, 5);
    EXPECT_EQ(property("Feature code"), "MUONG");
    EXPECT_TRUE(property("1000").contains("{") || !property("1002").isEmpty());
    key(Qt::Key_Escape);
    EXPECT_EQ(property("Layer"), "");
}

TEST_F(Commands, FindStepsThroughTextsAndCodes)
{
    auto& count = find<QLabel>("findCount");
    key(Qt::Key_F, Qt::ControlModifier);
    type("cay");
    key(Qt::Key_Return);
    EXPECT_TRUE(count.text().startsWith("1 of 2")) << count.text().toStdString();
    key(Qt::Key_Return);
    EXPECT_TRUE(count.text().startsWith("2 of 2")) << count.text().toStdString();
    EXPECT_EQ(property("Feature code"), "CAY");
    find<QLineEdit>("findWords").setText("muong");
    key(Qt::Key_Return);
    EXPECT_TRUE(count.text().startsWith("1 of 1"));
    find<QLineEdit>("findWords").setText("nothing such");
    key(Qt::Key_Return);
    EXPECT_EQ(count.text(), "Not found");
    key(Qt::Key_Escape);
    EXPECT_FALSE(window().findBar().isVisible());
}

TEST_F(Commands, CoordinatesFollowTheCursorAndTheWheelZoomsAboutIt)
{
    const QPoint at = view().toWidget({30, 20}).toPoint();
    QTest::mouseMove(&view(), at);
    EXPECT_TRUE(find<QLabel>("coordinates").text().startsWith("30.") ||
                find<QLabel>("coordinates").text().startsWith("29."))
        << find<QLabel>("coordinates").text().toStdString();
    const double before = view().frame().height;
    const picture::Vertex fixed = view().toWorld(at);
    QWheelEvent wheel{at, view().mapToGlobal(at), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false};
    QApplication::sendEvent(&view(), &wheel);
    EXPECT_LT(view().frame().height, before);
    EXPECT_NEAR(view().toWorld(at).x, fixed.x, 1e-6);
    // What the user looks at is what selections see, and no zoom to go back from.
    AcApDocument& document = tab().document()->host();
    EXPECT_NEAR(document.view().shown().maxPoint().x, view().shownBox().maxX, 1e-6);
}

} // namespace
