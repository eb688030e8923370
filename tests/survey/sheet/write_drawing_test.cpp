#include "survey/sheet/write_drawing.h"

#include "files/dxf/new_drawing.h"
#include "host/companion/alignment.h"
#include "host/companion/measure_point.h"
#include "host/db/entity/polyline.h"
#include "sections/database_cs.h"
#include "sections/scan.h"
#include "store/text/text.h"
#include "support/test_drawing.h"
#include "support/test_session.h"
#include "survey/line/elements.h"
#include "survey/sheet/sheet_columns.h"

#include <gmock/gmock.h>

#include <random>

using namespace survey;
using testing::Contains;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::SizeIs;

namespace
{

constexpr double kEast = 598'000.0;
constexpr double kNorth = 2'317'000.0;

/// A survey of a road that runs 100 m eastwards, and what becomes of it.
class Written : public testing::Test
{
protected:
    Written() { survey.files.push_back({"/surveys/road.xml", "LandXML 1.2", "metre", "UTF-8", false, {}}); }

    static AcGePoint3d at(double x, double y, double z = 0.0) { return {kEast + x, kNorth + y, z}; }

    AlignmentLine& road(const std::u16string& name = u"T1")
    {
        AlignmentLine& line = survey.alignments.emplace_back();
        line.name = name;
        line.elements = {straightElement({kEast, kNorth}, {kEast + 100.0, kNorth})};
        return line;
    }
    /// A plane that rises by 0.1 m a metre to the left of the road, where it stands at 20 m, as two triangles.
    void slope(double from = -50.0, double to = 150.0)
    {
        Surface& surface = survey.surfaces.emplace_back();
        for (const auto& [x, y] : {std::pair{from, -30.0}, {to, -30.0}, {to, 30.0}, {from, 30.0}})
            surface.points.push_back(at(x, y, 20.0 + 0.1 * y));
        surface.faces = {{0, 1, 2}, {0, 2, 3}};
    }
    void line(const std::u16string& description, const AcGePoint3dArray& vertices)
    {
        CodedLine& added = survey.lines.emplace_back();
        added.description = description;
        added.vertices = vertices;
    }
    void point(std::vector<std::u16string> codes, const AcGePoint3d& place)
    {
        survey.points.push_back(
            {u"P" + toUtf16(std::to_string(survey.points.size())), std::move(codes), place, true, {}});
    }

    /// Writes into a new drawing, or into the one of that text, saves and opens it again.
    const WriteResult& write(const std::string& into = {})
    {
        AcDbDatabase drawing;
        if (into.empty())
            drawing.adopt(files::newDrawing());
        else
        {
            session.folder().write("into.dxf", into);
            drawing.adopt(session.session().reader().read((session.folder().path() / "into.dxf").string(),
                                                          DrawingReader::Purpose::Drawing));
        }
        result = writeDrawing(survey, options, drawing);
        session.session().writer().write(drawing, (session.folder().path() / "out.dxf").string());
        text = session.folder().read("out.dxf");
        session.open(text);
        ScanCrossSections(scanned);
        return result;
    }

    const CrossSectionXdata& section(size_t index, size_t alignment = 0)
    {
        return scanned.m_listReferenceLines[alignment].m_listCrossSections[index];
    }
    /// The ground line of a section, as (offset, elevation), without the millimetre that it is longer at its ends.
    std::vector<std::pair<double, double>> groundOf(const CrossSectionXdata& section, double datum)
    {
        std::vector<std::pair<double, double>> points;
        const AcDbObjectPointer<AcDbPolyline> ground{section.m_idGroundLine};
        for (unsigned i = 1; ground && i + 1 < ground->numVerts(); ++i)
        {
            AcGePoint2d vertex;
            ground->getPointAt(i, vertex);
            points.emplace_back((vertex.x - section.m_ptOrigin.x) / section.m_dScale,
                                (vertex.y - section.m_ptOrigin.y) / section.m_dScale + datum);
        }
        return points;
    }
    std::vector<std::string> tellings() const
    {
        std::vector<std::string> texts;
        for (const Finding& finding : result.findings)
            texts.push_back((finding.kind == FindingKind::kNote ? "note " : "") + finding.text);
        return texts;
    }

