#include "survey/read/survey_files.h"

#include "survey/line/alignment_walk.h"
#include "survey/line/elements.h"
#include "survey/line/stations.h"

#include <gmock/gmock.h>
#include <numbers>

using namespace survey;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

/// An alignment of one file, its stations beginning at 100.
std::string alignment(const std::string& geometry, const std::string& rest = {})
{
    return "<Alignments><Alignment name=\"T1\" staStart=\"100\" length=\"0\"><CoordGeom>\n" + geometry +
           "</CoordGeom>" + rest + "</Alignment></Alignments>";
}

constexpr const char* kStraight = "<Line><Start>0 0</Start><End>0 100</End></Line>\n";

} // namespace

TEST(LandXml, AlignmentsOfLinesCurvesClothoidsAndIrregularLinesAreContinuous)
{
    // A clothoid of 60 m to a radius of 200 m to the right, its end taken from a table of clothoids.
    const Survey all = SurveyFiles{}
                           .landXml(alignment("<Line><Start>1000 500</Start><End>1000 600</End></Line>\n"
                                              "<Spiral length=\"60\" radiusStart=\"INF\" radiusEnd=\"200\" rot=\"cw\" "
                                              "spiType=\"clothoid\"><Start>1000 600</Start><PI>1000 640</PI>"
                                              "<End>997.00481 659.86514</End></Spiral>\n"
                                              "<Curve rot=\"cw\" radius=\"200\"><Start>997.00481 659.86514</Start>"
                                              "<End>979.03 705.60</End></Curve>\n"
                                              "<IrregularLine><Start>979.03 705.60</Start><End>900 760</End>"
                                              "<PntList2D>979.03 705.60 950 720 900 760</PntList2D></IrregularLine>\n"))
                           .read();

    EXPECT_THAT(findingsOf(all), IsEmpty());
    ASSERT_EQ(all.alignments.size(), 1U);
    const AlignmentLine& line = all.alignments[0];
    ASSERT_EQ(line.elements.size(), 5U);
    EXPECT_DOUBLE_EQ(line.startStation, 100.0);
    EXPECT_NEAR(line.elements[1].direction, 0.0, 1e-4);
    EXPECT_NEAR(pointAt(line, 160.0).distanceTo({659.86514, 997.00481}), 0.0, 2e-4);
    EXPECT_NEAR(directionOn(line.elements[1], 60.0), -0.15, 1e-4);
    EXPECT_NEAR(line.elements[2].startCurvature, -1.0 / 200.0, 1e-6);
    EXPECT_NEAR(pointAt(line, lengthOf(line)).distanceTo({760.0, 900.0}), 0.0, 1e-6);
}

TEST(LandXml, StationEquationsAreDistancesAndCrossSectionsStandAtInternalStations)
{
    const std::string sections =
        "<CrossSects><CrossSect name=\"C1\" sta=\"130\" angleSkew=\"0.1\">"
        "<CrossSectSurf name=\"Design\" state=\"proposed\"><PntList2D>-9 1 9 1</PntList2D></CrossSectSurf>"
        "<CrossSectSurf name=\"EG\" state=\"existing\"><PntList2D>5 12.5 2 12 0 11</PntList2D>"
        "<PntList2D>-8 9 -3 10</PntList2D></CrossSectSurf>"
        "<DesignCrossSectSurf><CrossSectPnt code=\"L\">-4.5 11</CrossSectPnt><CrossSectPnt>6 11</CrossSectPnt>"
        "</DesignCrossSectSurf></CrossSect></CrossSects>";
    const Survey all =
        SurveyFiles{}
            .landXml(
                alignment(kStraight, "<StaEquation staInternal=\"150\" staAhead=\"1000\" staBack=\"150\"/>" + sections))
            .read();

    EXPECT_THAT(findingsOf(all), ElementsAre(HasSubstr("the ground of the cross-sections is \"EG\"")));
    const AlignmentLine& line = all.alignments[0];
    EXPECT_EQ(toUtf8(stationText(stationAt(line, 60.0))), "Km1+010.00");
    ASSERT_EQ(all.sections.size(), 1U);
    const GivenSection& section = all.sections[0];
    EXPECT_DOUBLE_EQ(section.distance, 30.0);
    EXPECT_DOUBLE_EQ(section.skew, 0.1);
    EXPECT_THAT(section.designEdges, ElementsAre(-4.5, 6.0));
    ASSERT_EQ(section.ground.size(), 2U);
    EXPECT_DOUBLE_EQ(section.ground[0][0].offset, -8.0);
    EXPECT_DOUBLE_EQ(section.ground[1][0].elevation, 11.0);
    EXPECT_DOUBLE_EQ(section.ground[1][2].offset, 5.0);
}

