#include "util/folders.h"

#include "host/app/disk.h"
#include "support/temp_folder.h"
#include "util/display_scale.h"

#include <gtest/gtest.h>

TEST(UserDataFolder, StandsInTheRoamingFolderAndMakesItsLastLevelOnly)
{
    const TempFolder home;
    const ScopedVariable config("XDG_CONFIG_HOME", (home.path() / "config").c_str());

    EXPECT_EQ(UserDataFolder(), home.modulePath("config") + u"\\PLX\\Kavendo");
    EXPECT_TRUE(std::filesystem::is_directory(home.path() / "config"));
    EXPECT_FALSE(std::filesystem::exists(home.path() / "config/PLX"));
    EXPECT_FALSE(ReplaceFile(UserDataFolder() + u"\\iniSymbol.cfg", "x"));

    std::filesystem::create_directory(home.path() / "config/PLX");
    ASSERT_TRUE(ReplaceFile(UserDataFolder() + u"\\iniSymbol.cfg", "x"));
    EXPECT_EQ(home.read("config/PLX/Kavendo/iniSymbol.cfg"), "x");
}

TEST(UserDataFolder, FallsBackOnTheHomeAndThenOnTheEnvironment)
{
    const TempFolder home;
    const ScopedVariable relative("XDG_CONFIG_HOME", "config");
    {
        const ScopedVariable user("HOME", home.path().c_str());
        EXPECT_EQ(UserDataFolder(), home.modulePath(".config") + u"\\PLX\\Kavendo");
    }
    const ScopedVariable nobody("HOME", "/dev/null");
    const ScopedVariable fallback("AppData", "/ứng dụng");
    EXPECT_EQ(UserDataFolder(), u"/ứng dụng\\PLX\\Kavendo");
}

TEST(DisplayScale, SizesGrowWithTheDisplayUpToTheLimit)
{
    EXPECT_EQ(ScaleByDisplay(-11), -11) << "until something is known of the display";
    EXPECT_EQ(ScaleByDisplay(MakeDisplayScale(96), -11), -11);
    EXPECT_EQ(ScaleByDisplay(MakeDisplayScale(192), -11), -22);
    EXPECT_EQ(ScaleByDisplay(MakeDisplayScale(143.9), 11), 16) << "whole dots an inch: 149 percent";
    EXPECT_EQ(ScaleByDisplay(MakeDisplayScale(144), 11), 17) << "halves go away from zero";
    EXPECT_EQ(ScaleByDisplay(MakeDisplayScale(144), -11), -17);
    EXPECT_EQ(ScaleByDisplay(MakeDisplayScale(std::nullopt), -11), 0);
    DisplayScale narrow = MakeDisplayScale(192);
    narrow.limit = 100;
    EXPECT_EQ(ScaleByDisplay(narrow, 80), 100);
}