    TestSession session;
    Survey survey;
    WriteOptions options;
    WriteResult result;
    std::string text;
    DatabaseCS scanned;
};

auto near(double offset, double elevation)
{
    return Pair(DoubleNear(offset, 1e-6), DoubleNear(elevation, 1e-6));
}

std::vector<std::string> codesOf(const ListBlockFcode& rows)
{
    std::vector<std::string> codes;
    for (const BlockFcode& row : rows)
        codes.push_back(toUtf8(row.m_strFcode));
    return codes;
}

std::string textOfRow(const BlockData& row)
{
    return toUtf8(row.m_strName) + " " + std::to_string(std::lround(row.m_dOffset1 * 100.0));
}

} // namespace

TEST_F(Written, SectionsAreCutWithTheirGroundPointsAndCrossings)
{
    road();
    slope();
    line(u"Mép đường", {at(-10, 5, 20.5), at(110, 5, 20.5)});
    point({u"Cột điện", u"cây"}, at(50, 10, 23));
    point({u"cây"}, at(50.3, -4, 19));
    point({}, at(20, 0, 20));
    options.spacing = 50.0;
    options.edges = DesignEdges{-4.5, 5.5};
    write();

    EXPECT_THAT(tellings(), IsEmpty());
    ASSERT_THAT(result.sections, SizeIs(3));
    EXPECT_EQ(result.sections[1].name, u"Km0+050.00");
    EXPECT_THAT(result.sections[1].points, ElementsAre(0U, 1U));
    EXPECT_EQ(result.sections[1].groundVertices, 3U);
    EXPECT_THAT(result.unusedPoints, ElementsAre(2U));
    ASSERT_THAT(result.offLine, SizeIs(1));
    EXPECT_EQ(result.offLine[0].section, 1U);
    EXPECT_NEAR(result.offLine[0].distance, 0.3, 1e-9);
    EXPECT_EQ(result.pointCodes.at(u"cây"), 2U);

    ASSERT_THAT(scanned.m_listReferenceLines, SizeIs(1));
    ASSERT_THAT(scanned.m_listReferenceLines[0].m_listCrossSections, SizeIs(3));
    const CrossSectionXdata& middle = section(1);
    EXPECT_TRUE(middle.m_ptCenter.isEqualTo(at(50, 0)));
    EXPECT_TRUE(middle.m_vecDir.isEqualTo({0, 1, 0})) << "end A is on the left";
    EXPECT_EQ(middle.m_dExtent1, 20.0);
    EXPECT_EQ(middle.m_dScale, 5.0);
    EXPECT_THAT(groundOf(middle, 10.0), ElementsAre(near(-20, 22), near(0, 20), near(20, 18)))
        << "a datum of 10 m: the lowest ground is at 18 m";
    ASSERT_THAT(middle.m_listBlockData2, SizeIs(1));
    EXPECT_EQ(textOfRow(middle.m_listBlockData2[0]), "Mép đường -500");
    EXPECT_THAT(codesOf(middle.m_listBlockFcode1), ElementsAre("Cột điện", "cây", "cây", "DC1", "DC2"));
    EXPECT_THAT(text, HasSubstr("Lý trình")) << "UTF-8";
    EXPECT_THAT(text, HasSubstr("PlxDbMeasurePointObj\n  3\nPlxObjects\n 90\n0\n 91\n4\n"));
    EXPECT_THAT(text, HasSubstr("PlxDbAlignment\n  3\nRouteBase\n 90\n0\n 91\n1\n"));
}

TEST_F(Written, PointsAreSnappedToTheNearestLineAtTheirOwnHeight)
{
    road();
    slope();
    point({u"cây"}, at(9.9, 7, 33));
    options.spacing = 19.0;
    options.tolerance = 10.0;
    options.snap = true;
    write();

    ASSERT_THAT(section(1).m_listBlockFcode2, SizeIs(1)) << "9.1 m from the second section, 9.9 m from the first";
    EXPECT_TRUE(section(1).m_listBlockFcode2[0].m_ptPosition.isEqualTo(at(19, 7, 33)));
    EXPECT_DOUBLE_EQ(section(1).m_listBlockFcode2[0].m_dOffset, -7.0);
    EXPECT_THAT(section(0).m_listBlockFcode2, IsEmpty());
    EXPECT_THAT(result.offLine, IsEmpty());
}

