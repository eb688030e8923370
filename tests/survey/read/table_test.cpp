#include "survey/read/survey_files.h"

#include "util/tcvn3.h"

#include <gmock/gmock.h>

using namespace survey;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

namespace
{

/// What a file of points gives.
std::vector<std::string> pointsIn(const std::string& text, const std::string& columns = {})
{
    SurveyFiles files;
    files.options.columns = columns;
    return pointsOf(files.add("points.csv", text).read());
}

/// The ground of each section as "name distance: offset elevation, ... | ...".
std::vector<std::string> sectionsOf(const Survey& all)
{
    std::vector<std::string> texts;
    for (const GivenSection& section : all.sections)
    {
        std::ostringstream text;
        text << toUtf8(section.name) << " " << section.distance << ":";
        for (const auto& piece : section.ground)
        {
            for (const SectionPoint& point : piece)
                text << " " << point.offset << " " << point.elevation << ",";
            text << " |";
        }
        texts.push_back(text.str());
    }
    return texts;
}

} // namespace

TEST(PointFile, SeparatorsHeadersAndDecimalCommasAreRecognised)
{
    const auto expected = ElementsAre("1: CAY, at 500.5 1000.25 3.5", "2: at 501 1001 4", "3: cột điện, at 502 1002");
    EXPECT_THAT(pointsIn("1,1000.25,500.5,3.5,CAY\n2,1001,501,4,\n3,1002,502,,cột điện\n"), expected);
    EXPECT_THAT(pointsIn("# job 7\r\n1;1000,25;500,5;3,5;CAY\r\n\r\n2;1001;501;4\r\n3;1002;502;;cột điện\r\n"),
                expected);
    EXPECT_THAT(pointsIn("1\t1000,25\t500,5\t3,5\tCAY\n2\t1001\t501\t4\n3\t1002\t502\t\tcột điện\n"), expected);
    EXPECT_THAT(
        pointsIn("Point,E (m),N (m),Elev.,Code\n1,500.5,1000.25,3.5,CAY\n2,501,1001,4,\n3,502,1002,,cột điện\n"),
        expected);
    EXPECT_THAT(pointsIn("Mã;Tên điểm;X;Y;Cao độ\nCAY;1;1000,25;500,5;3,5\n;2;1001;501;4\ncột điện;3;1002;502;\n"),
                expected);
    EXPECT_THAT(pointsIn("1 500,5 1000,25 3,5 CAY\n2 501 1001 4\n", "penzd"),
                ElementsAre("1: CAY, at 500.5 1000.25 3.5", "2: at 501 1001 4"));
    EXPECT_THAT(pointsIn("3 1002 502 9 cây  xanh to\n", "PNEZD"), ElementsAre("3: cây xanh to, at 502 1002 9"));
    EXPECT_THAT(pointsIn("x,1002,502,9,\"ao; hồ\",bờ,DC1|DC2\n", "-NEZD"),
                ElementsAre(": ao, hồ, bờ, DC1, DC2, at 502 1002 9"));
}

TEST(PointFile, RowsThatCannotBeUsedAreToldTogetherWhereTheyFollowOneAnother)
{
    SurveyFiles files;
    files.add("a.csv", "P,N,E,Z,D\n1,10,20,3,A\n2,x,20,3,A\n3,10,,3,A\n4,10,,3,A\n1,11,20,3,A\n5,10,20,h,A\n");
    const Survey all = files.read();

    EXPECT_THAT(findingsOf(all),
                ElementsAre("note 1: the columns are taken as name, northing, easting, elevation, code (PNEZD)",
                            "3: the northing is no number: \"x\"", "4-5: the easting is missing",
                            "6: the point \"1\" stands on line 2 already, at another place",
                            "7: the elevation is no number: \"h\""));
    EXPECT_EQ(all.points.size(), 3U);
    EXPECT_THAT(findingsOf(SurveyFiles{}.add("b.txt", "1,2,3\n4,5,6\n").read()),
                ElementsAre(StartsWith("1: what the columns hold cannot be told: say it with --columns")));
    SurveyFiles wrong;
    wrong.options.columns = "PNN";
    EXPECT_THAT(findingsOf(wrong.add("c.txt", "1,2,3\n").read()),
                ElementsAre(StartsWith("0: the columns \"PNN\" are none")));
}

