#include "host/db/curve/entity_curves.h"

#include "host/db/curve/curve_readers.h"
#include "host/db/curve/polyline_kind.h"
#include "host/db/database.h"
#include "store/pair_edit.h"

#include <array>
#include <numbers>

namespace
{

/// What the pairs of a simple curve say, by group code. Single numbers are decoded when asked for: kinds use some.
struct CurveValues
{
    std::array<AcGePoint3d, 4> points;          ///< 10 to 13
    unsigned given = 0;                         ///< a bit for each point that is there
    AcGePoint3dArray vertices;                  ///< every 10
    std::array<std::optional<Tag>, 12> numbers; ///< 40 to 51
    AcGeVector3d normal = AcGeVector3d::kZAxis;

    bool has(int point) const { return (given & (1U << point)) != 0; }
    double number(int code, double fallback = 0.0) const
    {
        const std::optional<Tag>& tag = numbers[static_cast<size_t>(code - kFirstNumber)];
        return tag ? tag->real() : fallback;
    }
    double angle(int code) const { return number(code) * std::numbers::pi / 180.0; }
    static constexpr int kFirstNumber = 40;
    explicit CurveValues(std::string_view text);
};

CurveValues::CurveValues(std::string_view text)
{
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code >= 10 && tag.code <= 13)
        {
            const auto index = static_cast<size_t>(tag.code - 10);
            points[index] = pairs.pointFrom(tag);
            given |= 1U << index;
            if (index == 0)
                vertices.push_back(points[0]);
        }
        else if (tag.code >= kFirstNumber && tag.code < kFirstNumber + static_cast<int>(numbers.size()))
            numbers[static_cast<size_t>(tag.code - kFirstNumber)] = tag;
        else if (tag.code == 210)
            normal = pairs.pointFrom(tag).asVector();
}

using Curves = std::vector<CurvePath>;

Curves line(std::string_view pairs)
{
    const CurveValues v{pairs};
    return {CurvePath::line(v.points[0], v.points[1])};
}

Curves point(std::string_view pairs)
{
    const CurveValues v{pairs};
    return {CurvePath::space({&v.points[0], 1})};
}

Curves circle(std::string_view pairs)
{
    const CurveValues v{pairs};
    return {CurvePath::circle(v.points[0], v.number(40), v.normal)};
}

Curves arc(std::string_view pairs)
{
    const CurveValues v{pairs};
    return {CurvePath::arc(v.points[0], v.number(40), v.angle(50), v.angle(51), v.normal)};
}

Curves ellipseOf(std::string_view pairs)
{
    const CurveValues v{pairs};
    return {ellipse(v.points[0], v.points[1].asVector(), v.number(40), v.number(41),
                    v.number(42, 2.0 * std::numbers::pi), v.normal)};
}

Curves lightweightPolyline(std::string_view pairs)
{
    CurvePath shape;
    return readLightweightPolyline(pairs, shape) ? Curves{shape} : Curves{};
}

/// SOLID and TRACE: four corners in the entity's own plane, the last two exchanged.
Curves solid(std::string_view pairs)
{
    CurveValues v{pairs};
    if (!v.has(3))
        v.points[3] = v.points[2];
    const AcGeMatrix3d world = AcGeMatrix3d::planeToWorld(v.normal);
    const std::array<AcGePoint3d, 4> corners{world * v.points[0], world * v.points[1], world * v.points[3],
                                             world * v.points[2]};
    return {CurvePath::space(corners, true)};
}

Curves face(std::string_view pairs)
{
    CurveValues v{pairs};
    if (!v.has(3))
        v.points[3] = v.points[2];
    return {CurvePath::space(v.points, true)};
}

Curves leader(std::string_view pairs)
{
    const CurveValues v{pairs};
    return {CurvePath::space(v.vertices)};
}

struct Reader
{
    std::string_view kind;
    Curves (*read)(std::string_view pairs);
};

constexpr std::array kReaders{Reader{"LINE", line},
                              Reader{"LWPOLYLINE", lightweightPolyline},
                              Reader{"CIRCLE", circle},
                              Reader{"ARC", arc},
                              Reader{"POINT", point},
                              Reader{"ELLIPSE", ellipseOf},
                              Reader{"SPLINE", readSpline},
                              Reader{"SOLID", solid},
                              Reader{"TRACE", solid},
                              Reader{"3DFACE", face},
                              Reader{"HATCH", readHatchBoundary},
                              Reader{"LEADER", leader}};

