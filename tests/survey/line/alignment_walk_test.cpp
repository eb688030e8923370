#include "survey/line/alignment_walk.h"

#include "survey/line/elements.h"
#include "survey/line/stations.h"

#include "store/text/text.h"

#include <cmath>
#include <gmock/gmock.h>
#include <numbers>
#include <random>

using namespace survey;
using testing::ElementsAre;

namespace
{

constexpr double kRadius = 120.0;
constexpr double kSpiral = 80.0;

void append(AlignmentLine& line, AlignmentElement element)
{
    element.startDistance = lengthOf(line);
    line.elements.push_back(element);
}

/// Where a clothoid from curvature 0 to 1/R ends, by its power series: along its first tangent and to the side.
AcGeVector2d clothoidEnd(double radius, double length)
{
    const double t = length / (2.0 * radius);
    const double along = length * (1.0 - t * t / 10.0 + std::pow(t, 4) / 216.0 - std::pow(t, 6) / 9360.0);
    const double side = length * (t / 3.0 - std::pow(t, 3) / 42.0 + std::pow(t, 5) / 1320.0 - std::pow(t, 7) / 75600.0);
    return {along, side};
}

/// A straight line to the north-east, a clothoid and an arc to the right, and a straight line from a corner.
AlignmentLine road()
{
    AlignmentLine line;
    append(line, straightElement({1000.0, 2000.0}, {1060.0, 2060.0}));
    const AcGePoint2d spiralStart{1060.0, 2060.0};
    const AcGeVector2d local = clothoidEnd(kRadius, kSpiral);
    const AcGeVector2d forward = AcGeVector2d{1.0, 1.0} * std::sqrt(0.5);
    const AcGePoint2d spiralEnd = spiralStart + forward * local.x - forward.perpVector() * local.y;
    append(line, clothoidElement(spiralStart, spiralEnd, kSpiral, 0.0, -1.0 / kRadius));
    const AcGeVector2d atEnd = directionAt(line, lengthOf(line));
    const AcGePoint2d centre = spiralEnd - atEnd.perpVector() * kRadius;
    const AcGePoint2d arcEnd = centre + (spiralEnd - centre).perpVector() * -1.0;
    append(line, arcElement(spiralEnd, centre, arcEnd, true));
    append(line, straightElement(arcEnd, arcEnd + AcGeVector2d{50.0, 0.0}));
    return line;
}

std::vector<std::string> textsOf(const AlignmentLine& line, std::initializer_list<double> distances)
{
    std::vector<std::string> texts;
    for (const double distance : distances)
        texts.push_back(toUtf8(stationText(stationAt(line, distance))));
    return texts;
}

} // namespace

TEST(AlignmentWalk, ElementsFollowOneAnotherWithoutAStepOrABend)
{
    const AlignmentLine line = road();

    const double spiralAt = 60.0 * std::numbers::sqrt2;
    const double arcAt = spiralAt + kSpiral;
    EXPECT_NEAR(lengthOf(line), arcAt + kRadius * std::numbers::pi / 2.0 + 50.0, 1e-9);
    for (const double joint : {spiralAt, arcAt, arcAt + kRadius * std::numbers::pi / 2.0})
        EXPECT_LT(pointAt(line, joint - 1e-6).distanceTo(pointAt(line, joint + 1e-6)), 2.1e-6) << joint;
    const auto turned = [&](double at) { return std::atan2(directionAt(line, at).y, directionAt(line, at).x); };
    EXPECT_NEAR(turned(spiralAt + 1e-9), std::numbers::pi / 4.0, 1e-6);
    EXPECT_NEAR(turned(arcAt), std::numbers::pi / 4.0 - kSpiral / (2.0 * kRadius), 1e-6);
    EXPECT_THAT(keyDistances(line),
                ElementsAre(0.0, spiralAt, arcAt, testing::DoubleNear(lengthOf(line) - 50.0, 1e-9), lengthOf(line)));
}

TEST(AlignmentWalk, TheFootOfAPointIsTheNearestPlaceOfTheLine)
{
    const AlignmentLine line = road();
    std::mt19937 random{7};
    std::uniform_real_distribution<double> east{950.0, 1350.0};
    std::uniform_real_distribution<double> north{1850.0, 2200.0};
    for (int i = 0; i < 200; ++i)
    {
        const AcGePoint2d point{east(random), north(random)};
        const Foot foot = footOf(line, point);
        double shortest = 1e9;
        for (double at = 0.0; at <= lengthOf(line); at += 0.25)
            shortest = std::min(shortest, point.distanceTo(pointAt(line, at)));

        EXPECT_LE(std::fabs(foot.offset), shortest + 1e-9) << point.x << ", " << point.y;
        EXPECT_NEAR(point.distanceTo(pointAt(line, foot.distance)), std::fabs(foot.offset), 1e-6);
    }
    const AcGeVector2d ahead = directionAt(line, 100.0);
    const Foot right = footOf(line, pointAt(line, 100.0) - ahead.perpVector() * 7.5);
    EXPECT_NEAR(right.distance, 100.0, 1e-6);
    EXPECT_NEAR(right.offset, 7.5, 1e-6);
    EXPECT_TRUE(footOf(line, {990.0, 1985.0}).isBeyondEnd);
    EXPECT_FALSE(footOf(line, {1001.0, 2003.0}).isBeyondEnd);
}

TEST(AlignmentWalk, ChordsLeaveTheLineByNoMoreThanAsked)
{
    const AlignmentLine line = road();
    const std::vector<AcGePoint2d> chords = chordsOf(line, 0.01);

    double furthest = 0.0;
    for (size_t i = 1; i < chords.size(); ++i)
        furthest =
            std::max(furthest, std::fabs(footOf(line, chords[i - 1] + (chords[i] - chords[i - 1]) * 0.5).offset));
    EXPECT_LE(furthest, 0.01);
    EXPECT_GT(furthest, 0.001);
    EXPECT_LT(chords.size(), 100U);
}

TEST(Stations, CountAnewBehindEveryEquationAndNameTheRegionWhereTwoShareAStation)
{
    AlignmentLine line;
    append(line, straightElement({0.0, 0.0}, {1000.0, 0.0}));
    line.startStation = 900.0;
    line.equations = {{200.0, 1050.0, true, {}}, {700.0, 2000.0, false, {}}};

    EXPECT_THAT(textsOf(line, {0.0, 99.996, 160.0, 200.0, 260.0, 699.0, 700.0, 900.0}),
                ElementsAre("Km0+900.00", "Km1+000.00", "Km1+060.00 (1)", "Km1+050.00 (2)", "Km1+110.00", "Km1+549.00",
                            "Km2+000.00", "Km1+800.00"));
    EXPECT_THAT(distancesOf(line, 1060.0), ElementsAre(160.0, 210.0));
    EXPECT_THAT(distancesOf(line, 1800.0), ElementsAre(900.0));
    EXPECT_THAT(distancesOf(line, 1600.0), ElementsAre());
    line.startStation = -12.5;
    EXPECT_THAT(textsOf(line, {0.0}), ElementsAre("-Km0+012.50"));
}
