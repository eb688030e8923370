#include "survey/read/survey_files.h"

#include "files/reader.h"
#include "host/db/database.h"
#include "survey/line/alignment_walk.h"
#include "survey/read/drawing/read_drawing.h"

#include <gmock/gmock.h>
#include <numbers>

using namespace survey;
using testing::ElementsAre;
using testing::StartsWith;

namespace
{

/// A drawing of entities alone, each a line of words "code=value".
class PlainDrawing
{
public:
    PlainDrawing& entity(const std::string& words)
    {
        std::istringstream in(words);
        for (std::string word; in >> word;)
        {
            const size_t equals = word.find('=');
            std::string value = word.substr(equals + 1);
            std::replace(value.begin(), value.end(), '_', ' ');
            m_entities += word.substr(0, equals) + "\n" + value + "\n";
        }
        return *this;
    }

    Survey read(const DrawingOptions& what, const ReadOptions& options = {}) const
    {
        TempFolder folder;
        folder.write("plain.dxf", "0\nSECTION\n2\nENTITIES\n" + m_entities + "0\nENDSEC\n0\nEOF\n");
        const std::string path = (folder.path() / "plain.dxf").string();
        AcDbDatabase drawing;
        drawing.adopt(files::FileReader{}.read(path, DrawingReader::Purpose::Symbol));
        Survey all;
        readDrawing(all, path, drawing, what, options);
        return all;
    }

private:
    std::string m_entities;
};

DrawingOptions pointsFrom(const std::string& source)
{
    DrawingOptions what;
    what.points.push_back(*readPointSource(source));
    return what;
}

} // namespace

TEST(PlainDrawing, LinesOfALayerThatMeetAreOneAlignmentInTheDirectionOfTheFirst)
{
    DrawingOptions what;
    what.alignmentLayer = u"tim";
    what.startStation = 500.0;
    // A line, then a left quarter circle drawn the other way round, then a line to the north.
    const Survey all = PlainDrawing{}
                           .entity("0=LINE 8=TIM 10=0 20=0 11=100 21=0")
                           .entity("0=LINE 8=KHAC 10=0 20=0 11=100 21=50")
                           .entity("0=LINE 8=TIM 10=150 20=50 11=150 21=90")
                           .entity("0=LWPOLYLINE 8=TIM 90=2 70=0 10=150 20=50 42=-0.41421356237309503 10=100 20=0")
                           .read(what);

    ASSERT_EQ(all.alignments.size(), 1U) << testing::PrintToString(findingsOf(all));
    const AlignmentLine& line = all.alignments[0];
    EXPECT_EQ(toUtf8(line.name), "tim");
    EXPECT_DOUBLE_EQ(line.startStation, 500.0);
    EXPECT_NEAR(lengthOf(line), 140.0 + 25.0 * std::numbers::pi, 1e-9);
    EXPECT_NEAR(pointAt(line, 100.0 + 12.5 * std::numbers::pi)
                    .distanceTo({100.0 + 50.0 * std::sin(std::numbers::pi / 4.0),
                                 50.0 - 50.0 * std::cos(std::numbers::pi / 4.0)}),
                0.0, 1e-9);
    EXPECT_NEAR(directionAt(line, lengthOf(line)).y, 1.0, 1e-12);
    what.alignmentLayer = u"trống";
    EXPECT_THAT(findingsOf(PlainDrawing{}.read(what)),
                ElementsAre("0: there is no line on the layer \"trống\" that could be an alignment"));
}

TEST(PlainDrawing, PointsComeFromPointsBlocksAndTexts)
{
    PlainDrawing drawing;
    drawing.entity("0=POINT 8=CAY 10=1 20=2 30=3")
        .entity("0=POINT 8=DIEM 10=10 20=20")
        .entity("0=TEXT 8=SO 10=10.5 20=20 40=1 1=17")
        .entity("0=TEXT 8=SO 10=10.5 20=19.5 40=1 1=12,35")
        .entity("0=MTEXT 8=MA 10=9 20=20.5 40=1 1={\\fArial;c\\U+1ED9t\\P\\U+0111i\\U+1EC7n}")
        .entity("0=TEXT 8=SO 10=30 20=20 40=1 1=99")
        .entity("0=INSERT 8=0 66=1 2=DIEMDO 10=5 20=6 30=1")
        .entity("0=ATTRIB 8=0 10=5 20=6 40=1 1=P7 2=TEN_DIEM")
        .entity("0=ATTRIB 8=0 10=5 20=6 40=1 1=8.25 2=CAODO")
        .entity("0=ATTRIB 8=0 10=5 20=6 40=1 1=NHA;DC1 2=CODE")
        .entity("0=SEQEND 8=0")
        .entity("0=INSERT 8=0 2=CAYXANH 10=7 20=7");

    EXPECT_THAT(pointsOf(drawing.read(pointsFrom("layer:CAY"))), ElementsAre(": CAY, at 1 2 3"));
    EXPECT_THAT(pointsOf(drawing.read(pointsFrom("block"))), ElementsAre("P7: NHA, DC1, at 5 6 8.25"));
    EXPECT_THAT(pointsOf(drawing.read(pointsFrom("text:diem"))), ElementsAre("17: cột điện, at 10 20 12.35"));
    EXPECT_THAT(findingsOf(drawing.read(pointsFrom("block:KHONG"))),
                ElementsAre("0: there are no blocks with attributes to be points"));
    EXPECT_FALSE(readPointSource("circle").has_value());
    ReadOptions feet;
    feet.unit = findLengthUnit("ft");
    EXPECT_THAT(pointsOf(drawing.read(pointsFrom("layer:CAY"), feet)), ElementsAre(": CAY, at 0.3048 0.6096 0.9144"));
}

TEST(PlainDrawing, LinesAreCodedByTheirLayerOrATableOfLayers)
{
    PlainDrawing drawing;
    drawing.entity("0=LWPOLYLINE 8=RAO 90=3 70=1 10=0 20=0 10=5 20=0 10=5 20=5")
        .entity("0=LINE 8=MUONG 10=0 20=0 30=2 11=9 21=0 31=3")
        .entity("0=LINE 8=MUONG 10=4 20=4 11=4 21=4")
        .entity("0=LINE 8=MUONG 10=x 20=4 11=4 21=4")
        .entity("0=TEXT 8=RAO 10=0 20=0 40=1 1=a");
    DrawingOptions what;
    what.codeFromLayer = true;
    const Survey byName = drawing.read(what);

    ASSERT_EQ(byName.lines.size(), 2U);
    EXPECT_EQ(toUtf8(byName.lines[0].description), "RAO");
    EXPECT_TRUE(byName.lines[0].closed && !byName.lines[0].hasElevations);
    EXPECT_TRUE(byName.lines[1].hasElevations);
    EXPECT_THAT(findingsOf(byName),
                ElementsAre("41: LINE on layer \"MUONG\" has no length", StartsWith("53: LINE: \"x\" is no number")));

    SurveyFiles table;
    table.add("codes.csv", "# layers\nmuong,Mương xây\nCAY,C1\n");
    what.layerCodes = readLayerCodes(table.pathOf("codes.csv"), {});
    const Survey byTable = drawing.read(what);
    ASSERT_EQ(byTable.lines.size(), 1U);
    EXPECT_EQ(toUtf8(byTable.lines[0].description), "Mương xây");
}
