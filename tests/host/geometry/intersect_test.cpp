#include "host/geometry/intersect.h"
#include "host/geometry/paths.h"

#include <gtest/gtest.h>

#include <numbers>

using namespace paths;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Intersect, PointsComeInOrderAlongTheFirstPath)
{
    const CurvePath comb = level({{0, -1}, {0, 1}, {1, 1}, {1, -1}, {2, -1}, {2, 1}});
    const CurvePath line = segment(5, 0, -5, 0);
    EXPECT_THAT(intersect(comb, line), ElementsAre(At(0, 0), At(1, 0), At(2, 0)));
    EXPECT_THAT(intersect(line, comb), ElementsAre(At(2, 0), At(1, 0), At(0, 0)));
}

TEST(Intersect, BothPathsAreBounded)
{
    EXPECT_THAT(intersect(segment(0, 0, 10, 0), segment(5, 1, 5, 0.001)), IsEmpty());
    EXPECT_THAT(intersect(segment(0, 0, 10, 0), segment(10.001, -1, 10.001, 1)), IsEmpty());
    EXPECT_THAT(intersect(segment(0, 0, 10, 0), segment(0, 3, 10, 3)), IsEmpty());
}

TEST(Intersect, TouchingEndsCount)
{
    EXPECT_THAT(intersect(segment(0, 0, 10, 0), segment(5, 1, 5, 0)), ElementsAre(At(5, 0)));
    EXPECT_THAT(intersect(segment(0, 0, 10, 0), segment(10, 0, 12, 4)), ElementsAre(At(10, 0)));
    EXPECT_THAT(intersect(segment(0, 0, 10, 0), segment(10, 0, 20, 0)), ElementsAre(At(10, 0)));
    EXPECT_THAT(intersect(segment(0, 0, 10, 0), segment(-7, 0, 0, 0)), ElementsAre(At(0, 0)));
    EXPECT_THAT(intersect(segment(0, 0, 1, 0), segment(1, 0, 100, 0)), ElementsAre(At(1, 0)));
}

TEST(Intersect, AVertexSharedBySegmentsIsOnePoint)
{
    const CurvePath line = segment(-5, 0, 5, 0);
    EXPECT_THAT(intersect(level({{0, 1}, {1, 0}, {2, 1}}), line), ElementsAre(At(1, 0)));
    EXPECT_THAT(intersect(level({{0, 1}, {1, 0}, {1, 0}, {2, -1}}), line), ElementsAre(At(1, 0)));
    EXPECT_THAT(intersect(line, level({{0, 1}, {1, 0}, {2, 1}})), ElementsAre(At(1, 0)));
    EXPECT_THAT(intersect(closed({{1, 0}, {2, 1}, {3, 0}, {2, -1}}), line), ElementsAre(At(1, 0), At(3, 0)));
    EXPECT_THAT(intersect(level({{1, 0}, {2, 1}, {3, 0}, {2, -1}, {1, 0}}), line), ElementsAre(At(1, 0), At(3, 0)));
}

TEST(Intersect, SegmentsOnOneAnotherGiveNone)
{
    const CurvePath line = segment(0, 0, 10, 0);
    EXPECT_THAT(intersect(line, line), IsEmpty());
    EXPECT_THAT(intersect(line, segment(3, 0, 4, 0)), IsEmpty());
    EXPECT_THAT(intersect(line, segment(9, 0, 4, 0)), IsEmpty());
    EXPECT_THAT(intersect(line, segment(-5, 0, 15, 0)), IsEmpty());
    // The neighbours of a covered segment still touch with their ends.
    EXPECT_THAT(intersect(level({{2, 5}, {2, 0}, {6, 0}, {6, -5}}), line), ElementsAre(At(2, 0), At(6, 0)));
}

TEST(Intersect, AVertexIsAnsweredExactly)
{
    const AcGePoint3dArray points = intersect(segment(0.1, 0.7, 0.3, -0.7), segment(0.2, 1e-17, 0.5, 3));
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points[0].x, 0.2);
    EXPECT_EQ(points[0].y, 1e-17);
}

TEST(Intersect, ElevationsMustAgree)
{
    const CurvePath low = level({{0, 0}, {10, 0}}, 5.0);
    EXPECT_THAT(intersect(low, level({{5, -1}, {5, 1}}, 5.0)), ElementsAre(At(5, 0, 5)));
    EXPECT_THAT(intersect(low, level({{5, -1}, {5, 1}}, 5.001)), IsEmpty());
    EXPECT_THAT(intersect(low, level({{5, -1}, {5, 1}}, kNan)), IsEmpty());
    EXPECT_THAT(intersect(low, CurvePath::line({5, -1, 5}, {5, 1, 5})), ElementsAre(At(5, 0, 5)));
    EXPECT_THAT(intersect(low, CurvePath::line({5, -1, 4}, {5, 1, 6})), ElementsAre(At(5, 0, 5)));
    EXPECT_THAT(intersect(low, CurvePath::line({5, -1, 4}, {5, 1, 7})), IsEmpty());
}