TEST(LandXml, SurfacesKeepVisibleFacesAndBreakLinesTheirCodings)
{
    const Survey all =
        SurveyFiles{}
            .landXml("<Surfaces><Surface name=\"S\"><SourceData><Breaklines>\n"
                     "<Breakline name=\"1\"><PntList3D>0 0 1 0 10 2 0 10 2 10 10 3 0 0 1</PntList3D>"
                     "<Feature code=\"x\"><Property label=\"terrainCoding\" value=\"122\"/>"
                     "<Property label=\"terrainCodingDesc\" value=\" Mép đường \"/></Feature></Breakline>\n"
                     "</Breaklines></SourceData><Definition surfType=\"TIN\"><Pnts>\n"
                     "<P id=\"7\">0 0 1</P><P id=\"3\">0 10 2</P><P id=\"9\">10 10 3</P><P id=\"4\">10 0 4</P>\n"
                     "</Pnts><Faces><F>7 3 9</F><F i=\"1\">7 9 4</F><F>7 7 9</F><F>7 9 5</F></Faces>"
                     "</Definition></Surface></Surfaces>")
            .read();

    EXPECT_THAT(findingsOf(all),
                ElementsAre("note 2: surface \"S\": 1 face with the same point twice left out",
                            "6: a face of surface \"S\" refers to the point 5, which there is none of"));
    ASSERT_EQ(all.surfaces.size(), 1U);
    EXPECT_THAT(all.surfaces[0].faces, ElementsAre(ElementsAre(0U, 1U, 2U)));
    EXPECT_DOUBLE_EQ(all.surfaces[0].points[1].x, 10.0);
    EXPECT_DOUBLE_EQ(all.surfaces[0].points[1].y, 0.0);
    ASSERT_EQ(all.lines.size(), 1U);
    EXPECT_EQ(toUtf8(all.lines[0].description), "Mép đường");
    EXPECT_EQ(toUtf8(all.lines[0].coding), "122");
    EXPECT_TRUE(all.lines[0].closed && all.lines[0].isBreakLine);
    EXPECT_EQ(all.lines[0].vertices.size(), 3U);
}

TEST(LandXml, PointsTakeTheirCodeFromThemselvesTheirDescriptionOrTheirGroup)
{
    const Survey all =
        SurveyFiles{}
            .landXml("<CgPoints><CgPoint name=\"1\" code=\"CAY;DC1\" desc=\"x\">20 10 3</CgPoint>"
                     "<CgPoint name=\"2\" desc=\"COT 12m\">21 11</CgPoint><CgPoint name=\"3\">22 12 5</CgPoint>"
                     "<CgPoints code=\"NHA\"><CgPoint name=\"4\">23 13 6</CgPoint><CgPoint pntRef=\"3\"/>"
                     "<CgPoint pntRef=\"99\"/></CgPoints></CgPoints>\n"
                     "<PlanFeatures><PlanFeature name=\"f\" code=\"RAO\"><CoordGeom><Line><Start pntRef=\"1\"/>"
                     "<End pntRef=\"4\"/></Line><Curve rot=\"ccw\"><Start pntRef=\"4\"/><Center>24 13</Center>"
                     "<End>24 14 8</End></Curve><Line><Start>0 0</Start><End>0 5</End></Line></CoordGeom>"
                     "</PlanFeature></PlanFeatures>")
            .read();

    EXPECT_THAT(pointsOf(all),
                ElementsAre("1: CAY, DC1, at 10 20 3", "2: COT, at 11 21", "3: NHA, at 12 22 5", "4: NHA, at 13 23 6"));
    EXPECT_THAT(findingsOf(all), ElementsAre("2: a CgPoint refers to the point \"99\", which there is none of"));
    ASSERT_EQ(all.lines.size(), 2U);
    EXPECT_EQ(toUtf8(all.lines[0].coding), "RAO");
    EXPECT_TRUE(all.lines[0].hasElevations);
    EXPECT_DOUBLE_EQ(all.lines[0].vertices.back().z, 8.0);
    // Chords of the quarter circle of 1 m stay within a centimetre of it.
    EXPECT_GE(all.lines[0].vertices.size(), 2U + 5U);
    EXPECT_FALSE(all.lines[1].hasElevations);
}

TEST(LandXml, AnyNamespaceAndUnitIsReadAndConversionsAreTold)
{
    const std::string imperial =
        "<l:LandXML xmlns:l=\"http://example.org/LandXML-2.0\" version=\"2.0\"><l:Units><l:Imperial "
        "linearUnit=\"USSurveyFoot\" angularUnit=\"decimal dd.mm.ss\"/></l:Units><l:CgPoints><l:CgPoint name=\"1\">"
        "3937 7874 39.37</l:CgPoint></l:CgPoints></l:LandXML>";
    const Survey all = SurveyFiles{}.add("a.xml", imperial).add("b.xml", "<LandXML><CgPoints/></LandXML>").read();

    EXPECT_THAT(pointsOf(all), ElementsAre("1: at 2400 1200 12"));
    EXPECT_THAT(findingsOf(all), ElementsAre("note 1: lengths are converted to metres: 1 US survey foot is 1200/3937 m",
                                             "note 1: the unit of length is not said; metre is taken"));
    EXPECT_EQ(all.files[0].format, "LandXML 2.0");
    EXPECT_EQ(all.files[0].units, "US survey foot");
}

