#include "disk/replace.h"

#include "disk/error.h"
#include "disk/read.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

TEST(ReplacedFile, KeepsTheEarlierOneAndNeverLeavesHalfOfOne)
{
    const TempFolder folder;
    const std::string path = folder.path() / "a.dxf";
    disk::replaceFile(path, {"one", "", " two"}, {.keepEarlier = true});
    EXPECT_EQ(disk::readFile(path).view(), "one two");
    disk::replaceFile(path, {"three"}, {.keepEarlier = true});
    EXPECT_EQ(folder.read("a.dxf"), "three");
    EXPECT_EQ(folder.read("a.dxf.bak"), "one two");
    EXPECT_THROW(disk::replaceFile(folder.path() / "missing" / "b.dxf", {"x"}), disk::FileError);
    EXPECT_THROW(disk::replaceFile("/dev/null", {"x"}), disk::FileError);
    EXPECT_EQ(folder.count(), 2U);
}
