#include "survey/surface/section_cut.h"

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>

namespace survey
{

namespace
{

constexpr double kJoined = 0.001; ///< metres: triangles that are this near to one another touch

/// The part of a triangle on the section's line, by rising offset.
struct Strip
{
    GroundPoint from;
    GroundPoint to;

    bool operator==(const Strip&) const = default;
};

/// A corner of a triangle as the section sees it.
struct Seen
{
    double ahead; ///< metres in front of the section's line
    GroundPoint point;
};

/// The place between two corners, one behind the line and one in front of it. Always counted from the one behind, so
/// that both triangles on an edge meet it at the same numbers.
GroundPoint between(const Seen& a, const Seen& b)
{
    const Seen& behind = a.ahead < b.ahead ? a : b;
    const Seen& front = a.ahead < b.ahead ? b : a;
    const double along = behind.ahead / (behind.ahead - front.ahead);
    return {behind.point.offset + (front.point.offset - behind.point.offset) * along,
            behind.point.elevation + (front.point.elevation - behind.point.elevation) * along};
}

class FaceCutter
{
public:
    FaceCutter(const Tin& tin, const CutLine& line) : m_tin{tin}, m_line{line}, m_ahead{line.right.perpVector()} {}

    std::optional<Strip> strip(const Surface::Face& face) const
    {
        const std::array<Seen, 3> corners{see(face[0]), see(face[1]), see(face[2])};
        std::array<GroundPoint, 3> met;
        size_t count = 0;
        for (size_t i = 0; i < corners.size(); ++i)
        {
            const Seen& corner = corners[i];
            const Seen& next = corners[(i + 1) % 3];
            if (corner.ahead == 0.0)
                met[count++] = corner.point;
            else if ((corner.ahead < 0.0 && next.ahead > 0.0) || (corner.ahead > 0.0 && next.ahead < 0.0))
                met[count++] = between(corner, next);
        }
        if (count != 2 || met[0].offset == met[1].offset)
            return std::nullopt; // only touched, or upright: the step shows where its neighbours meet
        return met[0].offset < met[1].offset ? clipped({met[0], met[1]}) : clipped({met[1], met[0]});
    }

private:
    Seen see(uint32_t vertex) const
    {
        const AcGePoint3d& point = m_tin.points[vertex];
        const AcGeVector2d away{point.x - m_line.center.x, point.y - m_line.center.y};
        return {away.dotProduct(m_ahead), {away.dotProduct(m_line.right), point.z}};
    }

    std::optional<Strip> clipped(Strip strip) const
    {
        const double low = -m_line.leftWidth;
        const double high = m_line.rightWidth;
        if (strip.to.offset <= low || strip.from.offset >= high)
            return std::nullopt;
        const Strip whole = strip;
        const auto at = [&](double offset) -> GroundPoint
        {
            const double along = (offset - whole.from.offset) / (whole.to.offset - whole.from.offset);
            return {offset, whole.from.elevation + (whole.to.elevation - whole.from.elevation) * along};
        };
        if (strip.from.offset < low)
            strip.from = at(low);
        if (strip.to.offset > high)
            strip.to = at(high);
        return strip;
    }

    const Tin& m_tin;
    const CutLine& m_line;
    AcGeVector2d m_ahead;
};

void append(const GroundPoint& point, GroundPiece& piece)
{
    if (piece.empty() || !(piece.back() == point))
        piece.push_back(point);
}

/// Joins strips to pieces, from left to right.
GroundCut joined(std::vector<Strip> strips)
{
    std::sort(strips.begin(), strips.end(),
              [](const Strip& a, const Strip& b)
              { return std::tie(a.from.offset, a.to.offset) < std::tie(b.from.offset, b.to.offset); });
    strips.erase(std::unique(strips.begin(), strips.end()), strips.end()); // the two sides of an edge on the line
    GroundCut cut;
    for (const Strip& strip : strips)
    {
        if (cut.pieces.empty() || strip.from.offset > cut.pieces.back().back().offset + kJoined)
            cut.pieces.emplace_back();
        GroundPiece& piece = cut.pieces.back();
        const double reached = piece.empty() ? strip.from.offset : piece.back().offset;
        if (strip.from.offset < reached - kJoined)
            ++cut.overlaps;
        if (strip.to.offset <= reached)
            continue;
        if (strip.from.offset >= reached)
            append(strip.from, piece);
        append(strip.to, piece);
    }
    return cut;
}

} // namespace

GroundCut cutFaces(const Tin& tin, std::span<const uint32_t> faces, const CutLine& line)
{
    const FaceCutter cutter{tin, line};
    std::vector<Strip> strips;
    for (const uint32_t face : faces)
        if (const std::optional<Strip> strip = cutter.strip(tin.faces[face]))
            strips.push_back(*strip);
    return joined(std::move(strips));
}

SectionCutter::SectionCutter(const Tin& tin) : m_tin{tin}
{
    Box2d box;
    for (const AcGePoint3d& point : tin.points)
        box.add(point.x, point.y);
    const auto corner = [&tin](const Surface::Face& face, size_t index) {
        return AcGePoint2d{tin.points[face[index]].x, tin.points[face[index]].y};
    };
    m_lists = std::make_unique<CellLists>(
        box, tin.faces.size(), tin.faces.size(),
        [&](size_t face) {
            return std::array{corner(tin.faces[face], 0), corner(tin.faces[face], 1), corner(tin.faces[face], 2)};
        });
}

GroundCut SectionCutter::cut(const CutLine& line) const
{
    const std::array ends{line.center + line.right * -line.leftWidth, line.center + line.right * line.rightWidth};
    std::vector<uint32_t> near;
    m_lists->collect(ends, 0.0, near);
    return cutFaces(m_tin, near, line);
}

} // namespace survey
