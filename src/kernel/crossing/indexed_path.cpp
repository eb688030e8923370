#include "kernel/crossing/indexed_path.h"

#include "kernel/crossing/level_crossing.h"

namespace
{

/// So many that a cell seldom holds the end of a segment, and what is sought is read off without a search.
constexpr std::size_t kCellsPerSegment = 4;
constexpr std::size_t kMostOrdered = std::numeric_limits<std::uint32_t>::max();

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

/// How far a search reaches: the other's box, and the widest tolerance that any of its segments is held to. What lies
/// farther out is what the plain way finds too far apart.
struct IndexedPath::Reach
{
    Reach(const Box2d& other, double magnitude)
        : gap(placeTolerance(magnitude)), box{other.minX - gap, other.minY - gap, other.maxX + gap, other.maxY + gap}
    {
    }

    double gap;
    Box2d box;
};

void IndexedPath::prepare() const
{
    const bool ordered = m_path.segmentCount() > 0 && m_path.segmentCount() < kMostOrdered && !m_path.isClosed() &&
                         m_path.vertices().front().x != m_path.vertices().back().x && isStraightAndUsable(m_path);
    if (ordered && neverTurnsBack(m_path, 1.0))
        m_order = Order::RisingX;
    else if (ordered && neverTurnsBack(m_path, -1.0))
        m_order = Order::FallingX;
    else
        m_order = Order::Boxes;
    if (m_order == Order::Boxes)
        fillBoxes();
    else
        fillTable();
}

void IndexedPath::fillBoxes() const
{
    m_boxes.resize((m_path.segmentCount() + kChunk - 1) / kChunk);
    for (std::size_t i = 0; i < m_path.segmentCount(); ++i)
        m_boxes[i / kChunk].add(Segment2d::box(m_path.segmentStart(i), m_path.segmentEnd(i)));
}

void IndexedPath::fillTable() const
{
    const std::size_t count = m_path.segmentCount();
    m_sign = m_order == Order::RisingX ? 1.0 : -1.0;
    m_origin = m_sign * m_path.vertices().front().x;
    const double width = m_sign * m_path.vertices().back().x - m_origin;
    const std::size_t cells = kCellsPerSegment * count;
    m_lastCell = static_cast<double>(cells - 1);
    const double cellsPerUnit = static_cast<double>(cells) / width;
    m_table.assign(cells + 1, static_cast<std::uint32_t>(count));
    m_cellsPerUnit = std::isfinite(cellsPerUnit) ? cellsPerUnit : 0.0;
    std::size_t filled = 0;
    for (std::size_t i = 0; i < count; ++i)
        for (const std::size_t cell = cellOf(m_sign * m_path.segmentEnd(i).x); filled <= cell; ++filled)
            m_table[filled] = static_cast<std::uint32_t>(i);
}

/// The cell of an x counted along the path. Never falls when x rises, which is all that the table relies on.
std::size_t IndexedPath::cellOf(double signedX) const
{
    return static_cast<std::size_t>(std::clamp((signedX - m_origin) * m_cellsPerUnit, 0.0, m_lastCell));
}

/// The first segment of an ordered path whose far end reaches an x with the path's sign.
inline std::size_t IndexedPath::firstReaching(double sought) const
{
    const std::size_t cell = cellOf(sought);
    const auto first = m_path.vertices().begin() + 1;
    const auto fallsShort = [&](const PathVertex& vertex) { return m_sign * vertex.x < sought; };
    return static_cast<std::size_t>(std::partition_point(first + m_table[cell], first + m_table[cell + 1], fallsShort) -
                                    first);
}

/// Kept out of line: it is seldom needed, and what asks for it is asked millions of times.
[[gnu::noinline]] void IndexedPath::addByCloserLook(std::size_t segment, const BoxedSegment& other,
                                                    CrossingList& list) const
{
    addCrossingsOfSegment(m_path, segment, other, list);
}

/// Adds where a segment of an ordered path, straight and usable therefore, meets a segment. Where the wider tolerance
/// leaves no doubt, the one that holds for the two leaves none.
inline void IndexedPath::addSegment(std::size_t segment, const BoxedSegment& other, double gap,
                                    CrossingList& list) const
{
    const PathVertex& from = m_path.vertices()[segment];
    const PathVertex& to = m_path.vertices()[segment + 1];
    const StraightWay own{{from.x, from.y}, {to.x, to.y}};
    if (other.bulge != 0.0 || !addClearCrossing(own, {other.from, other.to}, gap, m_path.elevation(), list))
        addByCloserLook(segment, other, list);
}

inline void IndexedPath::addSegment(std::size_t segment, const CurvePath& other, double, CrossingList& list) const
{
    addCrossingsOfSegment(m_path, segment, other, list);
}

/// In line at its one call, with what a probe costs.
template <typename Other>
[[gnu::always_inline]] inline void IndexedPath::searchOrdered(const Other& other, const Reach& reach,
                                                              CrossingList& list) const
{
    const bool rising = m_order == Order::RisingX;
    const PathVertex* const vertices = m_path.vertices().data();
    const std::size_t count = m_path.vertices().size() - 1;
    const double last = rising ? reach.box.maxX : -reach.box.minX;
    for (std::size_t i = firstReaching(rising ? reach.box.minX : -reach.box.maxX); i < count; ++i)
    {
        if (m_sign * vertices[i].x > last)
            return;
        addSegment(i, other, reach.gap, list);
    }
}

template <typename Other>
void IndexedPath::searchBoxes(const Other& other, const Reach& reach, CrossingList& list) const
{
    const std::size_t count = m_path.segmentCount();
    for (std::size_t chunk = 0; chunk < m_boxes.size(); ++chunk)
    {
        if (m_boxes[chunk].isApart(reach.box, 0.0))
            continue;
        for (std::size_t i = chunk * kChunk; i < std::min(count, (chunk + 1) * kChunk); ++i)
            addCrossingsOfSegment(m_path, i, other, list);
    }
}

template <typename Other>
void IndexedPath::search(const Other& other, const Box2d& otherBox, double magnitude, AcGePoint3dArray& points) const
{
    CrossingList list{points};
    if (otherBox.isEmpty())
        return;
    if (m_order == Order::Unknown)
        prepare();
    const Reach reach{otherBox, magnitude};
    if (m_order != Order::Boxes)
        return searchOrdered(other, reach, list); // an ordered path never ends where it began
    searchBoxes(other, reach, list);
    endCrossings(m_path, list);
}

void IndexedPath::intersect(const CurvePath& other, AcGePoint3dArray& points) const
{
    if (!m_path.isLevel() || !other.isLevel())
        return ::intersect(m_path, other, points);
    if (!isSameHeight(m_path.elevation(), other.elevation(), 0.0))
        return points.clear();
    if (other.segmentCount() != 1)
    {
        const Box2d box = boxOfSegments(other);
        return search(other, box, box.magnitude(), points);
    }
    const BoxedSegment only{other.segmentStart(0), other.segmentEnd(0)};
    search(only, only.box, only.magnitude, points);
}

void IndexedPath::intersectLine(const AcGePoint2d& from, const AcGePoint2d& to, AcGePoint3dArray& points) const
{
    if (!m_path.isLevel() || !std::isfinite(m_path.elevation()))
        return points.clear();
    const BoxedSegment only{from, to};
    search(only, only.box, only.magnitude, points);
}