TEST_F(Written, ACodeReadsTheSameOnLinesAndPoints)
{
    const std::vector<std::u16string> codes{u"cây",      u"cây",  u"CỘT",   u"NHÀ",  u"Käyrä",
                                            u"ống nước", u"Ø300", u"Ωmega", u"MT_1", u" mép "};
    road();
    slope();
    for (size_t i = 0; i < codes.size(); ++i)
    {
        line(codes[i], {at(-10, 1.0 + static_cast<double>(i)), at(110, 1.0 + static_cast<double>(i))});
        point({codes[i]}, at(0, 1.0 + static_cast<double>(i)));
    }
    write();

    std::set<std::string> onLines;
    for (const BlockData& row : section(0).m_listBlockData2)
        onLines.insert(toUtf8(row.m_strName));
    const std::vector<std::string> onPoints = codesOf(section(0).m_listBlockFcode1);
    EXPECT_EQ(onLines, std::set<std::string>(onPoints.begin(), onPoints.end()));
    EXPECT_THAT(onLines, testing::UnorderedElementsAre("cây", "CỘT", "NHÀ", "Kayra", "ống nước", "O300", "Ωmega",
                                                       "MT_1", "mép"));
    EXPECT_THAT(tellings(), Contains(HasSubstr("\"Käyrä\" (2 times) has letters that read otherwise on lines: it is "
                                               "written \"Kayra\"")));
    EXPECT_EQ(result.lineCodes.at(u"cây"), 2U);
}

TEST_F(Written, GivenSectionsKeepTheirNamesSkewGapsAndEdges)
{
    AlignmentLine& line = road();
    line.startStation = 100.0;
    line.equations = {{60.0, 120.0, true, {}}}; // 120 to 160 again
    const auto give = [&](const std::u16string& name, double distance) -> GivenSection&
    {
        GivenSection& given = survey.sections.emplace_back();
        given.name = name;
        given.alignment = 0;
        given.distance = distance;
        given.ground = {{{-9, 7, {}, {}}, {-8, 7.5, {}, {}}}, {{-2, 6, {}, {}}, {0, 6, {}, {}}, {8, 7, {}, {}}}};
        return given;
    };
    give(u"C2", 30.0).skew = 0.1;
    give(u"", 60.0).designEdges = {-3.0, 0.0, 3.5};
    give(u"C2", 20.0);
    write();

    ASSERT_THAT(result.sections, SizeIs(3));
    EXPECT_EQ(result.sections[0].name, u"C2");
    EXPECT_EQ(result.sections[0].station, u"Km0+120.00 (1)");
    EXPECT_EQ(result.sections[1].name, u"C2 #2");
    EXPECT_EQ(result.sections[2].name, u"Km0+120.00 (2)");
    EXPECT_EQ(result.sections[0].groundPieces, 2U);
    EXPECT_THAT(groundOf(section(0), 0.0), ElementsAre(near(-2, 6), near(0, 6), near(8, 7)));
    EXPECT_NEAR(section(1).m_vecDir.x, std::sin(0.1), 1e-9) << "turned clockwise: the left end forward";
    ASSERT_THAT(section(2).m_listBlockFcode1, SizeIs(2));
    EXPECT_EQ(section(2).m_listBlockFcode1[0].m_dOffset, -3.0);
    EXPECT_EQ(section(2).m_listBlockFcode1[1].m_dOffset, 3.5);
    EXPECT_THAT(tellings(), ElementsAre(HasSubstr("the section \"C2\" stands twice"),
                                        HasSubstr("3 sections with gaps in the ground")));
}

TEST_F(Written, GroundIsMadeOfPointsAndBreakLines)
{
    road();
    for (const double x : {-10.0, 110.0})
        for (const double y : {-30.0, 30.0})
            point({}, at(x, y, 10));
    line(u"tim", {at(-10, 0, 12), at(110, 0, 12)});
    survey.lines.back().isBreakLine = true;
    line(u"ngang", {at(55, -30, 15), at(55, 30, 15)});
    survey.lines.back().isBreakLine = true;
    options.spacing = 30.0;
    write();
    EXPECT_THAT(groundOf(section(0), 5.0), Contains(near(0, 12)));
    EXPECT_THAT(tellings(), ElementsAre(HasSubstr("triangles were made over 9 points and 2 break lines"),
                                        HasSubstr("1 crossing of break lines with two heights")));
}

TEST_F(Written, WhatLiesOutsideTheSurfaceIsTold)
{
    road();
    slope(-50.0, 70.0);
    write();
    EXPECT_EQ(result.sections[5].groundPieces, 0U);
    EXPECT_TRUE(section(5).m_idGroundLine.isNull());
    EXPECT_THAT(tellings(),
                ElementsAre("2 sections outside the surface, without a ground line (T1: Km0+080.00, T1: Km0+100.00)"));
    EXPECT_EQ(result.findings[0].kind, FindingKind::kUnusable);
}

