#include "store/text/text.h"
#include "tools/font/glyph_text.h"
#include "tools/font/shape_file.h"
#include "util/tcvn3.h"

#include <gmock/gmock.h>

#include <fstream>
#include <set>
#include <sstream>
#include <stdexcept>

namespace
{

using testing::HasSubstr;

font::Glyphs Read(const std::string& text)
{
    std::istringstream stream(text);
    return font::ReadGlyphs(stream);
}

std::string ErrorOf(const std::string& text)
{
    try
    {
        font::ShapeFile(Read(text));
    }
    catch (const std::runtime_error& error)
    {
        return error.what();
    }
    return "none";
}

unsigned WordAt(const std::string& bytes, std::size_t place)
{
    return static_cast<unsigned char>(bytes[place]) | static_cast<unsigned char>(bytes[place + 1]) << 8U;
}

constexpr std::size_t kOpeningSize = 24;

/// The bytes of one shape, found through the file's table as a reader does.
std::string ShapeOf(const std::string& file, unsigned code)
{
    const unsigned count = WordAt(file, kOpeningSize + 4);
    std::size_t table = kOpeningSize + 6;
    std::size_t place = table + std::size_t{4} * count;
    for (unsigned i = 0; i < count; ++i, table += 4)
    {
        if (WordAt(file, table) == code)
            return file.substr(place, WordAt(file, table + 2));
        place += WordAt(file, table + 2);
    }
    return file.substr(place);
}

TEST(FontCompiler, ShapeHasItsStrokesItsArcsAndItsAdvance)
{
    const std::string file = font::ShapeFile(Read("glyph A 41 10\npath 0 0 5 0 @90 10 5 @-180 10 0\n"));
    const std::string expected{
        "\x00"                             // no name
        "\x02\x08\x07\x00"                 // pen up, to the start: the bearing, then
        "\x01\x08\x0A\x00"                 // pen down, 5 units to the right
        "\x0C\x0A\x0A\x35\x0C\x00\xF6\x81" // a quarter turn to the left, half a turn to the right
        "\x02\x08\x07\x00\x00",            // pen up, over the width and the bearing
        22};
    EXPECT_EQ(ShapeOf(file, 0x41), expected);
}

TEST(FontCompiler, TableLeadsThroughTheWholeFile)
{
    std::ifstream text(VELOXA_SOURCE_DIR "/tools/font/glyphs.txt");
    const font::Glyphs glyphs = font::ReadGlyphs(text);
    const std::string file = font::ShapeFile(glyphs);
    EXPECT_EQ(glyphs.size(), 95U + 74U);
    EXPECT_EQ(WordAt(file, kOpeningSize), 0U);
    EXPECT_EQ(WordAt(file, kOpeningSize + 2), glyphs.rbegin()->first);
    EXPECT_EQ(ShapeOf(file, 0), std::string("Vnsimple\0\x3C\x10\0\0", 13));
    EXPECT_EQ(ShapeOf(file, 0xFFFF), "EOF");
}

TEST(FontCompiler, LettersHaveTheCodesThatTextsAreWrittenWith)
{
    std::ifstream text(VELOXA_SOURCE_DIR "/tools/font/glyphs.txt");
    std::set<std::string> letters;
    for (std::string line; std::getline(text, line);)
    {
        std::istringstream words(line);
        std::string kind;
        std::string name;
        std::string code;
        words >> kind >> name >> code;
        if ((kind != "glyph" && kind != "join") || code == "-")
            continue;
        const std::string letter = name == "space" ? " " : name;
        letters.insert(letter);
        EXPECT_EQ(EncodeText(toUtf16(letter)), std::string(1, static_cast<char>(std::stoi(code, nullptr, 16)))) << line;
    }
    EXPECT_EQ(letters.size(), 95U + 74U);
}

TEST(FontCompiler, JoinPutsTheMarkOverTheMiddleOfTheBase)
{
    const font::Glyphs glyphs = Read("glyph A 41 10\npath 0 0 10 0\nmark m\npath -1 20 1 20\n"
                                     "join B 42 A m\njoin C 43 B m 2 3 12\n");
    EXPECT_EQ(glyphs.at(0x42).paths.at(1).at(0).x, 8);
    EXPECT_EQ(glyphs.at(0x43).paths.at(2).at(1).x, 16);
    EXPECT_EQ(glyphs.at(0x43).paths.at(2).at(1).y, 46);
    EXPECT_EQ(glyphs.at(0x43).width, 24);
}

TEST(FontCompiler, WhatDoesNotBelongIsRefusedWithItsLine)
{
    const std::string begin = "glyph A 41 10\n";
    EXPECT_THAT(ErrorOf("path 0 0 1 1\n"), HasSubstr("line 1: does not belong here: path"));
    EXPECT_THAT(ErrorOf(begin + "path 0 0 1\n"), HasSubstr("line 2: a coordinate is missing"));
    EXPECT_THAT(ErrorOf(begin + "path 0 0\n"), HasSubstr("line 2: a path goes"));
    EXPECT_THAT(ErrorOf(begin + "path 0 0 1 1 @90\n"), HasSubstr("line 2: a path goes"));
    EXPECT_THAT(ErrorOf(begin + "path 0 0 @181 1 1\n"), HasSubstr("line 2: not a number up to 180"));
    EXPECT_THAT(ErrorOf(begin + "path 0 0 0.3 1\n"), HasSubstr("line 2: not a whole or half number"));
    EXPECT_THAT(ErrorOf(begin + "path 0 0 nan 1\n"), HasSubstr("line 2: not a number"));
    EXPECT_THAT(ErrorOf(begin + "path 0 0 70 0\n"), HasSubstr("reaches too far"));
    EXPECT_THAT(ErrorOf(begin + "glyph B 41 10\n"), HasSubstr("line 2: code used twice"));
    EXPECT_THAT(ErrorOf(begin + "glyph A 42 10\n"), HasSubstr("line 2: name used twice"));
    EXPECT_THAT(ErrorOf("glyph A 141 10\n"), HasSubstr("line 1: not an 8-bit code"));
    EXPECT_THAT(ErrorOf(begin + "join B 42 A m\n"), HasSubstr("line 2: not defined before: m"));
}

} // namespace
