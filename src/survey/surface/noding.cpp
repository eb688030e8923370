#include "survey/surface/noding.h"

#include "survey/surface/cell_lists.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_set>

namespace survey
{

namespace
{

constexpr size_t kMostRounds = 20;
constexpr double kNear = 1.0; ///< grid units around a chord in which vertices are looked at

int signOf(int64_t value)
{
    return value > 0 ? 1 : value < 0 ? -1 : 0;
}

AcGePoint2d asPlane(const GridPoint& point)
{
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
}

/// Whether the segment comes into the closed square of one unit around a place.
bool touchesPixel(const GridPoint& from, const GridPoint& to, const GridPoint& place)
{
    const GridPoint a{2 * from.x, 2 * from.y};
    const GridPoint b{2 * to.x, 2 * to.y};
    const GridPoint low{2 * place.x - 1, 2 * place.y - 1};
    const GridPoint high{2 * place.x + 1, 2 * place.y + 1};
    if (std::max(a.x, b.x) < low.x || std::min(a.x, b.x) > high.x || std::max(a.y, b.y) < low.y ||
        std::min(a.y, b.y) > high.y)
        return false;
    int sides = 0;
    for (const GridPoint& corner : {low, GridPoint{high.x, low.y}, high, GridPoint{low.x, high.y}})
        sides += signOf(doubleArea(a, b, corner));
    return sides > -4 && sides < 4;
}

/// The break lines as they are at the moment, over the vertices there are.
class ChordNet
{
public:
    ChordNet(const VertexSet& vertices, const std::vector<Chord>& chords);

    /// Two chords that cross between their ends, and where along each of them, from 0 to 1.
    struct Crossing
    {
        uint32_t first; ///< the one of the lower number
        uint32_t second;
        double alongFirst;
        double alongSecond;
    };
    std::vector<Crossing> crossings() const;
    /// The numbers of the chords that have a vertex on them besides their ends.
    std::vector<uint32_t> blocked() const;
    AcGePoint3d pointOn(uint32_t chord, double along) const;

private:
    const GridPoint& place(uint32_t vertex) const { return m_vertices.places()[vertex]; }
    std::array<AcGePoint2d, 2> shapeOf(uint32_t chord) const
    {
        return {asPlane(place(m_chords[chord].from)), asPlane(place(m_chords[chord].to))};
    }
    std::optional<double> crossingAlong(const Chord& chord, const Chord& other) const;

    const VertexSet& m_vertices;
    const std::vector<Chord>& m_chords;
};

/// The vertices by their places.
class VertexLists
{
public:
    explicit VertexLists(const VertexSet& vertices)
        : m_vertices{vertices}, m_lists{boxOf(vertices), vertices.places().size(), vertices.places().size() / 2,
                                        [&](size_t i) { return std::array{asPlane(vertices.places()[i])}; }}
    {
    }

    /// The vertices besides its ends that `chord` runs through in the sense of `isThrough(from, to, vertex)`, in order
    /// along it.
    template <class IsThrough>
    void collect(const Chord& chord, IsThrough isThrough, std::vector<uint32_t>& found) const
    {
        const GridPoint& from = m_vertices.places()[chord.from];
        const GridPoint& to = m_vertices.places()[chord.to];
        m_lists.collect(std::array{asPlane(from), asPlane(to)}, kNear, found);
        std::erase_if(found, [&](uint32_t vertex)
                      { return vertex == chord.from || vertex == chord.to || !isThrough(from, to, at(vertex)); });
        const auto along = [&](uint32_t vertex)
        { return (at(vertex).x - from.x) * (to.x - from.x) + (at(vertex).y - from.y) * (to.y - from.y); };
        std::stable_sort(found.begin(), found.end(), [&](uint32_t a, uint32_t b) { return along(a) < along(b); });
    }

private:
    static Box2d boxOf(const VertexSet& vertices)
    {
        Box2d box;
        for (const GridPoint& place : vertices.places())
            box.add(asPlane(place).x, asPlane(place).y);
        return box;
    }
    const GridPoint& at(uint32_t vertex) const { return m_vertices.places()[vertex]; }

