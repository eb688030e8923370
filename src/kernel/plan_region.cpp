#include "kernel/plan_region.h"

#include <limits>

namespace
{

AcGePoint2d inPlan(const AcGePoint3d& point)
{
    return {point.x, point.y};
}

/// Twice the area of the triangle; positive when it turns left.
double turn(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c)
{
    return (b - a).crossProduct(c - a);
}

/// Whether `p` is no farther than `tolerance` from the line between two points.
bool isNearLine(const AcGePoint2d& p, const AcGePoint2d& a, const AcGePoint2d& b, double tolerance)
{
    const AcGeVector2d along = b - a;
    const double lengthSqrd = along.lengthSqrd();
    // Most points are far to one side, twice the tolerance and more: told without a division.
    const double side = along.crossProduct(p - a);
    if (side * side > 4.0 * tolerance * tolerance * lengthSqrd)
        return false;
    const double at = lengthSqrd > 0.0 ? std::clamp((p - a).dotProduct(along) / lengthSqrd, 0.0, 1.0) : 0.0;
    return p.distanceTo(a + along * at) <= tolerance;
}

/// Whether the lines cross at a point that is the end of neither.
bool crossProperly(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c, const AcGePoint2d& d)
{
    return (turn(a, b, c) > 0) != (turn(a, b, d) > 0) && (turn(c, d, a) > 0) != (turn(c, d, b) > 0);
}

std::vector<AcGePoint2d> cornersOf(const Box2d& box)
{
    return {{box.minX, box.minY}, {box.maxX, box.minY}, {box.maxX, box.maxY}, {box.minX, box.maxY}};
}

} // namespace

PlanRegion::PlanRegion(Kind kind, std::vector<AcGePoint2d> corners) : m_kind{kind}, m_corners{std::move(corners)}
{
    for (const AcGePoint2d& each : m_corners)
        m_box.add(each.x, each.y);
    constexpr double kRounding = 8 * std::numeric_limits<double>::epsilon();
    m_tolerance = std::max(AcGeContext::gTol.equalPoint(), m_box.magnitude() * kRounding);
    m_box.minX -= m_tolerance;
    m_box.minY -= m_tolerance;
    m_box.maxX += m_tolerance;
    m_box.maxY += m_tolerance;
    m_margin = 4.0 * m_tolerance;
    if (m_kind != Kind::Fence)
        findSides();
}

void PlanRegion::findSides()
{
    double area = 0.0;
    for (size_t i = 0; i < sides(); ++i)
        area += turn(m_corners.front(), corner(i), corner(i + 1));
    const double inward = area > 0.0 ? 1.0 : -1.0;
    std::vector<Side> found;
    for (size_t i = 0; i < sides(); ++i)
    {
        const AcGeVector2d way = corner(i + 1) - corner(i);
        if (const double length = way.length(); length > 0.0)
            found.push_back({corner(i), way.perpVector() * (inward / length)});
    }
    const auto holdsAll = [this](const Side& side)
    {
        return std::all_of(m_corners.begin(), m_corners.end(),
                           [&](const AcGePoint2d& each)
                           { return (each - side.at).dotProduct(side.inward) >= -m_tolerance; });
    };
    if (std::all_of(found.begin(), found.end(), holdsAll))
        m_sides = std::move(found);
}

PlanRegion::PlanRegion(const Box2d& rectangle) : PlanRegion{Kind::Crossing, cornersOf(rectangle)} {}

bool PlanRegion::isOnBorder(const AcGePoint2d& point) const
{
    for (size_t i = 0; i < sides(); ++i)
        if (isNearLine(point, corner(i), corner(i + 1), m_tolerance))
            return true;
    return false;
}

bool PlanRegion::contains(const AcGePoint2d& point) const
{
    if (m_kind == Kind::Fence)
        return isOnBorder(point);
    bool inside = false;
    for (size_t i = 0; i < sides(); ++i)
    {
        const AcGePoint2d& a = corner(i);
        const AcGePoint2d& b = corner(i + 1);
        if ((a.y > point.y) != (b.y > point.y) && (turn(a, b, point) > 0) == (b.y > a.y))
            inside = !inside;
    }
    return inside || isOnBorder(point);
}

bool PlanRegion::crossesBorder(const AcGePoint2d& from, const AcGePoint2d& to) const
{
    for (size_t i = 0; i < sides(); ++i)
    {
        const AcGePoint2d& a = corner(i);
        const AcGePoint2d& b = corner(i + 1);
        if (crossProperly(from, to, a, b) || isNearLine(a, from, to, m_tolerance))
            return true;
    }
    return false;
}

/// Cuts the line where sides cross it; every piece must lie inside.
bool PlanRegion::holdsLine(const AcGePoint2d& from, const AcGePoint2d& to) const
{
    std::vector<double> cuts{0.0, 1.0};
    for (size_t i = 0; i < sides(); ++i)
    {
        const double a = turn(from, to, corner(i));
        const double b = turn(from, to, corner(i + 1));
        if ((a > 0) == (b > 0))
            continue;
        const AcGePoint2d meeting = corner(i) + (corner(i + 1) - corner(i)) * (a / (a - b));
        const AcGeVector2d along = to - from;
        cuts.push_back(std::clamp((meeting - from).dotProduct(along) / along.lengthSqrd(), 0.0, 1.0));
    }
    std::sort(cuts.begin(), cuts.end());
    for (size_t i = 0; i + 1 < cuts.size(); ++i)
        if (!contains(from + (to - from) * (cuts[i] / 2 + cuts[i + 1] / 2)))
            return false;
    return contains(from) && contains(to);
}

bool PlanRegion::meetsPoint(const AcGePoint3d& point) const
{
    const AcGePoint2d place = inPlan(point);
    return std::isfinite(place.x) && std::isfinite(place.y) && contains(place);
}

bool PlanRegion::meetsLine(const AcGePoint3d& from, const AcGePoint3d& to) const
{
    const AcGePoint2d a = inPlan(from);
    const AcGePoint2d b = inPlan(to);
    Box2d around;
    around.add(a.x, a.y);
    around.add(b.x, b.y);
    if (around.isApart(m_box, 0.0))
        return false;
    const bool starts = meetsPoint(from);
    const bool ends = meetsPoint(to);
    if (m_kind == Kind::Window)
        return starts && ends && holdsLine(a, b);
    return starts || ends || crossesBorder(a, b);
}

bool PlanRegion::holdsBox(const Box2d& box) const
{
    if (m_kind == Kind::Fence || box.isEmpty())
        return false;
    const std::vector<AcGePoint2d> corners = cornersOf(box);
    for (size_t i = 0; i < corners.size(); ++i)
        if (!contains(corners[i]) || crossesBorder(corners[i], corners[(i + 1) % corners.size()]))
            return false;
    // A border could still lie wholly within the box.
    return std::none_of(m_corners.begin(), m_corners.end(),
                        [&](const AcGePoint2d& each)
                        { return each.x > box.minX && each.x < box.maxX && each.y > box.minY && each.y < box.maxY; });
}