TEST(Intersect, ArcsMeetLines)
{
    const CurvePath circle = CurvePath::circle({0, 0, 0}, 5);
    EXPECT_THAT(intersect(segment(-10, 3, 10, 3), circle), ElementsAre(At(-4, 3), At(4, 3)));
    EXPECT_THAT(intersect(circle, segment(-10, 3, 10, 3)), ElementsAre(At(4, 3), At(-4, 3)));
    EXPECT_THAT(intersect(segment(-10, 5, 10, 5), circle), ElementsAre(At(0, 5)));
    EXPECT_THAT(intersect(segment(-10, 5.001, 10, 5.001), circle), IsEmpty());
    EXPECT_THAT(intersect(segment(0, 0, 1, 1), circle), IsEmpty());
    EXPECT_THAT(intersect(segment(0, 0, 10, 0), circle), ElementsAre(At(5, 0)));

    const CurvePath leftQuarter = level({{5, 0, std::tan(std::numbers::pi / 8)}, {0, 5}});
    EXPECT_THAT(intersect(segment(-9, 4, 9, 4), leftQuarter), ElementsAre(At(3, 4)));
    EXPECT_THAT(intersect(segment(-9, -4, 9, -4), leftQuarter), IsEmpty());
    const CurvePath rightHalf = level({{5, 0, -1}, {-5, 0}});
    EXPECT_THAT(intersect(segment(3, 9, 3, -9), rightHalf), ElementsAre(At(3, -4)));
    EXPECT_THAT(intersect(segment(0, 0, 5, 0), rightHalf), ElementsAre(At(5, 0)));
    const CurvePath threeQuarters = CurvePath::arc({0, 0, 0}, 5, 0, 1.5 * std::numbers::pi);
    EXPECT_THAT(intersect(threeQuarters, segment(-9, 9, 9, -9)),
                ElementsAre(At(-5 * std::numbers::sqrt2 / 2, 5 * std::numbers::sqrt2 / 2)));
}

TEST(Intersect, AnArcThatIsNearlyStraightBehavesLikeItsChord)
{
    for (const double bulge : {1e-5, 1e-9, -1e-12, 1e-15, 1e-300})
    {
        SCOPED_TRACE(bulge);
        const CurvePath flat = level({{0, 0, bulge}, {1000, 0}});
        const AcGePoint3dArray points = intersect(segment(500, -10, 500, 10), flat);
        ASSERT_EQ(points.size(), 1U);
        EXPECT_NEAR(points[0].x, 500, 1e-9);
        EXPECT_NEAR(points[0].y, -500 * bulge, 1e-9);
        EXPECT_NEAR(*flat.distAtPoint(points[0]), 500, 1e-6);
        EXPECT_THAT(intersect(segment(1001, -10, 1001, 10), flat), IsEmpty());
        EXPECT_THAT(intersect(segment(1000, 0, 1000, 10), flat), ElementsAre(At(1000, 0)));
    }
}

TEST(Intersect, ArcsMeetArcs)
{
    const CurvePath left = CurvePath::circle({0, 0, 0}, 5);
    EXPECT_THAT(intersect(left, CurvePath::circle({6, 0, 0}, 5)), ElementsAre(At(3, 4), At(3, -4)));
    EXPECT_THAT(intersect(left, CurvePath::circle({8, 0, 0}, 3)), ElementsAre(At(5, 0)));
    EXPECT_THAT(intersect(left, CurvePath::circle({2, 0, 0}, 3)), ElementsAre(At(5, 0)));
    EXPECT_THAT(intersect(left, CurvePath::circle({0, 0, 0}, 4)), IsEmpty());
    EXPECT_THAT(intersect(left, CurvePath::circle({11, 0, 0}, 5)), IsEmpty());
    EXPECT_THAT(intersect(level({{5, 0, 1}, {-5, 0}}), CurvePath::arc({0, 0, 0}, 5, 1, 2)), IsEmpty());
    EXPECT_THAT(intersect(level({{5, 0, 1}, {-5, 0}}), level({{-5, 0, -1}, {5, 0}})), IsEmpty());
    // The halves of a circle touch with both their ends.
    EXPECT_THAT(intersect(level({{5, 0, 1}, {-5, 0}}), level({{-5, 0, 1}, {5, 0}})), ElementsAre(At(5, 0), At(-5, 0)));
}

