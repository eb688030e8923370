#include "kernel/crossing/intersect.h"
#include "kernel/curve/free_curves.h"
#include "kernel/paths.h"

#include <gtest/gtest.h>

#include <numbers>

using namespace paths;

namespace
{

constexpr double kPi = std::numbers::pi;

void expectBox(const CurvePath& path, const AcGePoint3d& low, const AcGePoint3d& high)
{
    EXPECT_TRUE(path.extents().minPoint().isEqualTo(low, AcGeTol{1e-9}))
        << testing::PrintToString(path.extents().minPoint());
    EXPECT_TRUE(path.extents().maxPoint().isEqualTo(high, AcGeTol{1e-9}))
        << testing::PrintToString(path.extents().maxPoint());
}

double farthestFromEllipse(const CurvePath& path, double major, double minor)
{
    double worst = 0.0;
    const AcGePoint3dArray points = path.flatten();
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
    {
        const AcGePoint3d middle = points[i] + (points[i + 1] - points[i]) * 0.5;
        worst = std::max(worst, std::fabs(std::hypot(middle.x / major, middle.y / minor) - 1.0) * major);
    }
    return worst;
}

} // namespace

TEST(CurvePath, ExtentsHoldTheArcsThemselves)
{
    expectBox(CurvePath::circle({1, 2, 3}, 5), {-4, -3, 3}, {6, 7, 3});
    expectBox(CurvePath::circle({1, 2, 3}, 5, {0, -1, 0}), {-4, -3, -3}, {6, -3, 7});
    expectBox(level({{5, 0, 1}, {-5, 0}}), {-5, 0, 0}, {5, 5, 0});
    expectBox(level({{5, 0, -1}, {-5, 0}}), {-5, -5, 0}, {5, 0, 0});
    expectBox(CurvePath::arc({0, 0, 0}, 5, kPi / 4, -kPi / 4), {-5, -5, 0}, {5 / std::numbers::sqrt2, 5, 0});
    expectBox(level({{kNan, 0}, {1, 1}, {2, 2}}), {1, 1, 0}, {2, 2, 0});
    EXPECT_FALSE(CurvePath().extents().isValid());
}

TEST(CurvePath, LengthAndDistanceFollowThePath)
{
    const CurvePath path = level({{0, 0}, {10, 0, 1}, {10, 4}, {0, 4}}, 2.0);
    EXPECT_NEAR(path.length(), 20 + 2 * kPi, 1e-9);
    EXPECT_EQ(path.distAtPoint({0, 0, 2}), 0.0);
    EXPECT_NEAR(*path.distAtPoint({12, 2, 2}), 10 + kPi, 1e-9);
    EXPECT_NEAR(*path.distAtPoint({3, 4, 2}), 17 + 2 * kPi, 1e-9);
    EXPECT_FALSE(path.distAtPoint({8, 2, 2}).has_value());
    EXPECT_FALSE(path.distAtPoint({3, 4.00001, 2}).has_value());
    EXPECT_FALSE(path.distAtPoint({3, 4, 0}).has_value());
    EXPECT_NEAR(CurvePath::circle({7, 7, 0}, 3).length(), 6 * kPi, 1e-9);
    EXPECT_NEAR(CurvePath::line({0, 0, 0}, {2, 3, 6}).length(), 7, 1e-12);
    EXPECT_NEAR(*CurvePath::line({0, 0, 0}, {2, 3, 6}).distAtPoint({1, 1.5, 3}), 3.5, 1e-12);
}

