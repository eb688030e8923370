#include "tools/symbols/symbol_dxf.h"
#include "tools/symbols/symbol_text.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace
{

using testing::HasSubstr;

const std::filesystem::path kRoot = VELOXA_SOURCE_DIR;

std::string FileText(const std::filesystem::path& path)
{
    const std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<symbols::Symbol> OurSymbols()
{
    std::ifstream text(kRoot / "tools/symbols/symbols.txt");
    return symbols::ReadSymbols(text);
}

std::string ErrorOf(const std::string& text)
{
    std::istringstream stream(text);
    try
    {
        symbols::ReadSymbols(stream);
    }
    catch (const std::runtime_error& error)
    {
        return error.what();
    }
    return "none";
}

TEST(SymbolSet, CommittedDrawingsAreWhatTheStrokesCompileTo)
{
    std::size_t drawings = 0;
    for (const auto& entry : std::filesystem::directory_iterator(kRoot / "samples/symbols"))
        drawings += entry.path().extension() == ".dxf" ? 1 : 0;
    const std::vector<symbols::Symbol> all = OurSymbols();
    EXPECT_EQ(drawings, all.size());
    EXPECT_GE(all.size(), 40U);
    for (const symbols::Symbol& symbol : all)
        EXPECT_TRUE(FileText(kRoot / "samples/symbols" / (symbol.name + ".dxf")) == symbols::SymbolDrawing(symbol))
            << symbol.name << ": run symbolc again";
}

TEST(SymbolSet, DocumentedTableListsEverySymbol)
{
    EXPECT_TRUE(FileText(kRoot / "docs/symbols.md").find(symbols::SymbolTable(OurSymbols())) != std::string::npos)
        << "docs/symbols.md: put in what symbolc prints";
}

TEST(SymbolText, PairAddsTheMirrorImage)
{
    std::istringstream text("symbol A\nvi a\nen a\nat foot\npair arc 1 2 0.5 -10 80\npair path 0 0 1 1\n");
    const symbols::Symbol symbol = symbols::ReadSymbols(text).at(0);
    ASSERT_EQ(symbol.strokes.size(), 4U);
    EXPECT_EQ(symbol.strokes[1].points[0].x, -1);
    EXPECT_EQ(symbol.strokes[1].startAngle, 100);
    EXPECT_EQ(symbol.strokes[1].endAngle, 190);
    EXPECT_EQ(symbol.strokes[3].points[1].x, -1);
}

TEST(SymbolText, WhatDoesNotBelongIsRefusedWithItsLine)
{
    const std::string begin = "symbol A\nvi a\nen a\nat foot\n";
    EXPECT_THAT(ErrorOf("path 0 0 1 1\n"), HasSubstr("line 1: a symbol's name"));
    EXPECT_THAT(ErrorOf(begin + "path 0 0 1\n"), HasSubstr("line 5: wrong count"));
    EXPECT_THAT(ErrorOf(begin + "path 0 0 1 1 2\n"), HasSubstr("line 5: a coordinate"));
    EXPECT_THAT(ErrorOf(begin + "circle 0 0 1x\n"), HasSubstr("line 5: not a number: 1x"));
    EXPECT_THAT(ErrorOf(begin + "disc 0 0 inf\n"), HasSubstr("line 5: not a number"));
    EXPECT_THAT(ErrorOf(begin + "circle 0 0 0\n"), HasSubstr("line 5: a radius"));
    EXPECT_THAT(ErrorOf(begin + "square 0 0 1\n"), HasSubstr("line 5: unknown word: square"));
    EXPECT_THAT(ErrorOf(begin + "circle 0 0 1\nsymbol A\n"), HasSubstr("line 6: name used twice"));
    EXPECT_THAT(ErrorOf("symbol Cây\n"), HasSubstr("line 1: a name is made"));
    EXPECT_THAT(ErrorOf(begin), HasSubstr("A lacks"));
    EXPECT_THAT(ErrorOf("symbol A\nvi a\nen a\ncircle 0 0 1\n"), HasSubstr("A lacks"));
}

} // namespace
