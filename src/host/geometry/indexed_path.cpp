#include "host/geometry/indexed_path.h"

#include "host/geometry/level_crossing.h"

namespace
{

bool isStraightAndUsable(const CurvePath& path)
{
    const std::vector<PathVertex>& vertices = path.vertices();
    return std::all_of(vertices.begin(), vertices.end(),
                       [](const PathVertex& v) {
                           return v.bulge == 0.0 && std::fabs(v.x) < kLargestCoordinate &&
                                  std::fabs(v.y) < kLargestCoordinate;
                       });
}

/// Whether x never falls (sign 1) or never rises (sign -1) along the path.
bool neverTurnsBack(const CurvePath& path, double sign)
{
    for (std::size_t i = 0; i + 1 < path.vertices().size(); ++i)
        if (sign * path.vertices()[i].x > sign * path.vertices()[i + 1].x)
            return false;
    return true;
}

} // namespace

void IndexedPath::prepare() const
{
    const bool ordered = m_path.segmentCount() > 0 && !m_path.isClosed() && isStraightAndUsable(m_path);
    if (ordered && neverTurnsBack(m_path, 1.0))
        m_order = Order::RisingX;
    else if (ordered && neverTurnsBack(m_path, -1.0))
        m_order = Order::FallingX;
    else
        m_order = Order::Boxes;
    if (m_order != Order::Boxes)
        return;
    m_boxes.resize((m_path.segmentCount() + kChunk - 1) / kChunk);
    for (std::size_t i = 0; i < m_path.segmentCount(); ++i)
        m_boxes[i / kChunk].add(Segment2d::box(m_path.segmentStart(i), m_path.segmentEnd(i)));
}

/// The first segment of an ordered path whose far end reaches `x` (of a falling one: comes down to it). Halves without
/// branches that a processor would have to guess.
std::size_t IndexedPath::firstReaching(double x) const
{
    const double sign = m_order == Order::RisingX ? 1.0 : -1.0;
    const double sought = sign * x;
    const PathVertex* base = m_path.vertices().data() + 1;
    std::size_t count = m_path.vertices().size() - 1;
    while (count > 1)
    {
        const std::size_t half = count / 2;
        base += sign * base[half - 1].x < sought ? half : 0;
        count -= half;
    }
    const std::size_t index = static_cast<std::size_t>(base - m_path.vertices().data()) - 1;
    return sign * base->x < sought ? index + 1 : index;
}

template <typename Other>
void IndexedPath::searchOrdered(const Other& other, const Box2d& reach, CrossingList& list) const
{
    const bool rising = m_order == Order::RisingX;
    const std::size_t count = m_path.segmentCount();
    for (std::size_t i = firstReaching(rising ? reach.minX : reach.maxX); i < count; ++i)
    {
        const double near = m_path.segmentStart(i).x;
        if (rising ? near > reach.maxX : near < reach.minX)
            return;
        addCrossingsOfSegment(m_path, i, other, list);
    }
}

template <typename Other>
void IndexedPath::searchBoxes(const Other& other, const Box2d& reach, CrossingList& list) const
{
    const std::size_t count = m_path.segmentCount();
    for (std::size_t chunk = 0; chunk < m_boxes.size(); ++chunk)
    {
        if (m_boxes[chunk].isApart(reach, 0.0))
            continue;
        for (std::size_t i = chunk * kChunk; i < std::min(count, (chunk + 1) * kChunk); ++i)
            addCrossingsOfSegment(m_path, i, other, list);
    }
}

/// `reach` is the other's box widened by the widest tolerance any of its segments is held to, so that what is left out
/// here is what the plain way finds too far apart.
template <typename Other>
void IndexedPath::search(const Other& other, const Box2d& otherBox, AcGePoint3dArray& points) const
{
    CrossingList list{points};
    if (otherBox.isEmpty())
        return;
    if (m_order == Order::Unknown)
        prepare();
    const double gap = placeTolerance(otherBox.magnitude());
    const Box2d reach{otherBox.minX - gap, otherBox.minY - gap, otherBox.maxX + gap, otherBox.maxY + gap};
    if (m_order == Order::Boxes)
        searchBoxes(other, reach, list);
    else
        searchOrdered(other, reach, list);
    endCrossings(m_path, list);
}

void IndexedPath::intersect(const CurvePath& other, AcGePoint3dArray& points) const
{
    if (!m_path.isLevel() || !other.isLevel())
        return ::intersect(m_path, other, points);
    if (!isSameHeight(m_path.elevation(), other.elevation(), 0.0))
        return points.clear();
    if (other.segmentCount() != 1)
        return search(other, boxOfSegments(other), points);
    const BoxedSegment only{other.segmentStart(0), other.segmentEnd(0)};
    search(only, only.box, points);
}

void IndexedPath::intersectLine(const AcGePoint2d& from, const AcGePoint2d& to, AcGePoint3dArray& points) const
{
    if (!m_path.isLevel() || !std::isfinite(m_path.elevation()))
        return points.clear();
    const BoxedSegment only{{from.x, from.y}, {to.x, to.y}};
    search(only, only.box, points);
}
