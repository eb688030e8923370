#include "kernel/segment2d.h"

namespace
{

constexpr double kLargestBulge = 1e9;
/// Arcs up to this bulge (106 degrees) are measured along their chord, which stays exact when they are nearly straight.
constexpr double kFlatBulge = 0.5;

} // namespace

Segment2d::Segment2d(const AcGePoint2d& from, const AcGePoint2d& to, double bulge) : m_start(from), m_end(to)
{
    const AcGeVector2d way = m_end - m_start;
    const double size = way.length();
    if (!isUsable(from) || !isUsable(to) || !(std::fabs(bulge) < kLargestBulge) || !(size > 0.0))
        return;
    m_size = size;
    m_chord = way / size;
    m_bulge = bulge;
    const double square = 1.0 + m_bulge * m_bulge;
    m_sin = 2.0 * m_bulge / square;
    m_cos = (1.0 - m_bulge * m_bulge) / square;
    m_curvature = m_sin / size;
}

double Segment2d::length() const
{
    return isArc() ? m_size * 0.5 * sweep() / m_sin : m_size;
}

double Segment2d::offset(const AcGePoint2d& p) const
{
    const AcGeVector2d w = p - m_start;
    return w.dotProduct(startNormal()) - m_curvature * w.lengthSqrd();
}

bool Segment2d::spans(const AcGePoint2d& pointOnCurve) const
{
    const AcGeVector2d w = pointOnCurve - m_start;
    const double left = m_chord.crossProduct(w);
    const double away = m_bulge < 0.0 ? -left : left;
    if (std::fabs(m_bulge) > kFlatBulge)
        return away <= 0.0;
    const double along = m_chord.dotProduct(w);
    return along >= 0.0 && along <= m_size && away <= 0.375 * m_size;
}

bool Segment2d::isNear(const AcGePoint2d& p, double tolerance) const
{
    if ((p - m_start).lengthSqrd() <= tolerance * tolerance || (p - m_end).lengthSqrd() <= tolerance * tolerance)
        return true;
    return isUsable() && std::fabs(offset(p)) <= tolerance && spans(p);
}

double Segment2d::fractionAt(const AcGePoint2d& pointOnCurve) const
{
    const AcGeVector2d w = pointOnCurve - m_start;
    if (!isArc())
        return std::clamp(w.dotProduct(m_chord) / m_size, 0.0, 1.0);
    const double half = 0.5 * sweep();
    if (std::fabs(m_bulge) <= kFlatBulge)
        return std::min(std::asin(std::min(w.length() / m_size, 1.0) * std::fabs(m_sin)) / std::fabs(half), 1.0);
    if (w.lengthSqrd() == 0.0)
        return 0.0;
    const double fraction = 1.0 + std::atan2(m_chord.crossProduct(w), m_chord.dotProduct(w)) / half;
    // Past a whole turn: rounding beside the start of an arc that is nearly a circle.
    return fraction > 1.5 ? 0.0 : std::clamp(fraction, 0.0, 1.0);
}

AcGePoint2d Segment2d::at(double fraction) const
{
    if (fraction >= 1.0)
        return m_end;
    if (!isArc())
        return m_start + m_chord * (m_size * fraction);
    const double half = 0.5 * sweep();
    const double turn = (fraction - 1.0) * half;
    const double reach = m_size * std::sin(fraction * half) / m_sin;
    return m_start + (m_chord * std::cos(turn) + m_chord.perpVector() * std::sin(turn)) * reach;
}

void Segment2d::widenByArc(const AcGePoint2d& from, const AcGePoint2d& to, double bulge, Box2d& box)
{
    if (!(std::fabs(bulge) < kLargestBulge))
    {
        box = {};
        return;
    }
    const AcGeVector2d way = to - from;
    if (std::fabs(bulge) <= 1.0)
    {
        const AcGeVector2d rise = way.perpVector() * (-0.5 * bulge);
        box.add(from.x + rise.x, from.y + rise.y);
        box.add(to.x + rise.x, to.y + rise.y);
        return;
    }
    const double square = bulge * bulge;
    const AcGePoint2d center = from + way * 0.5 + way.perpVector() * ((1.0 - square) / (4.0 * bulge));
    const double radius = way.length() * (1.0 + square) / (4.0 * std::fabs(bulge));
    box.add(center.x - radius, center.y - radius);
    box.add(center.x + radius, center.y + radius);
}