TEST_F(Written, AnExistingDrawingKeepsItsVersionCodePageAndContent)
{
    TestDrawing drawing{1015, "ANSI_1258"};
    drawing.header("$INSUNITS", " 70\n     4\n");
    drawing.line(at(0, 0), at(4000, 10));
    drawing.text("Đường cũ", at(0, 40));
    const std::string before = drawing.dxf();
    road(u"Tuyến 2");
    slope();
    line(u"Mép đường", {at(-10, 5), at(110, 5)});
    point({u"Cột điện"}, at(0, 10, 23));
    write(before);

    EXPECT_EQ(session.drawing().version(), 1015);
    EXPECT_FALSE(session.drawing().encoding().isUtf8());
    EXPECT_THAT(tellings(), ElementsAre(HasSubstr("($INSUNITS 4)")));
    EXPECT_EQ(toUtf8(scanned.m_listReferenceLines[0].m_strName), "Tuyến 2");
    EXPECT_EQ(textOfRow(section(0).m_listBlockData2[0]), "Mép đường -500");
    EXPECT_THAT(codesOf(section(0).m_listBlockFcode1), ElementsAre("Cột điện"));
    EXPECT_GT(section(0).m_ptOrigin.x, kEast + 4000.0) << "the sheets stand beside what was there";
    const size_t entities = before.find("ENTITIES");
    EXPECT_THAT(text, HasSubstr(before.substr(entities, before.find("ENDSEC", entities) - entities - 4)));
    EXPECT_THAT(text, HasSubstr("PLXDBALIGNMENT\n  2\nPlxDbAlignment\n  3\nRouteBase\n"));
}

TEST_F(Written, AnAlignmentOfATakenNameIsReplacedOnlyWhenAsked)
{
    road();
    slope();
    line(u"mép", {at(-10, 5), at(110, 5)});
    point({u"cây"}, at(0, 10, 23));
    write();
    const std::string first = text;
    const auto count = [](const std::string& all, const std::string& part)
    {
        size_t found = 0;
        for (size_t at = all.find(part); at != all.npos; at = all.find(part, at + 1))
            ++found;
        return found;
    };
    const size_t texts = count(first, "\nTEXT\n");

    write(first);
    EXPECT_THAT(tellings(), ElementsAre(HasSubstr("the drawing has an alignment \"T1\" already")));
    EXPECT_EQ(result.findings[0].kind, FindingKind::kUnusable);
    EXPECT_EQ(count(text, "\nPLXDBALIGNMENT\n  5\n"), 1U);

    options.replace = true;
    write(first);
    EXPECT_THAT(tellings(), IsEmpty());
    EXPECT_EQ(result.replacedAlignments, 1U);
    EXPECT_EQ(count(text, "\nPLXDBALIGNMENT\n  5\n"), 1U);
    EXPECT_EQ(count(text, "\nTEXT\n"), texts);
    EXPECT_EQ(count(text, "\nVERTEX\n"), 2U);
    EXPECT_EQ(count(text, "\nPLXDBMEASUREPOINTOBJ\n  5\n"), 1U);
}

TEST(SheetColumns, NoTwoSheetsOverlap)
{
    std::mt19937 random{3};
    std::vector<SheetSize> sheets(200);
    for (SheetSize& sheet : sheets)
        sheet = {50.0 + static_cast<double>(random() % 300), 80.0 + static_cast<double>(random() % 200)};
    const std::vector<AcGePoint2d> places = columnPlaces(sheets, {100.0, 50.0}, 1000.0);
    ASSERT_THAT(places, SizeIs(200));
    for (size_t i = 0; i < sheets.size(); ++i)
    {
        EXPECT_LE(places[i].y, 50.0);
        EXPECT_LE(places[i].x + sheets[i].width, rightEndOf(sheets, places));
        for (size_t j = 0; j < i; ++j)
        {
            const bool isApart =
                places[i].x >= places[j].x + sheets[j].width || places[j].x >= places[i].x + sheets[i].width ||
                places[i].y <= places[j].y - sheets[j].height || places[j].y <= places[i].y - sheets[i].height;
            EXPECT_TRUE(isApart) << i << " and " << j;
        }
    }
}
