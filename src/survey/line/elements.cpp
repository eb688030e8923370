#include "survey/line/elements.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace survey
{

namespace
{

constexpr double kTurn = 2.0 * std::numbers::pi;

AcGeVector2d unitVector(double direction)
{
    return {std::cos(direction), std::sin(direction)};
}

double angleOf(const AcGeVector2d& vector)
{
    return std::atan2(vector.y, vector.x);
}

bool isClothoid(const AlignmentElement& element)
{
    return element.startCurvature != element.endCurvature;
}

double curvatureOn(const AlignmentElement& element, double distance)
{
    return element.startCurvature + (element.endCurvature - element.startCurvature) * distance / element.length;
}

/// From a point on an arc or a straight line to the one `distance` further; exact, also for hardly any curvature.
AcGeVector2d arcChord(double direction, double curvature, double distance)
{
    const double half = curvature * distance / 2.0;
    const double shrink = std::fabs(half) < 1e-8 ? 1.0 : std::sin(half) / half;
    return unitVector(direction + half) * (distance * shrink);
}

/// The integral of the direction between two distances that turn by no more than half a radian, by Gauss's rule of
/// eight points.
AcGeVector2d clothoidChord(const AlignmentElement& element, double from, double to)
{
    constexpr std::array<std::array<double, 2>, 4> kPoints{{{0.1834346424956498, 0.3626837833783620},
                                                            {0.5255324099163290, 0.3137066458778873},
                                                            {0.7966664774136267, 0.2223810344533745},
                                                            {0.9602898564975363, 0.1012285362903763}}};
    const double middle = (from + to) / 2.0;
    const double half = (to - from) / 2.0;
    AcGeVector2d sum;
    for (const auto& [place, weight] : kPoints)
        sum = sum + (unitVector(directionOn(element, middle - half * place)) +
                     unitVector(directionOn(element, middle + half * place))) *
                        weight;
    return sum * half;
}

/// How many pieces of at most `angle` radians a clothoid turns by.
size_t piecesOf(const AlignmentElement& element, double angle)
{
    const double sharpest = std::max(std::fabs(element.startCurvature), std::fabs(element.endCurvature));
    return static_cast<size_t>(std::clamp(std::ceil(sharpest * element.length / angle), 1.0, 10'000.0));
}

/// How far a point lies ahead of the place at `distance`, along the direction there.
double ahead(const AlignmentElement& element, const AcGePoint2d& point, double distance)
{
    return (point - pointOn(element, distance)).dotProduct(unitVector(directionOn(element, distance)));
}

/// The place between `low`, behind which the point lies, and `high`, before which it lies, that it lies abreast of.
double abreast(const AlignmentElement& element, const AcGePoint2d& point, double low, double high)
{
    constexpr double kExact = 1e-10;
    while (high - low > kExact * (1.0 + element.length))
    {
        const double middle = (low + high) / 2.0;
        (ahead(element, point, middle) > 0.0 ? low : high) = middle;
    }
    return (low + high) / 2.0;
}

double nearestOnClothoid(const AlignmentElement& element, const AcGePoint2d& point)
{
    double nearest = 0.0;
    double shortest = point.distanceTo(element.start);
    const auto consider = [&](double distance)
    {
        if (const double far = point.distanceTo(pointOn(element, distance)); far < shortest)
        {
            shortest = far;
            nearest = distance;
        }
    };
    constexpr double kSmallTurn = 0.2;
    const size_t pieces = piecesOf(element, kSmallTurn);
    for (size_t i = 0; i < pieces; ++i)
    {
        const double low = element.length * static_cast<double>(i) / static_cast<double>(pieces);
        const double high = element.length * static_cast<double>(i + 1) / static_cast<double>(pieces);
        if (ahead(element, point, low) > 0.0 && ahead(element, point, high) < 0.0)
            consider(abreast(element, point, low, high));
        consider(high);
    }
    return nearest;
}

double nearestOnArc(const AlignmentElement& element, const AcGePoint2d& point)
{
    const double radius = 1.0 / element.startCurvature;
    const AcGePoint2d centre = element.start + unitVector(element.direction).perpVector() * radius;
    const AcGeVector2d toStart = element.start - centre;
    const AcGeVector2d toPoint = point - centre;
    const double turned = std::atan2(toStart.crossProduct(toPoint), toStart.dotProduct(toPoint));
    double distance = turned * radius;
    const double round = kTurn * std::fabs(radius);
    if (distance < 0.0)
        distance += round;
    if (distance <= element.length)
        return distance;
    return point.distanceTo(element.start) <= point.distanceTo(endOf(element)) ? 0.0 : element.length;
}

} // namespace

AlignmentElement straightElement(const AcGePoint2d& start, const AcGePoint2d& end)
{
    AlignmentElement element;
    element.start = start;
    element.direction = angleOf(end - start);
    element.length = start.distanceTo(end);
    return element;
}

AlignmentElement arcElement(const AcGePoint2d& start, const AcGePoint2d& centre, const AcGePoint2d& end, bool clockwise)
{
    const AcGeVector2d toStart = start - centre;
    const AcGeVector2d toEnd = end - centre;
    const double side = clockwise ? -1.0 : 1.0;
    double turned = side * std::atan2(toStart.crossProduct(toEnd), toStart.dotProduct(toEnd));
    if (turned <= 0.0 || start.distanceTo(end) < kMeetingDistance)
        turned += kTurn;

    AlignmentElement element;
    element.start = start;
    element.direction = angleOf(toStart.perpVector() * side);
    element.startCurvature = element.endCurvature = side / toStart.length();
    element.length = turned * toStart.length();
    return element;
}

std::optional<AcGePoint2d> arcCentre(const AcGePoint2d& start, const AcGePoint2d& end, double radius, bool clockwise,
                                     bool isLong)
{
    const AcGeVector2d chord = end - start;
    const double half = chord.length() / 2.0;
    if (half < kMeetingDistance / 2.0 || half > std::fabs(radius) + kMeetingDistance)
        return std::nullopt;
    const double rise = std::sqrt(std::max(0.0, radius * radius - half * half));
    const double side = clockwise == isLong ? 1.0 : -1.0;
    return start + chord * 0.5 + chord.perpVector() * (side * rise / (2.0 * half));
}

AlignmentElement clothoidElement(const AcGePoint2d& start, const AcGePoint2d& end, double length, double startCurvature,
                                 double endCurvature)
{
    AlignmentElement element;
    element.start = start;
    element.startCurvature = startCurvature;
    element.endCurvature = endCurvature;
    element.length = length;
    element.direction = angleOf(end - start) - angleOf(endOf(element) - start);
    return element;
}

AcGePoint2d pointOn(const AlignmentElement& element, double distance)
{
    if (!isClothoid(element))
        return element.start + arcChord(element.direction, element.startCurvature, distance);
    constexpr double kHalfRadian = 0.5;
    const size_t pieces = piecesOf(element, kHalfRadian);
    AcGePoint2d point = element.start;
    for (size_t i = 0; i < pieces; ++i)
        point = point + clothoidChord(element, distance * static_cast<double>(i) / static_cast<double>(pieces),
                                      distance * static_cast<double>(i + 1) / static_cast<double>(pieces));
    return point;
}

double directionOn(const AlignmentElement& element, double distance)
{
    return element.direction + distance * (element.startCurvature + curvatureOn(element, distance)) / 2.0;
}

double nearestOn(const AlignmentElement& element, const AcGePoint2d& point)
{
    if (isClothoid(element))
        return nearestOnClothoid(element, point);
    if (element.startCurvature != 0.0)
        return nearestOnArc(element, point);
    return std::clamp((point - element.start).dotProduct(unitVector(element.direction)), 0.0, element.length);
}

std::vector<double> chordEnds(const AlignmentElement& element, double deviation)
{
    const double sharpest = std::max(std::fabs(element.startCurvature), std::fabs(element.endCurvature));
    const double count = std::ceil(element.length * std::sqrt(sharpest / (8.0 * deviation)));
    const auto chords = static_cast<size_t>(std::clamp(count, 1.0, 100'000.0));
    std::vector<double> ends;
    for (size_t i = 1; i <= chords; ++i)
        ends.push_back(element.length * static_cast<double>(i) / static_cast<double>(chords));
    return ends;
}

} // namespace survey