TEST(PointFile, VietnameseInAnyEncodingIsTheSameText)
{
    const std::u16string text = u"1,1000,500,3,Cây xanh\n2,1001,501,3,mép đường nhựa\n3,1002,502,3,Cột điện\n";
    // Windows-1258 has marks of their own for the tones that go with ê and ơ.
    const std::string windows1258 = "1,1000,500,3,C\xE2y xanh\n2,1001,501,3,m\xE9p \xF0\xFD\xF5\xCCng nh\xFD\xF2"
                                    "a\n3,1002,502,3,C\xF4\xF2t \xF0i\xEA\xF2n\n";
    const std::string marked = "\xFF\xFE" + std::string(reinterpret_cast<const char*>(text.data()), text.size() * 2);
    const auto expected =
        ElementsAre("1: Cây xanh, at 500 1000 3", "2: mép đường nhựa, at 501 1001 3", "3: Cột điện, at 502 1002 3");
    const std::vector<std::pair<std::string, std::string>> files{{toUtf8(text), "UTF-8"},
                                                                 {"\xEF\xBB\xBF" + toUtf8(text), "UTF-8"},
                                                                 {EncodeText(text), "TCVN3"},
                                                                 {windows1258, "Windows-1258"},
                                                                 {marked, "UTF-16"}};
    for (const auto& [bytes, encoding] : files)
    {
        const Survey all = SurveyFiles{}.add("a.csv", bytes).read();
        EXPECT_THAT(pointsOf(all), expected) << encoding;
        EXPECT_EQ(all.files[0].encoding, encoding);
        EXPECT_EQ(all.files[0].isGuessedEncoding, encoding == "TCVN3" || encoding == "Windows-1258");
    }
}

TEST(PointFile, TextThatReadsAsWellInTwoEncodingsIsRefusedUnlessTheUserSaysWhich)
{
    SurveyFiles files;
    files.add("a.csv", "1,1000,500,3,A\n2,1001,501,3,\xD8 12\n");
    EXPECT_THAT(findingsOf(files.read()),
                ElementsAre("2: the text may be 8-bit Vietnamese, \"2,1001,501,3,ỉ 12\", or Windows-1258, "
                            "\"2,1001,501,3,Ø 12\": say which with --encoding"));
    files.options.encoding = "cp1258";
    EXPECT_THAT(pointsOf(files.read()), ElementsAre("1: A, at 500 1000 3", "2: Ø 12, at 501 1001 3"));
    files.options.encoding = "utf-8";
    EXPECT_THAT(findingsOf(files.read()), ElementsAre("2: has bytes that are no utf-8, which it is said to be"));
    files.options.encoding = "klingon";
    EXPECT_THAT(findingsOf(files.read()), ElementsAre("0: the encoding \"klingon\" is not known"));
}

TEST(SectionTable, SectionsStandAtTheirStationsOfTheAlignment)
{
    SurveyFiles files;
    files.landXml(
        "<Alignments><Alignment name=\"T1\" staStart=\"1000\"><CoordGeom><Line><Start>0 0</Start><End>0 100</End>"
        "</Line></CoordGeom><StaEquation staInternal=\"1050\" staAhead=\"1030\"/></Alignment></Alignments>");
    files.add("book.csv", "Lý trình;Khoảng cách;Cao độ;Mã\nKm1+010;-5;12,5;CAY\n;0;12;\n;3;;\n;4;11;MUONG\n"
                          "Km1+040;0;5;\nKm1+040 (2);-1;5;\n;1;6;\nKm3+000;0;5;\nC9;0;5;\n");
    const Survey all = files.read();

    EXPECT_THAT(sectionsOf(all), ElementsAre(" 10: -5 12.5, 0 12, | 4 11, |", " 60: -1 5, 1 6, |"));
    EXPECT_THAT(pointsOf(all), ElementsAre(": CAY, at 10 5 12.5", ": MUONG, at 10 -4 11"));
    EXPECT_THAT(findingsOf(all),
                ElementsAre(StartsWith("note 1: the columns are taken as section or station, offset, elevation, code"),
                            HasSubstr("section \"Km1+040.00\" has a station that the alignment has 2 times"),
                            HasSubstr("section \"Km3+000.00\" has a station that the alignment does not have"),
                            HasSubstr("section \"C9\" has no station")));
}

TEST(SectionTable, WithoutAnAlignmentSectionsStandOnAStraightOne)
{
    SurveyFiles files;
    files.add("book.csv", "C1,-4,10\nC1,0,10.5\nC1,4,10.2\nC2,-4,9\nC2,0,9.5\nC2,4,9.2\n");
    const Survey all = files.read();

    EXPECT_THAT(sectionsOf(all), ElementsAre("C1 0: -4 10, 0 10.5, 4 10.2, |", "C2 20: -4 9, 0 9.5, 4 9.2, |"));
    EXPECT_THAT(findingsOf(all), ElementsAre(HasSubstr("no alignment is given: the sections stand on a straight one"),
                                             HasSubstr("(SOZD)")));
    EXPECT_EQ(all.alignments.size(), 1U);
    EXPECT_THAT(findingsOf(SurveyFiles{}.add("b.csv", "C1,-4,10\nC1,0,1\nC2,4,2\nC2,5,2\nC1,0,10.5\nC1,1,1").read()),
                testing::Contains("5: section \"C1\" began on line 1 already"));
}
