#include "plan/vertex_index.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace
{

bool plainLoop(const AcGePoint3dArray& vertices, AcGePoint3d point)
{
    point.z = 0.0;
    for (const AcGePoint3d& vertex : vertices)
        if (point.isEqualTo({vertex.x, vertex.y, 0.0}))
            return true;
    return false;
}

/// Vertices at multiples of powers of two and a hair before them, where cells of whatever size begin and end, near zero
/// and far from it.
AcGePoint3dArray latticeVertices(std::mt19937& random)
{
    AcGePoint3dArray vertices;
    std::uniform_int_distribution<int> steps(-40, 40);
    const double hair = 0.3 * AcGeContext::gTol.equalPoint();
    for (const double far : {0.0, 1.0, 5e5, 2.3e6})
        for (const int exponent : {0, -4, -20, -26, -27, -30})
            for (int i = 0; i < 20; ++i)
                vertices.emplace_back(far + std::ldexp(steps(random), exponent) - (i & 1) * hair,
                                      -far + std::ldexp(steps(random), exponent) - (i >> 1 & 1) * hair,
                                      static_cast<double>(i));
    return vertices;
}

} // namespace

TEST(VertexIndex, AnswersWhatThePlainLoopAnswersAlsoWhereCellsMeet)
{
    std::mt19937 random(7);
    const AcGePoint3dArray vertices = latticeVertices(random);
    VertexIndex index;
    for (const AcGePoint3d& vertex : vertices)
        index.add(vertex);

    const double tolerance = AcGeContext::gTol.equalPoint();
    int equal = 0;
    for (const AcGePoint3d& vertex : vertices)
        for (const double dx : {-1.5, -1.0, -0.7, -0.5, 0.0, 0.5, 0.7, 1.0, 1.5})
            for (const double dy : {-1.0, -0.7, 0.0, 0.7, 1.0, 1e3})
            {
                const AcGePoint3d point{vertex.x + dx * tolerance, vertex.y + dy * tolerance, 99.0};
                const bool expected = plainLoop(vertices, point);
                ASSERT_EQ(index.has(point), expected) << point.x << " " << point.y;
                equal += expected ? 1 : 0;
            }
    EXPECT_GT(equal, 1000);
}

TEST(VertexIndex, CoordinatesThatAreNoneAreNowhere)
{
    const double infinite = std::numeric_limits<double>::infinity();
    VertexIndex index;
    for (const double x : {infinite, -infinite, std::nan(""), 1e300, -0.0})
        index.add({x, 0.0, 0.0});
    EXPECT_FALSE(index.has({infinite, 0.0, 0.0}));
    EXPECT_FALSE(index.has({std::nan(""), 0.0, 0.0}));
    EXPECT_TRUE(index.has({1e300, 0.0, 0.0}));
    EXPECT_TRUE(index.has({0.0, -0.0, 0.0}));
}
