#include "files/dxf/new_drawing.h"
#include "host/db/entity/polyline.h"
#include "host/ed/command.h"
#include "sections/database_cs.h"
#include "sections/refresh.h"
#include "sections/scan.h"
#include "support/test_session.h"
#include "survey/read_survey.h"
#include "survey/sheet/write_drawing.h"

#include <gmock/gmock.h>

#include <cstdlib>

// A real road is no part of the project. It is looked for in $VELOXA_REAL_DATA/road and nowhere else.

namespace
{

using Ground = std::vector<AcGePoint2d>;

class RealRoad : public testing::Test
{
protected:
    void SetUp() override
    {
        if (std::getenv("VELOXA_REAL_DATA") == nullptr)
            GTEST_SKIP() << "VELOXA_REAL_DATA is not set";
    }
    static std::string pathOf(const std::string& name)
    {
        return std::string{std::getenv("VELOXA_REAL_DATA")} + "/road/" + name;
    }
    std::string imported() const
    {
        survey::Survey survey;
        for (const char* name : {"M3_RS-CL.tg.xml", "M3_Terrain.mm.xml", "Lightning_columns.xy.xml"})
            readSurveyFile(survey, pathOf(name), {});
        finishSurvey(survey, {});
        survey::WriteOptions options;
        options.spacing = 20.0;
        options.halfWidth = 30.0;
        AcDbDatabase drawing;
        drawing.adopt(files::newDrawing());
        writeDrawing(survey, options, drawing);
        std::string path = (session.folder().path() / "road.dxf").string();
        files::DxfWriter{}.write(drawing, path);
        return path;
    }
    std::vector<CrossSectionXdata*> scan(const std::string& path)
    {
        session.session().documents().open(toUtf16(path));
        ScanCrossSections(tree);
        acedCommandS({u"Zoom", u"e"});
        RefreshAllSections(tree);
        std::vector<CrossSectionXdata*> sections;
        for (CrossSectionXdata& section : tree.m_listReferenceLines[0].m_listCrossSections)
            sections.push_back(&section);
        return sections;
    }
    /// The ground line in metres about the base point.
    static Ground groundOf(const CrossSectionXdata& section)
    {
        Ground ground;
        const AcDbObjectPointer<AcDbPolyline> line{section.m_idGroundLine};
        for (unsigned i = 0; line && i < line->numVerts(); ++i)
        {
            AcGePoint2d vertex;
            line->getPointAt(i, vertex);
            ground.emplace_back((vertex.x - section.m_ptOrigin.x) / section.m_dScale,
                                (vertex.y - section.m_ptOrigin.y) / section.m_dScale);
        }
        return ground;
    }

    TestSession session;
    DatabaseCS tree;
};

double heightAt(const Ground& ground, double offset)
{
    const auto next =
        std::find_if(ground.begin() + 1, ground.end() - 1, [&](const AcGePoint2d& point) { return point.x >= offset; });
    const AcGePoint2d& from = *std::prev(next);
    return next->x > from.x ? from.y + (next->y - from.y) * (offset - from.x) / (next->x - from.x) : from.y;
}

} // namespace

TEST_F(RealRoad, HasItsSectionsGroundCrossingsAndLamps)
{
    std::vector<Ground> grounds;
    size_t lamps = 0;
    for (const CrossSectionXdata* section : scan(imported()))
    {
        EXPECT_GT(section->m_listBlockData2.size(), 0U) << toUtf8(section->m_strName);
        lamps += section->m_listBlockData1.size() > 0 ? 1 : 0;
        grounds.push_back(groundOf(*section));
    }
    EXPECT_EQ(lamps, 22U);

    // The same road as it was cut by another hand; its datums are others.
    const std::vector<CrossSectionXdata*> others = scan(pathOf("m3.dxf"));
    ASSERT_EQ(grounds.size(), others.size());
    for (size_t i = 0; i < grounds.size(); ++i)
    {
        ASSERT_GT(grounds[i].size(), 4U);
        const Ground other = groundOf(*others[i]);
        const double datum = heightAt(other, 0.0) - heightAt(grounds[i], 0.0);
        EXPECT_NEAR(datum, std::round(datum), 1e-4);
        for (const AcGePoint2d& point : other)
            EXPECT_NEAR(heightAt(grounds[i], point.x) + datum, point.y, 0.002) << i << " at " << point.x;
    }
}