TEST(LandXml, WhatCannotBeUsedIsToldWithItsLines)
{
    const std::string degenerate =
        alignment("<Line><Start>0 0</Start><End>0 0</End></Line>\n"
                  "<Curve rot=\"cw\"><Start>0 0</Start>\n<Center>0 0</Center>\n<End>0 9</End>"
                  "</Curve>\n<Line><Start>0 50</Start><End pntRef=\"x\"/></Line>\n"
                  "<Spiral rot=\"cw\" length=\"20\" radiusStart=\"INF\" radiusEnd=\"50\">"
                  "<Start>0 9</Start><End>0 99</End></Spiral>");
    const std::vector<std::pair<std::string, std::vector<std::string>>> cases{
        {"<LandXML><Units><Metric linearUnit=\"meter\"/></Units><CgPoints>\n<CgPoint name=\"1\">1 2 3</CgPoint>\n",
         {"2: is cut off: the file ends before its elements do"}},
        {"<LandXML>\n<a></b></LandXML>",
         {"note 1: the unit", "2: is not well-formed XML: Start-end tags mismatch", "note 2: a is not read"}},
        {"No XML", {"1: is not XML: it does not begin with \"<\""}},
        {"\n<kml/>", {"2: is XML but not LandXML: its element is \"kml\""}},
        {"<!DOCTYPE x [\n<!ENTITY a \"bb\">\n<!ENTITY c \"&a;&a;\">]>\n<LandXML><Units><Metric "
         "linearUnit=\"meter\"/></Units>"
         "<CgPoints><CgPoint>&c; 1</CgPoint></CgPoints></LandXML>",
         {"2: declares entities of its own, which are not expanded",
          "4: a CgPoint is no place of two or three numbers: \"&c; 1\""}},
        {"<LandXML><Units><Metric linearUnit=\"meter\"/></Units>\n" + degenerate + "</LandXML>",
         {"3: alignment \"T1\": Line has no length", "4-6: alignment \"T1\": Curve is degenerate: its radius is 0",
          "7: alignment \"T1\": Line: its end refers to the point \"x\", which there is none of",
          "8: alignment \"T1\": Spiral is degenerate: with its length and radii it would end 70"}},
        {"<LandXML><Units><Metric linearUnit=\"meter\"/></Units>\n<CgPoints><CgPoint name=\"1\">1 2 3</CgPoint>\n"
         "<CgPoint name=\"1\">1 2 3</CgPoint>\n<CgPoint name=\"1\">1 2 4</CgPoint>\n<CgPoint>1 x</CgPoint>\n"
         "<CgPoint>1 2 3 4</CgPoint></CgPoints><Parcels/></LandXML>",
         {"note 3: the point \"1\" stands on line 2 already, at the same place",
          "4: the point \"1\" stands on line 2 already, at another place",
          "5: a CgPoint is no place of two or three numbers: \"1 x\"",
          "6: a CgPoint is no place of two or three numbers: \"1 2 3 4\"", "note 6: Parcels is not read"}},
    };
    for (const auto& [xml, expected] : cases)
    {
        const std::vector<std::string> found = findingsOf(SurveyFiles{}.add("bad.xml", xml).read());
        ASSERT_EQ(found.size(), expected.size()) << xml << testing::PrintToString(found);
        for (size_t i = 0; i < found.size(); ++i)
            EXPECT_THAT(found[i], testing::StartsWith(expected[i])) << xml;
    }
}

TEST(LandXml, FilesThatLieElsewhereAreToldWithTheLikelyReason)
{
    const auto points = [](const std::string& first, const std::string& second)
    { return "<CgPoints><CgPoint>" + first + "</CgPoint><CgPoint>" + second + "</CgPoint></CgPoints>"; };
    SurveyFiles files;
    files.landXml(points("2300000 500000 1", "2300500 500700 2"), "a.xml")
        .landXml(points("500100 2300100 1", "500200 2300100 2"), "swapped.xml")
        .landXml(points("7545931 1640419 1", "7545999 1640500 2"), "feet.xml")
        .landXml(points("2301000 501000 1", "2301500 501700 2"), "b.xml")
        .landXml(points("1000 1000", "1500 1700"), "local.xml");

    const std::string elsewhere = "0: does not lie where " + files.pathOf("a.xml") + " does: ";
    EXPECT_THAT(findingsOf(files.read()),
                ElementsAre(HasSubstr(elsewhere + "northing and easting look swapped"),
                            HasSubstr(elsewhere + "its lengths look like feet that are taken for metres"),
                            HasSubstr(elsewhere + "it lies 2351 km from there")));
    files.options.swapped.insert(files.pathOf("swapped.xml"));
    EXPECT_EQ(findingsOf(files.read()).size(), 2U);
}
