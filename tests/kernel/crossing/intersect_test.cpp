#include "kernel/crossing/intersect.h"
#include "kernel/paths.h"
#include "support/cases.h"

#include <gtest/gtest.h>

#include <numbers>

using namespace paths;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

AcGePoint3d pointOf(const std::vector<double>& numbers)
{
    return {numbers.at(0), numbers.at(1), numbers.size() > 2 ? numbers[2] : 0.0};
}

/// The path that the words of a case describe.
CurvePath pathOf(const std::vector<std::string>& words)
{
    double elevation = 0.0;
    bool isClosed = false;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    std::vector<PathVertex> vertices;
    AcGePoint3dArray points;
    const auto angle = [&words](size_t at) { return std::stod(words.at(at)) * std::numbers::pi / 180.0; };
    for (size_t at = 0; at < words.size(); ++at)
    {
        const std::string& word = words[at];
        if (word == "circle")
            return CurvePath::circle(pointOf(numbersOf(words.at(at + 1))), std::stod(words.at(at + 2)), normal);
        if (word == "arc")
            return CurvePath::arc(pointOf(numbersOf(words.at(at + 1))), std::stod(words.at(at + 2)), angle(at + 3),
                                  angle(at + 4), normal);
        if (word == "space")
        {
            while (++at < words.size())
                points.push_back(pointOf(numbersOf(words[at])));
            return CurvePath::space(points);
        }
        if (word == "closed")
            isClosed = true;
        else if (word.starts_with("z="))
            elevation = std::stod(word.substr(2));
        else if (word.starts_with("n="))
            normal = pointOf(numbersOf(word.substr(2))).asVector();
        else
        {
            const std::vector<double> numbers = numbersOf(word);
            vertices.push_back({numbers.at(0), numbers.at(1), numbers.size() > 2 ? numbers[2] : 0.0});
        }
    }
    return CurvePath::plane(std::move(vertices), isClosed, elevation, normal);
}

} // namespace

TEST(Intersect, GivesThePlacesOfTheCases)
{
    const std::vector<Case> cases = readCases("crossings.txt");
    EXPECT_GT(cases.size(), 50U);
    for (const Case& each : cases)
    {
        SCOPED_TRACE(each.name);
        ASSERT_EQ(each.fields.size(), 3U);
        std::vector<testing::Matcher<AcGePoint3d>> places;
        for (const std::string& word : each.fields[2])
            if (word != "none")
            {
                const AcGePoint3d at = pointOf(numbersOf(word));
                places.emplace_back(At(at.x, at.y, at.z));
            }
        EXPECT_THAT(intersect(pathOf(each.fields[0]), pathOf(each.fields[1])), testing::ElementsAreArray(places));
    }
}

TEST(Intersect, AVertexIsAnsweredExactly)
{
    const AcGePoint3dArray points = intersect(segment(0.1, 0.7, 0.3, -0.7), segment(0.2, 1e-17, 0.5, 3));
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points[0].x, 0.2);
    EXPECT_EQ(points[0].y, 1e-17);
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
