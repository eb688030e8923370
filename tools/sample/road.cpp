#include "road.h"

#include <algorithm>
#include <cmath>

namespace
{
Pose Advance(const Pose& from, double length, double curvature)
{
    if (curvature == 0)
        return {{from.at.x + length * std::cos(from.heading), from.at.y + length * std::sin(from.heading)},
                from.heading};
    const double heading = from.heading + length * curvature;
    return {{from.at.x + (std::sin(heading) - std::sin(from.heading)) / curvature,
             from.at.y - (std::cos(heading) - std::cos(from.heading)) / curvature},
            heading};
}
} // namespace

void Box::Add(Point point)
{
    low = {std::min(low.x, point.x), std::min(low.y, point.y)};
    high = {std::max(high.x, point.x), std::max(high.y, point.y)};
}

void Road::Append(double length, double curvature)
{
    m_pieces.push_back({m_length, length, curvature, m_end});
    m_length += length;
    m_end = Advance(m_end, length, curvature);
}

const Road::Piece& Road::PieceAt(double chainage) const
{
    const auto after = std::upper_bound(m_pieces.begin(), m_pieces.end(), chainage,
                                        [](double value, const Piece& piece) { return value < piece.start; });
    return after == m_pieces.begin() ? m_pieces.front() : *(after - 1);
}

Pose Road::At(double chainage) const
{
    const Piece& piece = PieceAt(chainage);
    return Advance(piece.pose, chainage - piece.start, piece.curvature);
}

Point Road::At(double chainage, double offset) const
{
    const Pose pose = At(chainage);
    return {pose.at.x + offset * std::sin(pose.heading), pose.at.y - offset * std::cos(pose.heading)};
}

std::vector<Vertex> Road::Parallel(double from, double to, double offset) const
{
    std::vector<Vertex> line;
    double at = from;
    while (at < to)
    {
        const Piece& piece = PieceAt(at);
        const double pieceEnd = piece.start + piece.length;
        const double next = pieceEnd <= at ? to : std::min(to, pieceEnd);
        line.push_back({At(at, offset), 0, std::tan((next - at) * piece.curvature / 4)});
        at = next;
    }
    line.push_back({At(to, offset), 0, 0});
    return line;
}

Box Road::Bounds() const
{
    Box box;
    for (double at = 0; at < m_length; at += 20)
        box.Add(At(at).at);
    box.Add(m_end.at);
    return box;
}
