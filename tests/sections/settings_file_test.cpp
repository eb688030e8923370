#include "sections/database_cs.h"

#include "support/temp_folder.h"
#include "util/folders.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <random>
#include <stdexcept>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

const std::string kFile = "PLX/Kavendo/iniSymbol.cfg";

/// A user's folder, empty but for the host's own.
class SettingsFile : public testing::Test
{
protected:
    SettingsFile() { std::filesystem::create_directories(home.path() / "PLX/Kavendo"); }
    ~SettingsFile() override { ModuleFolder.clear(); }

    DatabaseCS load(const std::string& bytes) const
    {
        home.write(kFile, bytes);
        return load();
    }
    static DatabaseCS load()
    {
        DatabaseCS database;
        database.LoadSettings();
        return database;
    }
    std::string save(const DatabaseCS& database) const
    {
        EXPECT_TRUE(database.SaveSettings());
        return home.read(kFile);
    }

    const TempFolder home;
    const ScopedVariable config{"XDG_CONFIG_HOME", home.path().c_str()};
};

auto lineCount(const std::string& bytes)
{
    return std::count(bytes.begin(), bytes.end(), '\n');
}

} // namespace

TEST_F(SettingsFile, WithoutAFileTheDefaultsStandAndTheOptionsAreLeftOut)
{
    DatabaseCS database = load();
    EXPECT_THAT(database.m_arrDrawFlags, IsEmpty());
    EXPECT_EQ(save(database), "Forward distance=5.000000\nBackward distance=5.000000\nTextHei=0.400000\n"
                              "DeltaY=2.000000\nCheck Select=0\nPath Select=\nFile symbol last select=\n"
                              "File line last select=\nSymbol ScaleX=1.000000\nSymbol ScaleY=1.000000\n"
                              "Symbol Rotate=0.000000\nLine ScaleX=1.000000\nLine ScaleY=1.000000\n"
                              "Line Rotate=0.000000\nAlignment=\n");

    database.m_arrDrawFlags = {1, 1, 1, 1};
    database.m_arrLayerNames = {u"A", u"B", u"C", u"D"};
    std::filesystem::remove(home.path() / kFile);
    database.LoadSettings();
    EXPECT_THAT(database.m_arrDrawFlags, IsEmpty());
    EXPECT_THAT(database.m_arrLayerNames, ElementsAre(u"A", u"B", u"C", u"D")) << "what is not read stays";
}

TEST_F(SettingsFile, EverySettingComesBack)
{
    DatabaseCS written;
    written.m_dForwardDistance = 7.25;
    written.m_dBackwardDistance = -0.0000004;
    written.m_dTextHeight = 1e300;
    written.m_dDeltaY = 3.1234567;
    written.m_arrDrawFlags = {1, 0, 4294967295, 2};
    written.m_arrLayerNames = {u"K\u00FDhi\u00D6u", u"", u"Lớp ký hiệu", u"a b"};
    written.m_nCheckSelect = -1;
    written.m_strPathSelect = u"D:\\Ký hiệu, mới\\";
    written.m_strFileSymbolLastSelect = u"/home/người dùng/cây\x0A\x0D\x01.dv";
    written.m_strFileLineLastSelect = u"\xD83C\xDF33";
    written.m_dSymbolScaleX = 2;
    written.m_dSymbolScaleY = 3;
    written.m_dSymbolRotate = 0.5;
    written.m_dLineScaleX = 4;
    written.m_dLineScaleY = 5;
    written.m_dLineRotate = 0.25;
    written.m_strAlignment = u"TuyÕn 1";

    const std::string bytes = save(written);
    const DatabaseCS read = load();

    EXPECT_EQ(lineCount(bytes), 23);
    EXPECT_THAT(bytes, HasSubstr("Layer Symbol Layer Name=K\xFDhi\xD6u\n")) << "a TCVN3 text keeps its bytes";
    EXPECT_EQ(read.m_dForwardDistance, 7.25);
    EXPECT_EQ(read.m_dBackwardDistance, 0.0);
    EXPECT_EQ(read.m_dTextHeight, 1e300);
    EXPECT_EQ(read.m_dDeltaY, 3.123457);
    EXPECT_EQ(read.m_arrDrawFlags, written.m_arrDrawFlags);
    EXPECT_EQ(read.m_arrLayerNames, written.m_arrLayerNames);
    EXPECT_EQ(read.m_nCheckSelect, -1);
    EXPECT_EQ(read.m_strPathSelect, written.m_strPathSelect);
    EXPECT_EQ(read.m_strFileSymbolLastSelect, written.m_strFileSymbolLastSelect);
    EXPECT_EQ(read.m_strFileLineLastSelect, written.m_strFileLineLastSelect);
    EXPECT_THAT((std::vector{read.m_dSymbolScaleX, read.m_dSymbolScaleY, read.m_dSymbolRotate, read.m_dLineScaleX,
                             read.m_dLineScaleY, read.m_dLineRotate}),
                ElementsAre(2, 3, 0.5, 4, 5, 0.25));
    EXPECT_EQ(read.m_strAlignment, written.m_strAlignment);
    EXPECT_EQ(save(read), bytes) << "in the same order";
}