TEST(CurvePath, TransformedKeepsArcsWhereTheMapDoes)
{
    const CurvePath half = level({{5, 0, 1}, {-5, 0}}, 1.0);
    const CurvePath mirrored = half.transformed(AcGeMatrix3d::scaling(-2, 2, 2));
    EXPECT_TRUE(mirrored.isLevel());
    EXPECT_TRUE(mirrored.hasArcs());
    expectBox(mirrored, {-10, 0, 2}, {10, 10, 2});

    const CurvePath upright = half.transformed(AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kXAxis));
    EXPECT_TRUE(upright.hasArcs());
    expectBox(upright, {-5, -1, 0}, {5, -1, 5});
    expectBox(upright.transformed(AcGeMatrix3d::rotation(-kPi / 2, AcGeVector3d::kXAxis)), {-5, 0, 1}, {5, 5, 1});

    const CurvePath stretched = half.transformed(AcGeMatrix3d::scaling(2, 1, 1));
    EXPECT_FALSE(stretched.hasArcs());
    EXPECT_LE(farthestFromEllipse(stretched, 10, 5), 2.1e-4);
    expectBox(half.transformed(AcGeMatrix3d::scaling(1, 0, 1)), {-5, 0, 1}, {5, 0, 1});
    expectBox(CurvePath::line({1, 2, 3}, {4, 5, 6}).transformed(AcGeMatrix3d::translation({1, 1, 1})), {2, 3, 4},
              {5, 6, 7});
}

TEST(CurvePath, FlattenStaysWithinItsTolerance)
{
    const CurvePath circle = CurvePath::circle({0, 0, 0}, 100);
    for (const double tolerance : {10.0, 0.1, 0.0})
    {
        const CurvePath chords = CurvePath::space(circle.flatten(tolerance));
        EXPECT_LE(farthestFromEllipse(chords, 100, 100), tolerance > 0 ? tolerance * 1.001 : 1.001e-3);
        EXPECT_GT(farthestFromEllipse(chords, 100, 100), tolerance / 10);
    }
    EXPECT_TRUE(circle.flatten().back().isEqualTo({100, 0, 0}));
    EXPECT_EQ(segment(0, 0, 1, 1).flatten().size(), 2U);
}

TEST(FreeCurves, ARationalSplineIsACircle)
{
    SplineData quarter;
    quarter.degree = 2;
    quarter.knots = {0, 0, 0, 1, 1, 1};
    quarter.controlPoints = {{5, 0, 0}, {5, 5, 0}, {0, 5, 0}};
    quarter.weights = {1, std::numbers::sqrt2 / 2, 1};
    const AcGePoint3dArray points = splinePath(quarter).flatten();
    ASSERT_GT(points.size(), 10U);
    for (const AcGePoint3d& p : points)
        EXPECT_NEAR(std::hypot(p.x, p.y), 5, 1e-12);
    EXPECT_TRUE(points.back().isEqualTo({0, 5, 0}));
}

TEST(FreeCurves, ACubicWithInnerKnotsPassesWhereItShould)
{
    SplineData cubic;
    cubic.knots = {0, 0, 0, 0, 1, 2, 2, 2, 2};
    cubic.controlPoints = {{0, 0, 0}, {1, 3, 0}, {2, 0, 0}, {3, 3, 0}, {4, 0, 0}};
    const CurvePath path = splinePath(cubic);
    // At the middle knot: a quarter, a half and a quarter of the three inner points.
    EXPECT_TRUE(path.passesThrough({2, 1.5, 0}, 1e-9));
    EXPECT_EQ(intersect(path, segment(2, -1, 2, 9)).size(), 1U);
    cubic.knots.pop_back();
    EXPECT_TRUE(splinePath(cubic).isEmpty());
}

TEST(FreeCurves, FitPointsAreAllPassedSmoothly)
{
    SplineData fit;
    fit.fitPoints = {{0, 0, 0}, {1, 1, 0}, {1, 1, 0}, {3, 0, 0}, {7, 2, 1}};
    const CurvePath path = splinePath(fit);
    for (const AcGePoint3d& p : fit.fitPoints)
        EXPECT_TRUE(path.passesThrough(p, 1e-9));
    const AcGePoint3dArray points = path.flatten();
    for (std::size_t i = 2; i < points.size(); ++i)
        EXPECT_LT((points[i] - points[i - 1]).angleTo(points[i - 1] - points[i - 2]), 0.2);
    fit.closed = true;
    EXPECT_TRUE(splinePath(fit).flatten().back().isEqualTo({0, 0, 0}));
    fit.fitPoints[1].x = kNan;
    EXPECT_TRUE(splinePath(fit).isEmpty());
}