TEST(Intersect, MirroredAndSlantedPlanesCount)
{
    const AcGeVector3d down = -AcGeVector3d::kZAxis;
    const CurvePath mirrored = CurvePath::plane({{-5, 0, 1}, {5, 0}}, false, -2, down);
    EXPECT_THAT(intersect(mirrored, level({{3, -9}, {3, 9}}, 2)), ElementsAre(At(3, -4, 2)));
    EXPECT_THAT(intersect(level({{3, -9}, {3, 9}}, 2), mirrored), ElementsAre(At(3, -4, 2)));
    EXPECT_THAT(intersect(level({{3, -9}, {3, 9}}, -2), mirrored), IsEmpty());

    const CurvePath upright = CurvePath::circle({0, 0, 0}, 5, {0, -1, 0});
    EXPECT_THAT(intersect(level({{-9, 0}, {9, 0}}, 3), upright), ElementsAre(At(-4, 0, 3), At(4, 0, 3)));
    EXPECT_THAT(intersect(level({{4, -9}, {4, 9}}, 3), upright), ElementsAre(At(4, 0, 3)));
    EXPECT_THAT(intersect(level({{4.1, -9}, {4.1, 9}}, 3), upright), IsEmpty());
    EXPECT_THAT(intersect(upright, CurvePath::circle({0, 0, 0}, 5)), ElementsAre(At(5, 0, 0), At(-5, 0, 0)));
    const CurvePath other = CurvePath::plane({{-9, 3}, {9, 3}}, false, 0, {0, 1, 0});
    EXPECT_THAT(intersect(other, upright), ElementsAre(At(4, 0, 3), At(-4, 0, 3)));
    EXPECT_THAT(intersect(upright, CurvePath::plane({{-9, 3}, {9, 3}}, false, 1, {0, 1, 0})), IsEmpty());
}

TEST(Intersect, PathsInSpaceMeetWhereTheyReallyDo)
{
    const AcGePoint3d points[] = {{0, 0, 0}, {10, 10, 10}, {20, 0, 0}};
    const CurvePath roof = CurvePath::space(points);
    EXPECT_THAT(intersect(roof, CurvePath::line({0, 5, 5}, {20, 5, 5})), ElementsAre(At(5, 5, 5), At(15, 5, 5)));
    EXPECT_THAT(intersect(roof, CurvePath::line({0, 5, 6}, {20, 5, 6})), IsEmpty());
    EXPECT_THAT(intersect(roof, CurvePath::line({10, 10, 10}, {10, 10, 30})), ElementsAre(At(10, 10, 10)));
    EXPECT_THAT(intersect(roof, CurvePath::line({-5, -5, -5}, {5, 5, 5})), IsEmpty());
    EXPECT_THAT(intersect(roof, CurvePath::line({-5, -5, -5}, {0, 0, 0})), ElementsAre(At(0, 0, 0)));
}

TEST(Intersect, WorksFarFromTheOrigin)
{
    constexpr double kEast = 2e7;
    constexpr double kNorth = 1.9e7;
    const CurvePath slope = segment(kEast, kNorth, kEast + 3, kNorth + 1);
    const AcGePoint3dArray points = intersect(segment(kEast + 1, kNorth - 5, kEast + 1, kNorth + 5), slope);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points[0].x, kEast + 1);
    EXPECT_NEAR(points[0].y, kNorth + 1.0 / 3.0, 1e-8);
    // The end of the second is a computed point of the first, off by the rounding of such coordinates.
    EXPECT_EQ(intersect(slope, segment(points[0].x, points[0].y, kEast + 5, kNorth - 9)).size(), 1U);
    const CurvePath circle = CurvePath::circle({kEast, kNorth, 0}, 5);
    EXPECT_EQ(intersect(circle, segment(kEast - 9, kNorth + 5, kEast + 9, kNorth + 5)).size(), 1U);
    EXPECT_EQ(intersect(circle, segment(kEast - 9, kNorth + 4, kEast + 9, kNorth + 4)).size(), 2U);
}

TEST(Intersect, WildCoordinatesMeetNothingAndSpoilNothingElse)
{
    const CurvePath line = segment(-5, 0, 5, 0);
    for (const double wild : {kNan, kInfinity, -kInfinity, 1e60, 1e308})
    {
        SCOPED_TRACE(wild);
        const CurvePath hurt = level({{0, 1}, {0, -1}, {wild, 5}, {1, -1}, {1, 1}, {2, wild}, {2, 1, wild}, {3, -1}});
        EXPECT_THAT(intersect(hurt, line), ElementsAre(At(0, 0), At(1, 0)));
        EXPECT_THAT(intersect(line, hurt), ElementsAre(At(0, 0), At(1, 0)));
        EXPECT_THAT(intersect(hurt, CurvePath::circle({0, 0, 0}, wild)), IsEmpty());
        EXPECT_THAT(intersect(line, CurvePath::line({0, 0, wild}, {0, 0, 0})), IsEmpty());
        EXPECT_THAT(intersect(line, CurvePath::plane({{0, 1}, {0, -1}}, false, wild, {1, wild, 0})), IsEmpty());
        EXPECT_FALSE(line.distAtPoint({wild, 0, 0}).has_value());
    }
    EXPECT_THAT(intersect(line, CurvePath()), IsEmpty());
    EXPECT_THAT(intersect(level({{0, 0}}), line), IsEmpty());
}
