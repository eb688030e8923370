#include "survey/surface/section_cut.h"
#include "survey/surface/triangulate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <random>

namespace
{

using survey::CutLine;
using survey::GroundPoint;
using survey::SectionCutter;
using survey::Tin;
using testing::ElementsAre;
using testing::SizeIs;

constexpr double kEast = 598'000.0;
constexpr double kNorth = 2'317'000.0;

/// A square of 10 m on a slope, as two triangles with the diagonal from the lower left to the upper right.
Tin slope()
{
    Tin tin;
    for (const auto& [x, y] : {std::pair{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}, {0.0, 10.0}})
        tin.points.push_back({kEast + x, kNorth + y, 50.0 + x});
    tin.faces = {{0, 1, 2}, {0, 3, 2}};
    return tin;
}

CutLine eastward(double y, double left = 100.0, double right = 100.0)
{
    return {{kEast + 5.0, kNorth + y}, {1.0, 0.0}, left, right};
}

TEST(SectionCut, HasAVertexWhereItCrossesAnEdgeAndEndsAtItsWidths)
{
    const Tin tin = slope();
    const SectionCutter cutter{tin};
    EXPECT_THAT(cutter.cut(eastward(4)).pieces,
                ElementsAre(ElementsAre(GroundPoint{-5, 50}, GroundPoint{-1, 54}, GroundPoint{5, 60})));
    EXPECT_THAT(cutter.cut(eastward(4, 2, 3)).pieces,
                ElementsAre(ElementsAre(GroundPoint{-2, 53}, GroundPoint{-1, 54}, GroundPoint{3, 58})));
    EXPECT_THAT(cutter.cut(eastward(0)).pieces, ElementsAre(ElementsAre(GroundPoint{-5, 50}, GroundPoint{5, 60})))
        << "along an edge";
    EXPECT_THAT(cutter.cut(eastward(-1)).pieces, SizeIs(0));
    const CutLine diagonal{{kEast + 5, kNorth + 5}, {std::sqrt(0.5), std::sqrt(0.5)}, 20, 20};
    const auto along = cutter.cut(diagonal).pieces;
    ASSERT_THAT(along, SizeIs(1)) << "along the edge of both triangles";
    EXPECT_THAT(along[0], SizeIs(2));
    EXPECT_NEAR(along[0][0].offset, -5 * std::sqrt(2.0), 1e-9);
}

TEST(SectionCut, GapsMakePiecesWallsMakeStepsAndWhatLiesOverAnotherIsTold)
{
    Tin tin = slope();
    for (const auto& [x, z] : {std::pair{10.0, 70.0}, {15.0, 70.0}, {20.0, 80.0}, {25.0, 80.0}, {12.0, 90.0}})
        for (const double y : {0.0, 10.0})
            tin.points.push_back({kEast + x, kNorth + y, z});
    // Points 4 and 5 stand over 1 and 2.
    const std::vector<survey::Surface::Face> wall{{1, 2, 5}, {1, 5, 4}};
    const std::vector<survey::Surface::Face> upper{{4, 5, 7}, {4, 7, 6}};
    const std::vector<survey::Surface::Face> apart{{8, 9, 11}, {8, 11, 10}};
    for (const auto& part : {upper, apart, wall})
        tin.faces.insert(tin.faces.end(), part.begin(), part.end());
    const auto cut = SectionCutter{tin}.cut(eastward(5));
    EXPECT_EQ(cut.overlaps, 0U);
    EXPECT_THAT(cut.pieces, ElementsAre(ElementsAre(GroundPoint{-5, 50}, GroundPoint{0, 55}, GroundPoint{5, 60},
                                                    GroundPoint{5, 70}, GroundPoint{7.5, 70}, GroundPoint{10, 70}),
                                        ElementsAre(GroundPoint{15, 80}, GroundPoint{17.5, 80}, GroundPoint{20, 80})));

    tin.faces.push_back({1, 12, 13}); // from 10 m to 12 m, within the upper part
    EXPECT_EQ(SectionCutter{tin}.cut(eastward(5)).overlaps, 1U);
}

TEST(SectionCut, TheIndexFindsWhatThePlainLoopFinds)
{
    std::mt19937 random{11};
    const auto any = [&](double size) { return size * (random() / 4294967296.0); };
    AcGePoint3dArray points;
    for (int i = 0; i < 3000; ++i) // dense and sparse, with long thin triangles about the hull
        points.push_back({kEast + any(i % 3 == 0 ? 2000.0 : 200.0), kNorth + any(i % 3 == 0 ? 300.0 : 40.0), any(9.0)});
    const Tin tin = survey::triangulate(points, {}).tin;
    std::vector<uint32_t> all(tin.faces.size());
    std::iota(all.begin(), all.end(), 0U);
    const SectionCutter cutter{tin};
    size_t vertices = 0;
    for (int i = 0; i < 300; ++i)
    {
        const double angle = any(6.3);
        const bool throughPoint = i % 4 == 0;
        const AcGePoint3d& on = points[static_cast<size_t>(i)];
        const AcGePoint2d center{throughPoint ? on.x : kEast - 50 + any(2100.0),
                                 throughPoint ? on.y : kNorth - 50 + any(400.0)};
        const CutLine line{center, {std::cos(angle), std::sin(angle)}, any(60.0), any(60.0)};
        const auto cut = cutter.cut(line);
        EXPECT_EQ(cut.pieces, cutFaces(tin, all, line).pieces);
        for (const auto& piece : cut.pieces)
            vertices += piece.size();
    }
    EXPECT_GT(vertices, 1000U);
}

} // namespace
