#include "picture/list/wide_path.h"

#include "host/db/curve/entity_curves.h"
#include "host/db/database.h"
#include "store/pair_edit.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace picture
{

namespace
{

constexpr double kChordAngle = std::numbers::pi / 48;

/// A straight piece of the band.
struct Piece
{
    AcGePoint2d from;
    AcGePoint2d to;
    double fromHalf;
    double toHalf;

    AcGeVector2d left() const { return ((to - from) / (to - from).length()).perpVector(); }
};

Vertex at(const AcGePoint2d& point, const AcGeVector2d& direction, double way)
{
    return {point.x + direction.x * way, point.y + direction.y * way};
}

void addPieces(const WidePath::Corner& corner, const PathVertex& next, std::vector<Piece>& pieces)
{
    const Segment2d segment{corner.vertex, next};
    if (!segment.isUsable())
        return;
    const int chords = segment.isArc() ? static_cast<int>(std::ceil(std::fabs(segment.sweep()) / kChordAngle)) : 1;
    AcGePoint2d from = segment.start();
    for (int i = 1; i <= chords; ++i)
    {
        const double before = static_cast<double>(i - 1) / chords;
        const double after = static_cast<double>(i) / chords;
        const AcGePoint2d to = i < chords ? segment.at(after) : segment.end();
        const auto half = [&corner](double part)
        { return (corner.startWidth + (corner.endWidth - corner.startWidth) * part) / 2; };
        pieces.push_back({from, to, half(before), half(after)});
        from = to;
    }
}

/// The wedge outside the corner between two pieces, its point where their edges meet unless that is far off.
void addJoint(const Piece& before, const Piece& after, std::vector<std::vector<Vertex>>& loops)
{
    constexpr double kSharpest = 4.0;
    const AcGeVector2d a = before.left();
    const AcGeVector2d b = after.left();
    const double turn = a.x * b.y - a.y * b.x;
    const double cosine = a.x * b.x + a.y * b.y;
    const double half = std::min(before.toHalf, after.fromHalf);
    if (std::fabs(turn) < 1e-9 || !(half > 0.0))
        return;
    const double side = turn > 0.0 ? -half : half; // the outside of a left turn is on the right
    std::vector<Vertex> wedge{{before.to.x, before.to.y}, at(before.to, a, side)};
    const double stretch = 2.0 / (1.0 + cosine);
    if (1.0 + cosine > 1e-6 && stretch < kSharpest)
        wedge.push_back(at(before.to, (a + b) * (1.0 / (1.0 + cosine)), side));
    wedge.push_back(at(before.to, b, side));
    if (turn < 0.0)
        std::reverse(wedge.begin(), wedge.end());
    loops.push_back(std::move(wedge));
}

} // namespace

bool WidePath::hasWidth() const
{
    return std::any_of(corners.begin(), corners.end(),
                       [](const Corner& corner) { return corner.startWidth > 0.0 || corner.endWidth > 0.0; });
}

std::vector<std::vector<Vertex>> WidePath::outlines() const
{
    std::vector<Piece> pieces;
    for (size_t i = 0; i + (closed ? 0 : 1) < corners.size(); ++i)
        addPieces(corners[i], corners[i + 1 < corners.size() ? i + 1 : 0].vertex, pieces);
    std::vector<std::vector<Vertex>> loops;
    for (size_t i = 0; i < pieces.size(); ++i)
    {
        const Piece& piece = pieces[i];
        const AcGeVector2d left = piece.left();
        loops.push_back({at(piece.from, left, piece.fromHalf), at(piece.from, left, -piece.fromHalf),
                         at(piece.to, left, -piece.toHalf), at(piece.to, left, piece.toHalf)});
        if (i > 0)
            addJoint(pieces[i - 1], piece, loops);
        else if (closed)
            addJoint(pieces.back(), piece, loops);
    }
    return loops;
}

WidePath readLightweightWidths(std::string_view text)
{
    WidePath path;
    double constant = 0.0;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 10)
        {
            const AcGePoint3d point = pairs.pointFrom(tag);
            path.corners.push_back({{point.x, point.y}, constant, constant});
        }
        else if (tag.code == 38)
            path.elevation = tag.real();
        else if (tag.code == 43)
            constant = tag.real();
        else if (tag.code == 70)
            path.closed = (tag.integer() & 1) != 0;
        else if (tag.code == 210)
            path.normal = pairs.pointFrom(tag).asVector();
        else if (path.corners.empty())
            continue;
        else if (tag.code == 40)
            path.corners.back().startWidth = tag.real();
        else if (tag.code == 41)
            path.corners.back().endWidth = tag.real();
        else if (tag.code == 42)
            path.corners.back().vertex.bulge = tag.real();
    return path;
}

WidePath readPolylineWidths(ObjectRecord& polyline)
{
    constexpr int kNotPlane = 8 | 16 | 64;
    constexpr int kFramePoint = 16;
    WidePath path;
    double start = 0.0;
    double end = 0.0;
    bool isPlane = true;
    OwnPairs head{polyline.view()};
    for (Tag tag; head.next(tag);)
        if (tag.code == 10)
            path.elevation = head.pointFrom(tag).z;
        else if (tag.code == 40)
            start = tag.real();
        else if (tag.code == 41)
            end = tag.real();
        else if (tag.code == 70)
        {
            path.closed = (tag.integer() & 1) != 0;
            isPlane = (tag.integer() & kNotPlane) == 0;
        }
        else if (tag.code == 210)
            path.normal = head.pointFrom(tag).asVector();
    if (!isPlane)
        return {};
    for (const ObjectRecord* part : subEntitiesOf(polyline))
    {
        if (part->database->dxfNameOf(*part) != "VERTEX")
            continue;
        WidePath::Corner corner{{}, start, end};
        int flags = 0;
        OwnPairs pairs{part->view()};
        for (Tag tag; pairs.next(tag);)
            if (tag.code == 10)
            {
                const AcGePoint3d point = pairs.pointFrom(tag);
                corner.vertex.x = point.x;
                corner.vertex.y = point.y;
            }
            else if (tag.code == 40)
                corner.startWidth = tag.real();
            else if (tag.code == 41)
                corner.endWidth = tag.real();
            else if (tag.code == 42)
                corner.vertex.bulge = tag.real();
            else if (tag.code == 70)
                flags = static_cast<int>(tag.integer());
        if ((flags & kFramePoint) == 0)
            path.corners.push_back(corner);
    }
    return path;
}

} // namespace picture