TEST_F(SettingsFile, OddLinesAreReadAsFarAsTheyGo)
{
    const DatabaseCS read =
        load("\r\n  forward DISTANCE=7,5\r\nBackward distance\nTextHei =0.5\nDeltaY=\n"
             "=9\nUnknown=1\nPath Select=a=b\nCheck Select=1x\nCHECK SELECT= 2\n"
             "Breakpoint feature code=abc\nSection symbol layer=  L 1 \nAlignment==T\n"
             "Symbol ScaleX=inf\nSymbol ScaleY=1e3\nLine ScaleX=\x01\x30\x30\nFile line last select=~");
    EXPECT_EQ(read.m_dForwardDistance, 7.0);
    EXPECT_EQ(read.m_dBackwardDistance, 5.0);
    EXPECT_EQ(read.m_dTextHeight, 0.4) << "a blank before the sign belongs to the key";
    EXPECT_EQ(read.m_dDeltaY, 2.0) << "nothing behind the sign is no value";
    EXPECT_EQ(read.m_strPathSelect, u"a");
    EXPECT_EQ(read.m_nCheckSelect, 2) << "the later line counts";
    EXPECT_THAT(read.m_arrDrawFlags, ElementsAre(0, 0, 0, 0));
    EXPECT_THAT(read.m_arrLayerNames, ElementsAre(u"", u"", u"  L 1", u""));
    EXPECT_EQ(read.m_strAlignment, u"T") << "empty fields do not count";
    EXPECT_EQ(read.m_dSymbolScaleX, 0.0);
    EXPECT_EQ(read.m_dSymbolScaleY, 1000.0);
    EXPECT_EQ(read.m_dLineScaleX, 0.0);
    EXPECT_EQ(read.m_strFileLineLastSelect, u"~");
}

TEST_F(SettingsFile, AnyBytesAreReadAndCanBeSavedAgain)
{
    std::mt19937 random(7);
    const std::string plain = save(load("Path Select=x\n"));
    for (int round = 0; round < 300; ++round)
    {
        std::string bytes = plain;
        for (int change = 0; change < 40; ++change)
            bytes[random() % bytes.size()] = static_cast<char>(random() % 3 == 0 ? random() % 32 : random());
        const std::string once = save(load(bytes));
        EXPECT_EQ(lineCount(once), 23);
    }
    EXPECT_EQ(load(std::string(1000000, '=')).m_dDeltaY, 2.0);
    EXPECT_THAT(save(load("DeltaY=1e400\n")), HasSubstr("DeltaY=0.000000\n"));
}

TEST_F(SettingsFile, PathsInTheModuleFolderAreWrittenFromThereOn)
{
    ModuleFolder = u"C:\\M";
    DatabaseCS database;
    database.m_strPathSelect = u"C:\\M";
    database.m_strFileSymbolLastSelect = u"C:\\M\\lib\\s.dv";
    database.m_strFileLineLastSelect = u"c:\\m\\lib\\s.dv";
    const std::string bytes = save(database);
    EXPECT_THAT(bytes,
                HasSubstr("Path Select=\nFile symbol last select=\\lib\\s.dv\nFile line last select=c:\\m\\lib"));
    EXPECT_EQ(load().m_strFileSymbolLastSelect, u"\\lib\\s.dv");
}

TEST_F(SettingsFile, ASaveThatCannotBeDoneLeavesTheEarlierFile)
{
    DatabaseCS database;
    database.m_arrDrawFlags = {1};
    home.write(kFile, "kept");
    EXPECT_THROW(database.SaveSettings(), std::invalid_argument);
    EXPECT_EQ(home.read(kFile), "kept");

    database.m_arrDrawFlags.clear();
    const ScopedVariable elsewhere("XDG_CONFIG_HOME", (home.path() / kFile).c_str());
    EXPECT_FALSE(database.SaveSettings());
}
