#include "desktop/documents/file_actions.h"
#include "desktop/window/window_test.h"

#include "host/db/table/symbol_tables.h"
#include "store/table_index.h"
#include <QFileInfo>

#include <QLabel>
#include <QMimeData>
#include <QTabBar>
#include <QTabWidget>

#include <filesystem>

namespace
{

std::string lineDrawing()
{
    TestDrawing drawing;
    drawing.layer("ROAD");
    drawing.line({0, 0, 0}, {100, 50, 0});
    return drawing.dxf();
}

class Documents : public WindowTest
{
protected:
    QString title() { return window().tabs().tabText(window().tabs().currentIndex()); }
};

TEST_F(Documents, EachHasATabAndOpenedAgainIsShown)
{
    open("a.dxf", lineDrawing());
    open("b.dxf", lineDrawing());
    EXPECT_EQ(window().tabs().count(), 2);
    EXPECT_EQ(title(), "b.dxf");
    openFile(path("a.dxf"));
    EXPECT_EQ(window().tabs().count(), 2);
    EXPECT_EQ(title(), "a.dxf");
    EXPECT_EQ(acDocManagerPtr()->curDocument(), &tab().document()->host());
    QTest::mouseClick(window().tabs().tabBar(), Qt::LeftButton, {}, window().tabs().tabBar()->tabRect(1).center());
    EXPECT_EQ(acDocManagerPtr()->curDocument(), &tab().document()->host());
    EXPECT_EQ(title(), "b.dxf");
    key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(window().tabs().count(), 1);
    EXPECT_EQ(acDocManagerPtr()->count(), 1u);
}

TEST_F(Documents, ADroppedFileIsOpened)
{
    folder().write("a.dxf", lineDrawing());
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path("a.dxf")))});
    QDragEnterEvent enter{{10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {}};
    QApplication::sendEvent(&window(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop{QPointF{10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {}};
    QApplication::sendEvent(&window(), &drop);
    waitFor([this] { return window().currentDocument() != nullptr; });
    EXPECT_EQ(title(), "a.dxf");
}

TEST_F(Documents, ADamagedOneOpensNothingAndSaysWhatAndWhere)
{
    std::string dxf = lineDrawing();
    dxf.resize(dxf.size() / 2);
    folder().write("cut.dxf", dxf);
    QString said;
    answer("Close", &said);
    window().open({path("cut.dxf")});
    waitFor([&] { return !said.isEmpty(); });
    waitFor([this] { return window().gate().isOpen(); });
    EXPECT_TRUE(said.contains("cut.dxf")) << said.toStdString();
    EXPECT_TRUE(said.contains("line")) << said.toStdString();
    EXPECT_EQ(window().tabs().count(), 0);
    EXPECT_EQ(acDocManagerPtr()->count(), 0u);
}

TEST_F(Documents, TheMarkGoesWithSavingAndTakingBack)
{
    open("a.dxf", lineDrawing());
    EXPECT_EQ(title(), "a.dxf");
    changeLayer();
    EXPECT_EQ(title(), "* a.dxf");
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(title(), "a.dxf");
    changeLayer();
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(title(), "a.dxf");
    EXPECT_NE(folder().read("a.dxf"), lineDrawing());
    EXPECT_EQ(folder().read("a.dxf.bak"), lineDrawing());
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(title(), "* a.dxf") << "what is on disk is no longer what is shown";
}

TEST_F(Documents, AFailedSaveKeepsTheMarkAndSaysWhy)
{
    open("a.dxf", lineDrawing());
    changeLayer();
    m_faults.failingWrites[path("a.dxf")] = 100;
    QString said;
    answer("Close", &said);
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(said.contains("a.dxf")) << said.toStdString();
    EXPECT_EQ(title(), "* a.dxf");
    EXPECT_EQ(folder().read("a.dxf"), lineDrawing());
}

TEST_F(Documents, ClosingAsksAboutChanges)
{
    open("a.dxf", lineDrawing());
    changeLayer();
    answer("Cancel");
    key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(window().tabs().count(), 1);
    answer("Save");
    window().close();
    EXPECT_FALSE(window().isVisible());
    EXPECT_NE(folder().read("a.dxf"), lineDrawing());

    restart();
    openFile(path("a.dxf"));
    const std::string saved = folder().read("a.dxf");
    changeLayer();
    answer("Don't save");
    window().close();
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(folder().read("a.dxf"), saved);
}

TEST_F(Documents, AnotherProgramsChangeIsOfferedAndNotOverwritten)
{
    open("a.dxf", lineDrawing());
    QString said;
    answer("Reload", &said);
    TestDrawing other;
    other.text("NEW", {1, 2, 0});
    folder().write("a.dxf", other.dxf());
    waitFor([&] { return !said.isEmpty(); });
    waitFor([this] { return tab().document()->database().store().file.view().find("NEW") != std::string_view::npos; });

    changeLayer();
    said.clear();
    answer("Keep mine", &said);
    folder().write("a.dxf", lineDrawing());
    waitFor([&] { return !said.isEmpty() && window().gate().isOpen(); });
    said.clear();
    answer("Cancel", &said);
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(said.contains("another program"));
    EXPECT_EQ(folder().read("a.dxf"), lineDrawing());
    answer("Overwrite");
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_NE(folder().read("a.dxf"), lineDrawing());
    EXPECT_EQ(title(), "a.dxf");
}

TEST_F(Documents, AVanishedFileIsSavedAgain)
{
    open("a.dxf", lineDrawing());
    changeLayer();
    std::filesystem::remove(path("a.dxf"));
    waitFor([this] { return history().contains("is gone"); });
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(std::filesystem::exists(path("a.dxf")));
}

} // namespace
