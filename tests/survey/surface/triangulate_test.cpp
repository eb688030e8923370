#include "survey/surface/triangulate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <random>

namespace
{

using survey::BreakLine;
using survey::Surface;
using survey::Triangulation;
using testing::ElementsAre;
using testing::SizeIs;

/// A place of real coordinates, in metres about a corner of the survey.
AcGePoint3d at(double x, double y, double z = 0.0)
{
    return {598'000.0 + x, 2'317'000.0 + y, z};
}

using Lines = std::vector<AcGePoint3dArray>;

Triangulation triangulate(const AcGePoint3dArray& points, const Lines& lines, double maxEdge = HUGE_VAL)
{
    std::vector<BreakLine> given;
    for (const AcGePoint3dArray& line : lines)
        given.push_back({line, false});
    return survey::triangulate(points, given, maxEdge);
}

double cross(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

double hullArea(AcGePoint3dArray points)
{
    std::sort(points.begin(), points.end(),
              [](const auto& a, const auto& b) { return a.x < b.x || (a.x == b.x && a.y < b.y); });
    AcGePoint3dArray hull;
    for (int half = 0; half < 2; ++half)
    {
        const size_t base = hull.size();
        for (const AcGePoint3d& point : points)
        {
            while (hull.size() >= base + 2 && cross(hull[hull.size() - 2], hull.back(), point) <= 0.0)
                hull.pop_back();
            hull.push_back(point);
        }
        hull.pop_back();
        std::reverse(points.begin(), points.end());
    }
    double area = 0.0;
    for (size_t i = 2; i < hull.size(); ++i)
        area += cross(hull[0], hull[i - 1], hull[i]) / 2.0;
    return area;
}

/// The part of the segment that edges of the surface cover, from 0 to 1.
double covered(const AcGePoint3d& from, const AcGePoint3d& to, const survey::Tin& tin)
{
    constexpr double kOn = 1e-4;
    const AcGeVector3d along{to.x - from.x, to.y - from.y, 0.0};
    const double size = along.length();
    const auto place = [&](const AcGePoint3d& point) -> std::optional<double>
    {
        const AcGeVector3d v{point.x - from.x, point.y - from.y, 0.0};
        const bool isOn = std::abs(along.crossProduct(v).z) <= kOn * size;
        return isOn ? std::optional{along.dotProduct(v) / (size * size)} : std::nullopt;
    };
    std::map<double, double> pieces;
    for (const Surface::Face& face : tin.faces)
        for (size_t i = 0; i < 3; ++i)
        {
            const auto a = place(tin.points[face[i]]);
            const auto b = place(tin.points[face[(i + 1) % 3]]);
            if (a && b)
                pieces[std::min(*a, *b)] = std::max(pieces[std::min(*a, *b)], std::max(*a, *b));
        }
    double reached = 0.0;
    double sum = 0.0;
    for (const auto& [begin, end] : pieces)
    {
        sum += std::max(0.0, std::min(end, 1.0) - std::max({begin, reached, 0.0}));
        reached = std::max(reached, end);
    }
    return sum;
}

void expectSound(const Triangulation& result, const Lines& lines)
{
    double area = 0.0;
    for (const Surface::Face& face : result.tin.faces)
    {
        const double part =
            cross(result.tin.points[face[0]], result.tin.points[face[1]], result.tin.points[face[2]]) / 2.0;
        EXPECT_GT(part, -1e-4);
        area += part;
    }
    EXPECT_NEAR(area, hullArea(result.tin.points), 0.01);
    for (const AcGePoint3dArray& line : lines)
        for (size_t i = 1; i < line.size(); ++i)
        {
            if (line[i].x != line[i - 1].x || line[i].y != line[i - 1].y)
            {
                EXPECT_NEAR(covered(line[i - 1], line[i], result.tin), 1.0, 1e-3);
            }
        }
}

TEST(Triangulation, HoldsBreakLinesHoweverTheyLie)
{
    // Whole metres in a small field: lines cross, lie on one another, end on one another and run through points.
    for (unsigned seed = 0; seed < 60; ++seed)
    {
        SCOPED_TRACE(seed);
        std::mt19937 random{seed};
        const int field = 4 + static_cast<int>(seed % 5) * 8;
        const bool isWhole = seed % 3 != 0;
        const auto any = [&]
        {
            const auto coordinate = [&]
            { return isWhole ? static_cast<double>(random() % field) : field * (random() / 4294967296.0); };
            const double x = coordinate();
            return at(x, coordinate(), static_cast<double>(random() % 10));
        };
        AcGePoint3dArray points(20 + seed, at(0, 0));
        std::generate(points.begin(), points.end(), any);
        Lines lines(3 + seed % 30);
        for (AcGePoint3dArray& line : lines)
        {
            line.resize(2 + random() % 6);
            std::generate(line.begin(), line.end(), any);
        }
        expectSound(triangulate(points, lines), lines);
    }
}

TEST(Triangulation, CirclesAreEmptyWhereNothingIsHeld)
{
    std::mt19937 random{7};
    AcGePoint3dArray points;
    for (int i = 0; i < 500; ++i)
        points.push_back({(random() % 4000) / 10.0, (random() % 4000) / 10.0, 0.0});
    const survey::Tin tin = triangulate(points, {}).tin;
    const auto lift = [](const AcGePoint3d& p, const AcGePoint3d& q) {
        return AcGeVector3d{p.x - q.x, p.y - q.y, (p.x - q.x) * (p.x - q.x) + (p.y - q.y) * (p.y - q.y)};
    };
    for (const Surface::Face& face : tin.faces)
        for (const AcGePoint3d& point : tin.points)
        {
            const AcGeVector3d a = lift(tin.points[face[0]], point);
            const AcGeVector3d b = lift(tin.points[face[1]], point);
            EXPECT_LE(a.crossProduct(b).dotProduct(lift(tin.points[face[2]], point)), 20.0);
        }
}

TEST(Triangulation, NearlyParallelAndOverlappingLines)
{
    Lines lines;
    for (int i = 0; i < 40; ++i) // a bundle of lines through one another at angles of 10^-5 and less
        lines.push_back({at(0, 1e-4 * i), at(50, 1e-5 * i), at(100, -1e-4 * i)});
    for (int i = 0; i < 10; ++i) // pieces of one line, each over a part of the one before it
        lines.push_back({at(5.0 * i, 20), at(5.0 * i + 33.3, 20)});
    const AcGePoint3dArray corners{at(-10, -10), at(110, -10), at(110, 40), at(-10, 40), at(50, 20, 7)};
    expectSound(triangulate(corners, lines), lines);
}

TEST(Triangulation, CrossingLinesHaveTheHeightOfTheFirst)
{
    const Lines lines{{at(0, 0, 10), at(10, 10, 20)}, {at(0, 10, 40), at(10, 0, 40)}};
    const Triangulation result = triangulate({}, lines);
    ASSERT_THAT(result.crossings, SizeIs(1));
    EXPECT_EQ(result.crossings[0].first, 0U);
    EXPECT_EQ(result.crossings[0].second, 1U);
    EXPECT_NEAR(result.crossings[0].place.distanceTo(at(5, 5, 15)), 0.0, 1e-4);
    EXPECT_NEAR(result.crossings[0].secondHeight, 40.0, 1e-4);
    ASSERT_THAT(result.tin.points, SizeIs(5));
    EXPECT_NEAR(result.tin.points[4].z, 15.0, 1e-4);
    EXPECT_THAT(result.tin.faces, SizeIs(4));
}

TEST(Triangulation, WhatFitsNotIsCounted)
{
    const double nan = std::nan("");
    const AcGePoint3dArray points{at(0, 0, 1),     at(10, 0, 1),      at(0, 10, 1),    at(0, 0, 1), at(0, 0, 3),
                                  {nan, 0.0, 0.0}, {0.0, 1e300, 0.0}, at(10, 10, nan), at(5, 5, 2), at(5, 5.000001, 2)};
    const Lines lines{{at(0, 0, 1.5), at(nan, 3), at(10, 0, 1), at(10, 0, 1)}};
    const Triangulation result = triangulate(points, lines);
    EXPECT_THAT(result.tin.points, SizeIs(4));
    EXPECT_EQ(result.merged, 3U);
    EXPECT_EQ(result.conflicts, 2U);
    EXPECT_DOUBLE_EQ(result.largestConflict, 2.0);
    EXPECT_EQ(result.leftOut, 4U);
    expectSound(result, {});
}

TEST(Triangulation, PointsOnOneLineMakeNoSurface)
{
    AcGePoint3dArray points;
    EXPECT_THAT(triangulate(points, {}).tin.faces, SizeIs(0));
    for (int i = 0; i < 30; ++i)
        points.push_back(at(3 * i, 7 * i));
    EXPECT_THAT(triangulate(points, {{points[3], points[20]}}).tin.faces, SizeIs(0));
    points.push_back(at(0, 1));
    expectSound(triangulate(points, {{points[3], points[20]}}), {{points[3], points[20]}});
}

TEST(Triangulation, LongEdgesMakeNoTriangleUnlessTheyAreBreakLines)
{
    // Two squares of 1 m, 9 m apart.
    const AcGePoint3dArray points{at(0, 0), at(1, 0), at(1, 1), at(0, 1), at(10, 0), at(11, 0), at(11, 1), at(10, 1)};
    EXPECT_THAT(triangulate(points, {}).tin.faces, SizeIs(6));
    EXPECT_THAT(triangulate(points, {}, 5.0).tin.faces, SizeIs(4));
    const Lines lines{{at(1, 0), at(10, 0)}, {at(1, 1), at(10, 1)}, {at(1, 0), at(10, 1)}};
    EXPECT_THAT(triangulate(points, lines, 5.0).tin.faces, SizeIs(6));
}

} // namespace
