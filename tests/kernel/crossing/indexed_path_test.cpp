#include "kernel/crossing/indexed_path.h"
#include "kernel/paths.h"

#include <gtest/gtest.h>

#include <random>

using namespace paths;
using testing::ElementsAre;

namespace
{

enum class Shape
{
    Rising,
    Falling,
    Free,
    Arcs,
    Closed
};

/// Coordinates on a coarse grid, so that vertices, verticals and segments that lie on one another are common.
class Dice
{
public:
    explicit Dice(unsigned seed) : m_random(seed) {}
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    double coordinate() { return below(3) == 0 ? below(2000) / 100.0 : below(20); }

    CurvePath path(Shape shape, int most, double shift)
    {
        std::vector<PathVertex> vertices;
        double x = 0;
        for (int i = 1 + below(most); i >= 0; --i)
        {
            x += shape == Shape::Rising ? below(3) / 2.0 : -below(3) / 2.0;
            const bool ordered = shape == Shape::Rising || shape == Shape::Falling;
            vertices.push_back({shift + (ordered ? 10 + x : coordinate()), shift + coordinate()});
            if (shape == Shape::Arcs || (shape == Shape::Closed && below(2) == 0))
                vertices.back().bulge = (below(9) - 4) / 2.0;
            if (below(200) == 0)
                vertices.back().y = kNan;
        }
        return shape == Shape::Closed ? closed(std::move(vertices)) : level(std::move(vertices));
    }

private:
    std::mt19937 m_random;
};

void expectSame(const CurvePath& path, const CurvePath& other)
{
    const IndexedPath indexed{path};
    const AcGePoint3dArray plain = intersect(path, other);
    AcGePoint3dArray found{{1, 2, 3}};
    indexed.intersect(other, found);
    ASSERT_EQ(found.size(), plain.size());
    for (std::size_t i = 0; i < plain.size(); ++i)
        ASSERT_EQ((found[i] - plain[i]).length(), 0.0);
    if (other.vertices().size() != 2 || other.isClosed() || other.hasArcs())
        return;
    AcGePoint3dArray onLine;
    indexed.intersectLine({other.vertices()[0].x, other.vertices()[0].y},
                          {other.vertices()[1].x, other.vertices()[1].y}, onLine);
    ASSERT_EQ(onLine.size(), plain.size());
}

} // namespace

TEST(IndexedPath, AnswersWhatThePlainWayAnswers)
{
    Dice dice{20240611};
    std::size_t met = 0;
    for (int round = 0; round < 6000; ++round)
    {
        SCOPED_TRACE(round);
        const double shift = round % 3 == 0 ? 2e7 : 0.0;
        const CurvePath path = dice.path(static_cast<Shape>(round % 5), 60, shift);
        const CurvePath other = dice.path(static_cast<Shape>(dice.below(5)), round % 2 == 0 ? 1 : 12, shift);
        ASSERT_NO_FATAL_FAILURE(expectSame(path, other));
        met += intersect(path, other).size();
    }
    EXPECT_GT(met, 6000U);
}

TEST(IndexedPath, ProbesOfAGroundLineFindTheGround)
{
    const IndexedPath ground{level({{0, 5}, {10, 6}, {10, 2}, {20, 4}}, 3.0)};
    AcGePoint3dArray points;
    ground.intersectLine({5, -100}, {5, 100}, points);
    EXPECT_THAT(points, ElementsAre(At(5, 5.5, 3)));
    ground.intersectLine({0, -100}, {0, 100}, points);
    EXPECT_THAT(points, ElementsAre(At(0, 5, 3)));
    ground.intersectLine({20, -100}, {20, 100}, points);
    EXPECT_THAT(points, ElementsAre(At(20, 4, 3)));
    ground.intersectLine({10, -100}, {10, 100}, points);
    EXPECT_THAT(points, ElementsAre(At(10, 6, 3), At(10, 2, 3)));
    ground.intersectLine({20.001, -100}, {20.001, 100}, points);
    EXPECT_TRUE(points.empty());
    ground.intersect(segment(5, -100, 5, 100), points);
    EXPECT_TRUE(points.empty());
}

TEST(IndexedPath, PathsThatAreNotLevelAreAnsweredToo)
{
    const IndexedPath upright{CurvePath::circle({0, 0, 0}, 5, {0, -1, 0})};
    AcGePoint3dArray points;
    upright.intersect(level({{-9, 0}, {9, 0}}, 3), points);
    EXPECT_EQ(points.size(), 2U);
    upright.intersectLine({0, -9}, {0, 9}, points);
    EXPECT_TRUE(points.empty());
}
