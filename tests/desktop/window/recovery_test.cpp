#include "desktop/recovery/recovery.h"
#include "desktop/window/window_test.h"

#include <QDialog>
#include <QTabWidget>

#include <filesystem>

namespace
{

namespace fs = std::filesystem;

class Recover : public WindowTest
{
protected:
    Recover()
    {
        fs::remove_all(desktop::recoveryFolder());
        TestDrawing drawing;
        drawing.layer("ROAD");
        drawing.text("HERE", {1, 2, 0});
        open("a.dxf", drawing.dxf());
    }

    std::string file() const { return desktop::recoveryFileOf(path("a.dxf")); }
    void keep()
    {
        window().recovery().keep();
        waitFor([this] { return window().jobs().isIdle(); });
    }
    /// The program goes without a word, and another one starts later.
    void crash()
    {
        std::string bytes = fileBytes();
        const size_t start = bytes.find("start=") + 6;
        bytes[start] = bytes[start] == '1' ? '2' : '1';
        restart();
        write(bytes);
    }
    std::string fileBytes() const
    {
        std::ifstream in(file(), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void write(const std::string& bytes) const { std::ofstream(file(), std::ios::binary) << bytes; }
    void offer()
    {
        window().perform([this] { window().recovery().offer(); });
    }
    QString title() { return window().tabs().tabText(0); }
};

TEST_F(Recover, WhatWasNotSavedComesBackAfterACrash)
{
    changeLayer();
    const std::string before = folder().read("a.dxf");
    keep();
    ASSERT_TRUE(fs::exists(file()));
    crash();
    QString asked;
    answer("Recover", &asked);
    offer();
    EXPECT_TRUE(asked.contains("a.dxf"));
    EXPECT_FALSE(asked.contains("another one"));
    ASSERT_EQ(window().tabs().count(), 1);
    EXPECT_EQ(title(), "* a.dxf");
    EXPECT_TRUE(isLayerOff());
    EXPECT_EQ(folder().read("a.dxf"), before);
    EXPECT_TRUE(fs::exists(file())) << "until the drawing is saved";
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(title(), "a.dxf");
    EXPECT_NE(folder().read("a.dxf"), before);
    EXPECT_FALSE(fs::exists(file()));
}

TEST_F(Recover, AFileThatIsAnotherOneSinceThenIsNotOverwritten)
{
    changeLayer();
    keep();
    crash();
    TestDrawing other;
    folder().write("a.dxf", other.dxf());
    QString asked;
    answer("Recover", &asked);
    offer();
    EXPECT_TRUE(asked.contains("another one"));
    answer("Cancel", &asked);
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(asked.contains("another program"));
    EXPECT_EQ(folder().read("a.dxf"), other.dxf());
}

TEST_F(Recover, NothingIsKeptOfWhatIsSavedOrRefused)
{
    keep();
    EXPECT_FALSE(fs::exists(file())) << "nothing was changed";
    changeLayer();
    keep();
    EXPECT_TRUE(fs::exists(file()));
    key(Qt::Key_Z, Qt::ControlModifier);
    keep();
    EXPECT_FALSE(fs::exists(file())) << "it is as it was again";
    changeLayer();
    keep();
    answer("Don't save");
    key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(window().tabs().count(), 0);
    EXPECT_FALSE(fs::exists(file()));

    openFile(path("a.dxf"));
    changeLayer();
    keep();
    offer();
    EXPECT_EQ(window().tabs().count(), 1) << "that of a program that runs is not offered";
    crash();
    answer("Throw away");
    offer();
    EXPECT_FALSE(fs::exists(file()));
    EXPECT_EQ(window().tabs().count(), 0);
}

TEST_F(Recover, AFullDiskIsToldOnceAndADamagedFileIsNoDrawing)
{
    changeLayer();
    m_faults.failingWrites[file()] = 10;
    keep();
    keep();
    EXPECT_EQ(history().count("could not be kept"), 1);
    EXPECT_FALSE(fs::exists(file()));
    m_faults.failingWrites.clear();
    changeLayer();
    keep();
    crash();
    const std::string bytes = fileBytes();
    write(bytes.substr(0, bytes.size() / 2));
    QString said;
    answer("Recover");
    answer("Close", &said);
    offer();
    EXPECT_TRUE(said.contains("a.dxf")) << said.toStdString();
    EXPECT_EQ(window().tabs().count(), 0);
}

} // namespace