    const VertexSet& m_vertices;
    CellLists m_lists;
};

ChordNet::ChordNet(const VertexSet& vertices, const std::vector<Chord>& chords) : m_vertices{vertices}, m_chords{chords}
{
}

std::optional<double> ChordNet::crossingAlong(const Chord& chord, const Chord& other) const
{
    const GridPoint& a = place(chord.from);
    const GridPoint& b = place(chord.to);
    const int64_t from = doubleArea(place(other.from), place(other.to), a);
    const int64_t to = doubleArea(place(other.from), place(other.to), b);
    if (signOf(from) * signOf(to) >= 0 ||
        signOf(doubleArea(a, b, place(other.from))) * signOf(doubleArea(a, b, place(other.to))) >= 0)
        return std::nullopt;
    return static_cast<double>(from) / (static_cast<double>(from) - static_cast<double>(to));
}

std::vector<ChordNet::Crossing> ChordNet::crossings() const
{
    Box2d box;
    for (uint32_t chord = 0; chord < m_chords.size(); ++chord)
        for (const AcGePoint2d& end : shapeOf(chord))
            box.add(end.x, end.y);
    const CellLists lists{box, m_chords.size(), m_chords.size(),
                          [this](size_t chord) { return shapeOf(static_cast<uint32_t>(chord)); }};
    std::vector<Crossing> found;
    std::vector<uint32_t> near;
    for (uint32_t first = 0; first < m_chords.size(); ++first)
    {
        lists.collect(shapeOf(first), 0.0, near);
        for (auto second = std::upper_bound(near.begin(), near.end(), first); second != near.end(); ++second)
            if (const std::optional<double> along = crossingAlong(m_chords[first], m_chords[*second]))
                found.push_back({first, *second, *along, *crossingAlong(m_chords[*second], m_chords[first])});
    }
    return found;
}

std::vector<uint32_t> ChordNet::blocked() const
{
    const VertexLists lists{m_vertices};
    const auto isOn = [](const GridPoint& from, const GridPoint& to, const GridPoint& vertex)
    { return doubleArea(from, to, vertex) == 0 && touchesPixel(from, to, vertex); };
    std::vector<uint32_t> found;
    std::vector<uint32_t> inner;
    for (uint32_t chord = 0; chord < m_chords.size(); ++chord)
    {
        lists.collect(m_chords[chord], isOn, inner);
        if (!inner.empty())
            found.push_back(chord);
    }
    return found;
}

/// On the chord as it runs on the grid: there it is that it crosses others.
AcGePoint3d ChordNet::pointOn(uint32_t chord, double along) const
{
    const auto [from, to, line] = m_chords[chord];
    const AcGePoint2d start = m_vertices.grid().placeOf(place(from));
    const AcGePoint2d at = start + (m_vertices.grid().placeOf(place(to)) - start) * along;
    const double height = m_vertices.points()[from].z;
    return {at.x, at.y, height + (m_vertices.points()[to].z - height) * along};
}

/// The chords as pieces between the vertices they run through, each piece once.
std::vector<Chord> splitAtVertices(const VertexSet& vertices, const std::vector<Chord>& chords)
{
    const VertexLists lists{vertices};
    std::vector<Chord> pieces;
    std::unordered_set<uint64_t> known;
    std::vector<uint32_t> stops;
    for (const Chord& chord : chords)
    {
        lists.collect(chord, touchesPixel, stops);
        stops.push_back(chord.to);
        uint32_t from = chord.from;
        for (const uint32_t to : stops)
        {
            const uint64_t key = uint64_t{std::min(from, to)} << 32 | std::max(from, to);
            if (from != to && known.insert(key).second)
                pieces.push_back({from, to, chord.line});
            from = to;
        }
    }
    return pieces;
}

void addVertices(const ChordNet& net, const std::vector<ChordNet::Crossing>& crossings,
                 const std::vector<Chord>& chords, VertexSet& vertices, std::vector<BreakCrossing>& told)
{
    AcGePoint3dArray places;
    for (const ChordNet::Crossing& crossing : crossings)
    {
        places.push_back(net.pointOn(crossing.first, crossing.alongFirst));
        const uint32_t first = chords[crossing.first].line;
        const uint32_t second = chords[crossing.second].line;
        if (first != second)
            told.push_back({first, second, places.back(), net.pointOn(crossing.second, crossing.alongSecond).z});
    }
    for (const AcGePoint3d& at : places)
        vertices.add(at);
}

/// What is left to do: chords that cross another one or run through a vertex.
std::unordered_set<uint32_t> unrested(const ChordNet& net, const std::vector<ChordNet::Crossing>& crossings)
{
    std::unordered_set<uint32_t> found;
    for (const ChordNet::Crossing& crossing : crossings)
        found.insert(crossing.second);
    for (const uint32_t chord : net.blocked())
        found.insert(chord);
    return found;
}

void leaveOut(const std::unordered_set<uint32_t>& numbers, std::vector<Chord>& chords)
{
    uint32_t number = 0;
    std::erase_if(chords, [&](const Chord&) { return numbers.contains(number++); });
}

} // namespace

std::vector<BreakCrossing> nodeChords(VertexSet& vertices, std::vector<Chord>& chords)
{
    std::vector<BreakCrossing> told;
    for (size_t round = 0;; ++round)
    {
        const ChordNet net{vertices, chords};
        const std::vector<ChordNet::Crossing> crossings = net.crossings();
        if (round > 0)
        {
            const std::unordered_set<uint32_t> left = unrested(net, crossings);
            if (left.empty())
                return told;
            if (round > kMostRounds)
            {
                leaveOut(left, chords);
                return told;
            }
        }
        addVertices(net, crossings, chords, vertices, told);
        chords = splitAtVertices(vertices, chords);
    }
}

} // namespace survey
