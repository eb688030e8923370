#include "host/geometry/paths.h"
#include "host/geometry/plan_polygon.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace paths;

namespace
{

/// A horseshoe open to the right: the notch is 2 < x < 10, 2 < y < 8.
AcGePoint3dArray horseshoe(bool turned)
{
    AcGePoint3dArray corners{{0, 0, 0}, {10, 0, 5}, {10, 2, 0},  {2, 2, 0},
                             {2, 8, 0}, {10, 8, 0}, {10, 10, 0}, {0, 10, 0}};
    if (turned)
        std::reverse(corners.begin(), corners.end());
    return corners;
}

class HorseshoeBothWaysRound : public testing::TestWithParam<bool>
{
protected:
    const PlanPolygon polygon{horseshoe(GetParam())};
};

} // namespace

INSTANTIATE_TEST_SUITE_P(PlanPolygon, HorseshoeBothWaysRound, testing::Bool());

TEST_P(HorseshoeBothWaysRound, ContainsPointsInsideAndOnTheBorderAtAnyHeight)
{
    EXPECT_TRUE(polygon.contains({1, 5, 99}));
    EXPECT_TRUE(polygon.contains({9, 1, 0}));
    EXPECT_TRUE(polygon.contains({2, 5, 0}));
    EXPECT_TRUE(polygon.contains({10, 2, 0}));
    EXPECT_TRUE(polygon.contains({5, 0, 0}));
    EXPECT_FALSE(polygon.contains({5, 5, 0}));
    EXPECT_FALSE(polygon.contains({2.001, 5, 0}));
    EXPECT_FALSE(polygon.contains({-1, 0, 0}));
    EXPECT_FALSE(polygon.contains({-1, 10, 0}));
    EXPECT_FALSE(polygon.contains({kNan, 5, 0}));
}

TEST_P(HorseshoeBothWaysRound, IsTouchedByWhatReachesIt)
{
    EXPECT_TRUE(polygon.touches(segment(5, 5, 1, 5)));
    EXPECT_TRUE(polygon.touches(segment(0.5, 0.5, 1, 1)));
    EXPECT_TRUE(polygon.touches(segment(-5, 5, 20, 5)));
    EXPECT_TRUE(polygon.touches(segment(-5, 0, 15, 0)));
    EXPECT_TRUE(polygon.touches(segment(10, 10, 11, 11)));
    EXPECT_TRUE(polygon.touches(CurvePath::circle({6, 5, 77}, 3)));
    EXPECT_TRUE(polygon.touches(CurvePath::circle({5, 5, 0}, 4.9)));
    EXPECT_TRUE(polygon.touches(CurvePath::line({1, 5, 0}, {1, 5, 9})));
    EXPECT_TRUE(polygon.touches(level({{1, 1}})));
    EXPECT_FALSE(polygon.touches(CurvePath::circle({6, 5, 0}, 2.99)));
    EXPECT_FALSE(polygon.touches(CurvePath::circle({5, 5, 0}, 50)));
    EXPECT_FALSE(polygon.touches(segment(3, 3, 20, 5)));
    EXPECT_FALSE(polygon.touches(level({{5, 5}})));
    EXPECT_FALSE(polygon.touches(CurvePath()));
    EXPECT_FALSE(polygon.touches(level({{kNan, 1}, {1, kInfinity}})));
}

TEST_P(HorseshoeBothWaysRound, EnclosesOnlyWhatNeverLeavesIt)
{
    EXPECT_TRUE(polygon.encloses(segment(1, 1, 9, 1)));
    EXPECT_TRUE(polygon.encloses(segment(0, 0, 10, 0)));
    EXPECT_TRUE(polygon.encloses(CurvePath::circle({1, 5, 0}, 1)));
    EXPECT_TRUE(polygon.encloses(level({{9, 1}, {1, 1}, {1, 9}, {9, 9}})));
    EXPECT_FALSE(polygon.encloses(segment(9, 1, 9, 9)));
    EXPECT_FALSE(polygon.encloses(segment(10, 2, 10, 8)));
    EXPECT_FALSE(polygon.encloses(closed({{9, 1}, {1, 1}, {1, 9}, {9, 9}})));
    EXPECT_FALSE(polygon.encloses(CurvePath::circle({1, 5, 0}, 1.01)));
    EXPECT_FALSE(polygon.encloses(segment(1, 1, 20, 1)));
    EXPECT_FALSE(polygon.encloses(level({{1, 1}, {kNan, 1}})));
    EXPECT_FALSE(polygon.encloses(CurvePath()));
}

TEST(PlanPolygon, ABandWithoutWidthIsALine)
{
    const AcGePoint3dArray corners{{0, 0, 0}, {10, 0, 0}, {10, 0, 0}, {0, 0, 0}};
    const PlanPolygon band{corners};
    EXPECT_TRUE(band.contains({5, 0, 0}));
    EXPECT_FALSE(band.contains({5, 0.001, 0}));
    EXPECT_TRUE(band.touches(segment(5, -1, 5, 1)));
    EXPECT_TRUE(band.touches(segment(-5, 0, 15, 0)));
    EXPECT_FALSE(band.touches(segment(11, -1, 11, 1)));
}

TEST(TouchInPlan, AFenceMeetsWhatItPassesWhateverTheHeight)
{
    const CurvePath fence = level({{0, 0}, {10, 0}, {10, 10}});
    EXPECT_TRUE(touchInPlan(CurvePath::line({5, -1, 3}, {5, 1, 8}), fence));
    EXPECT_TRUE(touchInPlan(segment(2, 0, 4, 0), fence));
    EXPECT_TRUE(touchInPlan(level({{10, 5}}, 4.0), fence));
    EXPECT_TRUE(touchInPlan(CurvePath::circle({10, 0, 0}, 5, {0, -1, 0}), fence));
    EXPECT_FALSE(touchInPlan(segment(0, 10, 9.99, 0.01), fence));
    EXPECT_FALSE(touchInPlan(CurvePath::circle({5, 5, 0}, 4.9), fence));
    EXPECT_FALSE(touchInPlan(level({{10, 5.5}, {kNan, 5.5}}), level({{10, kNan}})));
}
