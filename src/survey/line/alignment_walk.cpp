#include "survey/line/alignment_walk.h"

#include "survey/line/elements.h"

#include <algorithm>
#include <cmath>

namespace survey
{

namespace
{

/// The element in which a distance lies; the first before the line, the last behind it.
const AlignmentElement& elementAt(const AlignmentLine& line, double distance)
{
    const auto behind =
        std::upper_bound(line.elements.begin(), line.elements.end(), distance,
                         [](double at, const AlignmentElement& each) { return at < each.startDistance; });
    return behind == line.elements.begin() ? line.elements.front() : *std::prev(behind);
}

/// A distance as one within its element, and how far it lies before or behind the line.
struct Within
{
    const AlignmentElement& element;
    double distance;
    double beyond; ///< negative before the start
};

Within within(const AlignmentLine& line, double distance)
{
    const AlignmentElement& element = elementAt(line, distance);
    const double inside = std::clamp(distance - element.startDistance, 0.0, element.length);
    return {element, inside, distance - element.startDistance - inside};
}

bool isSameGeometry(const AlignmentElement& a, const AlignmentElement& b)
{
    constexpr double kSameDirection = 1e-6;
    const bool even = a.startCurvature == a.endCurvature && b.startCurvature == b.endCurvature;
    const double turn = std::remainder(directionOn(a, a.length) - b.direction, 2.0 * std::acos(-1.0));
    return even && a.startCurvature == b.startCurvature && std::fabs(turn) < kSameDirection;
}

} // namespace

double lengthOf(const AlignmentLine& line)
{
    return line.elements.empty() ? 0.0 : line.elements.back().startDistance + line.elements.back().length;
}

AcGePoint2d pointAt(const AlignmentLine& line, double distance)
{
    const Within place = within(line, distance);
    return pointOn(place.element, place.distance) + directionAt(line, distance) * place.beyond;
}

AcGeVector2d directionAt(const AlignmentLine& line, double distance)
{
    const Within place = within(line, distance);
    const double direction = directionOn(place.element, place.distance);
    return {std::cos(direction), std::sin(direction)};
}

Foot footOf(const AlignmentLine& line, const AcGePoint2d& point)
{
    const AlignmentElement* nearest = nullptr;
    double along = 0.0;
    double shortest = 0.0;
    for (const AlignmentElement& element : line.elements)
    {
        if (nearest != nullptr && point.distanceTo(element.start) - element.length > shortest)
            continue;
        const double distance = nearestOn(element, point);
        const double far = point.distanceTo(pointOn(element, distance));
        if (nearest == nullptr || far < shortest)
        {
            nearest = &element;
            along = distance;
            shortest = far;
        }
    }
    if (nearest == nullptr)
        return {};
    const double direction = directionOn(*nearest, along);
    const AcGeVector2d forward{std::cos(direction), std::sin(direction)};
    const AcGeVector2d to = point - pointOn(*nearest, along);
    const double distance = nearest->startDistance + along;
    const double ahead = to.dotProduct(forward);
    const bool isBeyond =
        (distance <= 0.0 && ahead < -kMeetingDistance) || (distance >= lengthOf(line) && ahead > kMeetingDistance);
    return {distance, forward.crossProduct(to) > 0.0 ? -shortest : shortest, isBeyond};
}

std::vector<double> keyDistances(const AlignmentLine& line)
{
    std::vector<double> keys;
    for (size_t i = 0; i < line.elements.size(); ++i)
        if (i == 0 || !isSameGeometry(line.elements[i - 1], line.elements[i]))
            keys.push_back(line.elements[i].startDistance);
    if (!keys.empty())
        keys.push_back(lengthOf(line));
    return keys;
}

std::vector<AcGePoint2d> chordsOf(const AlignmentLine& line, double deviation)
{
    std::vector<AcGePoint2d> points;
    for (const AlignmentElement& element : line.elements)
    {
        if (points.empty())
            points.push_back(element.start);
        for (const double end : chordEnds(element, deviation))
            points.push_back(pointOn(element, end));
    }
    return points;
}

} // namespace survey
