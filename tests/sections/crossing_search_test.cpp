#include "sections/crossing_search.h"

#include "kernel/crossing/intersect.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace
{

using Path = std::vector<AcGePoint2d>;

CurvePath curveOf(const Path& path)
{
    std::vector<PathVertex> vertices;
    for (const AcGePoint2d& p : path)
        vertices.push_back({p.x, p.y});
    return CurvePath::plane(std::move(vertices));
}

/// Every line asked by itself.
std::vector<LineCrossing> findPlainly(const std::vector<SearchLine>& lines, const Path& path)
{
    std::vector<LineCrossing> crossings;
    for (size_t line = 0; line < lines.size(); ++line)
    {
        const AcGePoint3dArray points = intersect(curveOf(path), curveOf({lines[line].from, lines[line].to}));
        if (points.empty())
            continue;
        crossings.push_back({static_cast<uint32_t>(line), points[0], std::nullopt});
        if (points.size() > 1)
            crossings.back().second = points[1];
    }
    return crossings;
}

std::string describe(const std::vector<LineCrossing>& crossings)
{
    std::string text;
    const auto add = [&](const AcGePoint3d& p)
    {
        char buffer[80];
        std::snprintf(buffer, sizeof buffer, " (%.17g %.17g %.17g)", p.x, p.y, p.z);
        text += buffer;
    };
    for (const LineCrossing& crossing : crossings)
    {
        text += std::to_string(crossing.line);
        add(crossing.first);
        if (crossing.second)
            add(*crossing.second);
        text += '\n';
    }
    return text;
}

/// Lines and paths in a world of `size` around a far `corner`, made to touch: coordinates on a lattice of `steps`
/// (none: anywhere), paths that come back to vertices and end where they began, now and then a coordinate beyond use.
class World
{
public:
    World(unsigned seed, double size, double corner, int steps)
        : m_random(seed), m_size(size), m_corner(corner), m_steps(steps)
    {
    }

    bool chance(double probability) { return std::bernoulli_distribution(probability)(m_random); }

    double coordinate()
    {
        if (m_steps > 0)
            return m_corner + m_size * std::uniform_int_distribution<int>(0, m_steps)(m_random) / m_steps;
        return m_corner + std::uniform_real_distribution<double>(0.0, m_size)(m_random);
    }
    AcGePoint2d point() { return {coordinate(), coordinate()}; }

    AcGePoint2d odd()
    {
        const double values[] = {std::numeric_limits<double>::quiet_NaN(),
                                 std::numeric_limits<double>::infinity(),
                                 -1e300,
                                 1e49,
                                 -1e18,
                                 3e10};
        return {values[std::uniform_int_distribution<int>(0, 5)(m_random)], coordinate()};
    }

    /// A way from `from` that is short beside the world.
    AcGePoint2d near(const AcGePoint2d& from)
    {
        if (m_steps > 0)
        {
            std::uniform_int_distribution<int> step(-2, 2);
            return {from.x + step(m_random) * m_size / m_steps, from.y + step(m_random) * m_size / m_steps};
        }
        std::normal_distribution<double> step(0.0, m_size / 20);
        return {from.x + step(m_random), from.y + step(m_random)};
    }

    Path path()
    {
        Path path{point()};
        const int count = std::uniform_int_distribution<int>(0, 60)(m_random);
        for (int i = 0; i < count; ++i)
            path.push_back(chance(0.02)   ? odd()
                           : chance(0.05) ? AcGePoint2d(path.front())
                           : chance(0.1)  ? point()
                                          : near(path.back()));
        if (chance(0.3))
            path.push_back(AcGePoint2d(path.front()));
        return path;
    }

    std::vector<SearchLine> lines(int count)
    {
        std::vector<SearchLine> lines;
        for (int i = 0; i < count; ++i)
        {
            const AcGePoint2d from = chance(0.01) ? odd() : point();
            lines.push_back({from, chance(0.01) ? odd() : chance(0.1) ? point() : near(from)});
        }
        return lines;
    }

private:
    std::mt19937 m_random;
    double m_size;
    double m_corner;
    int m_steps;
};

} // namespace

TEST(CrossingSearch, FindsExactlyWhatEveryLineAskedByItselfFinds)
{
    const struct
    {
        double size, corner;
        int steps;
    } worlds[] = {{1000.0, 0.0, 0},     {100.0, 2e6, 0}, {12.0, 0.0, 12},
                  {20.0, 500000.0, 10}, {1e9, -5e8, 0},  {1e-6, 0.0, 8}};
    size_t found = 0;
    for (unsigned seed = 0; seed < 40; ++seed)
        for (const auto& each : worlds)
        {
            World world(seed, each.size, each.corner, each.steps);
            const std::vector<SearchLine> lines = world.lines(seed % 5 == 0 ? 3 : 60);
            CrossingSearch search(lines);
            for (int i = 0; i < 15; ++i)
            {
                const Path path = world.path();
                const auto expected = findPlainly(lines, path);
                ASSERT_EQ(describe(search.find(path)), describe(expected)) << "seed " << seed << " size " << each.size;
                found += expected.size();
            }
        }
    EXPECT_GT(found, 10000u);
}

TEST(CrossingSearch, OfNoLinesOrOfPathsWithoutSegmentsFindsNothing)
{
    EXPECT_TRUE(CrossingSearch(std::vector<SearchLine>{}).find(Path{{0, 0}, {1, 1}}).empty());
    CrossingSearch search(std::vector<SearchLine>{{{0, 0}, {2, 2}}});
    EXPECT_TRUE(search.find(Path{}).empty());
    EXPECT_TRUE(search.find(Path{{1, 1}}).empty());
    EXPECT_EQ(search.find(Path{{1, 1}, {1, 5}}).size(), 1u);
}
