#include "host/db/curve/polyline_kind.h"

#include "host/db/database.h"
#include "store/group_codes.h"

namespace
{

constexpr int kFlags = 70;

constexpr int kPolyline3d = 8;
constexpr int kMesh = 16;
constexpr int kPolyface = 64;

constexpr int kVertex3d = 32;
constexpr int kMeshVertex = 64;
constexpr int kPolyfaceVertex = 128;

/// What a polyline or vertex says of itself: its flags, and whether a class marker before them makes it one in space.
struct Sort
{
    int64_t flags = 0;
    bool marked3d = false;
};

Sort sortOf(std::string_view pairs)
{
    Sort sort;
    TagReader reader{pairs};
    for (Tag tag; reader.next(tag);)
        if (tag.code == dxf::kClassMarker)
            sort.marked3d = sort.marked3d || tag.word().starts_with("AcDb3dPolyline");
        else if (tag.code == kFlags)
        {
            sort.flags = tag.integerOr(0);
            break;
        }
    return sort;
}

} // namespace

PolylineKind kindOfPolyline(const ObjectRecord& polyline)
{
    const Sort own = sortOf(polyline.view());
    if ((own.flags & kPolyline3d) != 0 || own.marked3d)
        return PolylineKind::Space;
    if ((own.flags & (kMesh | kPolyface)) != 0)
        return PolylineKind::Mesh;
    const RecordPool& records = polyline.database->store().records;
    const size_t next = size_t{polyline.order} + 1;
    if (next >= records.size() || !records[next].has(ObjectRecord::kSubEntity))
        return PolylineKind::Plane;
    const Sort vertex = sortOf(records[next].view());
    return (vertex.flags & kVertex3d) != 0 || vertex.marked3d ? PolylineKind::Space : PolylineKind::Plane;
}

VertexKind kindOfVertex(const ObjectRecord& vertex, const ObjectRecord& polyline)
{
    const Sort own = sortOf(vertex.view());
    if ((own.flags & kVertex3d) != 0 || own.marked3d)
        return VertexKind::Space;
    if ((own.flags & (kMeshVertex | kPolyfaceVertex)) != 0)
        return VertexKind::Mesh;
    return kindOfPolyline(polyline) == PolylineKind::Space ? VertexKind::Space : VertexKind::Plane;
}
