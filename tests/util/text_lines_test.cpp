#include "util/text_lines.h"

#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using namespace std::string_literals;

namespace
{

std::vector<std::u16string> linesOf(const std::string& bytes)
{
    const TempFolder folder;
    folder.write("a.dv", bytes);
    return ReadTextLines(folder.modulePath("a.dv"));
}

} // namespace

TEST(TextLines, EveryLineEndGivesTheSameLines)
{
    for (const std::string bytes : {"a\n\nb\xAE", "a\n\nb\xAE\n", "a\r\n\r\nb\xAE\r\n", "a\n\r\nb\xAE\r"})
        EXPECT_THAT(linesOf(bytes), ElementsAre(u"a", u"", u"bđ")) << testing::PrintToString(bytes);
    EXPECT_THAT(linesOf(""), IsEmpty());
    EXPECT_THAT(linesOf("\n"), ElementsAre(u""));
    EXPECT_THAT(linesOf("a\0b\nc\n"s), ElementsAre(u"a", u"c")) << "a zero byte ends its line";
    EXPECT_THAT(linesOf("\0a\nb\n"s), ElementsAre(u"b")) << "a line of nothing is left out";
}

TEST(TextLines, ALongLineComesInPiecesOf4095Bytes)
{
    const std::string longest(4095, 'x');
    const std::u16string piece(4095, u'x');
    EXPECT_THAT(linesOf(longest.substr(1) + "\nb\n"), ElementsAre(piece.substr(1), u"b"));
    EXPECT_THAT(linesOf(longest.substr(1) + "\r\nb\r\n"), ElementsAre(piece.substr(1), u"b"));
    EXPECT_THAT(linesOf(longest + "\nb\n"), ElementsAre(piece, u"", u"b")) << "the line end is a piece of its own";
    EXPECT_THAT(linesOf(longest + "y\n" + longest), ElementsAre(piece, u"y", piece));
}

TEST(TextLines, AnyBytesReadAsSomeLines)
{
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round)
    {
        std::string bytes(random() % 20000, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() % 8 == 0 ? random() % 16 : random());
        EXPECT_THAT(linesOf(bytes), Each(SizeIs(testing::Le(4095U))));
    }
}

TEST(TextLines, WhatIsWrittenIsReadBackByteForByte)
{
    const TempFolder folder;
    const std::vector<std::u16string> lines{u"[SYMBOL]", u"Cây,D:\\ký hiệu\\cây to.dwg,1.00,1.00,0.00", u"", u" x "};

    ASSERT_TRUE(WriteTextLines(folder.modulePath(".\\a.dv"), lines)) << "either separator will do";
    EXPECT_EQ(folder.read("a.dv"), "[SYMBOL]\nC\xA9y,D:\\k\xFD hi\xD6u\\c\xA9y to.dwg,1.00,1.00,0.00\n\n x \n");
    EXPECT_EQ(ReadTextLines(folder.modulePath("a.dv")), lines);
    EXPECT_EQ(folder.count(), 1U);
}

TEST(TextLines, NoCharacterOfALineSplitsItOrSwallowsOthers)
{
    const TempFolder folder;
    ASSERT_TRUE(WriteTextLines(folder.modulePath("a.dv"), {u"a\u010Ab,1", u"\u0101bc", u"d\ne\r", u"\x01xyz", u"f"}));
    EXPECT_THAT(ReadTextLines(folder.modulePath("a.dv")), ElementsAre(u"a?b,1", u"?bc", u"d?e?", u"?xyz", u"f"));
}

TEST(TextLines, NothingToWriteOrNoWayToWriteLeavesTheFileAsItWas)
{
    const TempFolder folder;
    folder.write("a.dv", "kept\n");
    EXPECT_TRUE(WriteTextLines(folder.modulePath("a.dv"), {}));
    EXPECT_TRUE(WriteTextLines(folder.modulePath("b.dv"), {}));
    EXPECT_FALSE(WriteTextLines(folder.modulePath("missing/a.dv"), {u"new"}));
    EXPECT_FALSE(WriteTextLines(folder.modulePath(""), {u"new"})) << "a folder is no file";
    EXPECT_EQ(folder.read("a.dv"), "kept\n");
    EXPECT_EQ(folder.count(), 1U);
    EXPECT_THAT(ReadTextLines(folder.modulePath("")), IsEmpty());
    EXPECT_THAT(ReadTextLines(folder.modulePath("b.dv")), IsEmpty());
}

TEST(TextLines, AReplacedFileKeepsItsModeAndALinkItsTarget)
{
    const TempFolder folder;
    folder.write("real.dv", "old\n");
    ASSERT_EQ(::chmod((folder.path() / "real.dv").c_str(), 0640), 0);
    std::filesystem::create_symlink(folder.path() / "real.dv", folder.path() / "link.dv");

    ASSERT_TRUE(WriteTextLines(folder.modulePath("link.dv"), {u"new"}));

    EXPECT_TRUE(std::filesystem::is_symlink(folder.path() / "link.dv"));
    EXPECT_EQ(folder.read("real.dv"), "new\n");
    EXPECT_EQ(std::filesystem::status(folder.path() / "real.dv").permissions(), std::filesystem::perms{0640});
    EXPECT_FALSE(WriteTextLines(u"/dev/full", {u"new"})) << "a full device is told, and stays a device";
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}