/// Where the vertices of a fitted polyline come from: its fit marks them, and the frame's own vertices do not count.
bool belongsToShape(int polylineFlags, int vertexFlags)
{
    constexpr int kSplined = 4;
    constexpr int kFramePoint = 16;
    return (polylineFlags & kSplined) == 0 || (vertexFlags & kFramePoint) == 0;
}

struct PolylineHead
{
    int flags = 0;
    double elevation = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
};

PolylineHead readPolylineHead(std::string_view text)
{
    PolylineHead head;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 70)
            head.flags = static_cast<int>(tag.integer());
        else if (tag.code == 10)
            head.elevation = pairs.pointFrom(tag).z;
        else if (tag.code == 210)
            head.normal = pairs.pointFrom(tag).asVector();
    return head;
}

struct VertexValues
{
    AcGePoint3d point;
    double bulge = 0.0;
    int flags = 0;
};

VertexValues readVertex(std::string_view text)
{
    VertexValues vertex;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 10)
            vertex.point = pairs.pointFrom(tag);
        else if (tag.code == 42)
            vertex.bulge = tag.real();
        else if (tag.code == 70)
            vertex.flags = static_cast<int>(tag.integer());
    return vertex;
}

} // namespace

std::vector<CurvePath> curvesOfPairs(std::string_view kind, std::string_view pairs)
{
    for (const Reader& reader : kReaders)
        if (reader.kind == kind)
            return reader.read(pairs);
    return {};
}

bool readLightweightPolyline(std::string_view text, CurvePath& shape)
{
    std::vector<PathVertex> vertices;
    int64_t declared = -1;
    bool closed = false;
    double elevation = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 10)
        {
            const AcGePoint3d at = pairs.pointFrom(tag);
            vertices.push_back({at.x, at.y});
        }
        else if (tag.code == 42 && !vertices.empty())
            vertices.back().bulge = tag.real();
        else if (tag.code == 90)
            declared = tag.integer();
        else if (tag.code == 70)
            closed = (tag.integer() & 1) != 0;
        else if (tag.code == 38)
            elevation = tag.real();
        else if (tag.code == 210)
            normal = pairs.pointFrom(tag).asVector();
    const bool sound = declared < 0 || static_cast<uint64_t>(declared) == vertices.size();
    shape = CurvePath::plane(std::move(vertices), closed, elevation, normal);
    return sound;
}

CurvePath readVertexPolyline(ObjectRecord& polyline)
{
    constexpr int kClosed = 1;
    constexpr int kMesh = 16 | 64;
    const PolylineHead head = readPolylineHead(polyline.view());
    if ((head.flags & kMesh) != 0)
        return {};
    const bool inSpace = kindOfPolyline(polyline) == PolylineKind::Space;
    std::vector<PathVertex> vertices;
    AcGePoint3dArray points;
    for (const ObjectRecord* part : subEntitiesOf(polyline))
    {
        if (part->database->dxfNameOf(*part) != "VERTEX")
            continue;
        const VertexValues vertex = readVertex(part->view());
        if (!belongsToShape(head.flags, vertex.flags))
            continue;
        if (inSpace)
            points.push_back(vertex.point);
        else
            vertices.push_back({vertex.point.x, vertex.point.y, vertex.bulge});
    }
    const bool closed = (head.flags & kClosed) != 0;
    return inSpace ? CurvePath::space(points, closed)
                   : CurvePath::plane(std::move(vertices), closed, head.elevation, head.normal);
}

CurvePath ellipse(const AcGePoint3d& center, const AcGeVector3d& longAxis, double ratio, double from, double to,
                  const AcGeVector3d& normal)
{
    const AcGeVector3d shortAxis = normal.normal().crossProduct(longAxis) * ratio;
    return CurvePath::arc(AcGePoint3d::kOrigin, 1.0, from, to)
        .transformed(AcGeMatrix3d::fromCoordSystem(center, longAxis, shortAxis, normal.normal()));
}
