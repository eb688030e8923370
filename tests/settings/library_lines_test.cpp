#include "settings/library_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(LibraryLines, HoldTheTablesThatHaveRowsUnderTheirMarkers)
{
    LibraryLines sections;
    sections.tables[kPlanFcodeTable] = {JoinRow({u"C3", u"D:\\blocks\\c3.dwg", u"1.00", u"", u"90.00"})};
    sections.tables[kSymbolTable] = {u"A1,a1.dwg,1,1,0", u"A2,a2.dwg,1,1,0"};
    EXPECT_THAT(JoinSections(sections), ElementsAre(u"[SYMBOL]", u"A1,a1.dwg,1,1,0", u"A2,a2.dwg,1,1,0", u"[BD]",
                                                    u"C3,D:\\blocks\\c3.dwg,1.00,,90.00"));
    EXPECT_THAT(JoinSections({}), IsEmpty());
}

TEST(LibraryLines, AreSplitAtMarkersOfAnyCaseInAnyOrder)
{
    const TextLines lines = {u"lost", u"[tn]", u"t1", u" [BD]", u"[Symbol]", u"s1", u"[TN]", u"t2", u"[ALL]", u"5,5"};

    const LibraryLines library = SplitSections(lines, GeneralSection::kNone);
    EXPECT_THAT(library.tables[kSymbolTable], ElementsAre(u"s1"));
    EXPECT_THAT(library.tables[kSectionFcodeTable], ElementsAre(u"t1", u" [BD]", u"t2", u"[ALL]", u"5,5"));
    EXPECT_THAT(library.tables[kPlanFcodeTable], IsEmpty());
    EXPECT_THAT(library.general, IsEmpty());

    const LibraryLines stored = SplitSections(lines, GeneralSection::kLast);
    EXPECT_THAT(stored.tables[kSectionFcodeTable], ElementsAre(u"t1", u" [BD]", u"t2"));
    EXPECT_THAT(stored.general, ElementsAre(u"5,5"));
}

TEST(LibraryLines, GiveARowToAKeyOnlyFromFiveFields)
{
    const RowLookup rows{{u"[ALL]", u"A,a.dwg,1,1", u"A,a.dwg,1,1,0,", u"a,second.dwg,2,2,2", u"B,,b.dwg,1,1",
                          u"C,c,d.dwg,1,1,0", u"D ,d.dwg,1,1,0", u" E,~,1,~,~ ", u"CÂY,ướt.dwg,1,1,0"}};
    const auto fileOf = [&rows](std::u16string_view key)
    { return rows.find(key) == nullptr ? std::u16string{u"none"} : rows.find(key)->file; };

    EXPECT_EQ(fileOf(u"a"), u"a.dwg") << "the first of two, a trailing comma adds nothing";
    EXPECT_EQ(fileOf(u"B"), u"none") << "an empty field does not count";
    EXPECT_EQ(fileOf(u"C"), u"none") << "a comma in the path";
    EXPECT_EQ(fileOf(u"D"), u"none") << "fields are not trimmed";
    EXPECT_EQ(fileOf(u"cây"), u"ướt.dwg");
    EXPECT_EQ(fileOf(u""), u"none");
    ASSERT_NE(rows.find(u"e"), nullptr);
    EXPECT_EQ(JoinRow(*rows.find(u"e")), u"E,,1,,~") << "a last ~ stays";
}
