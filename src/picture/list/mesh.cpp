#include "picture/list/mesh.h"

#include "host/db/curve/entity_curves.h"
#include "host/db/database.h"
#include "store/pair_edit.h"

#include <array>
#include <cstdlib>

namespace picture
{

namespace
{

constexpr int kGrid = 16;
constexpr int kFaces = 64;

struct MeshHead
{
    int flags = 0;
    std::array<size_t, 4> counts{}; ///< 71 to 74: rows and columns, then those of the smoothed surface
};

MeshHead readHead(std::string_view text)
{
    MeshHead head;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 70)
            head.flags = static_cast<int>(tag.integer());
        else if (tag.code >= 71 && tag.code <= 74 && tag.integer() > 0)
            head.counts[static_cast<size_t>(tag.code - 71)] = static_cast<size_t>(tag.integer());
    return head;
}

struct MeshVertex
{
    AcGePoint3d point;
    int flags = 0;
    std::array<int, 4> corners{}; ///< of a face: vertices from 1, negative where the edge that begins there is hidden
};

MeshVertex readVertex(std::string_view text)
{
    MeshVertex vertex;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 10)
            vertex.point = pairs.pointFrom(tag);
        else if (tag.code == 70)
            vertex.flags = static_cast<int>(tag.integer());
        else if (tag.code >= 71 && tag.code <= 74)
            vertex.corners[static_cast<size_t>(tag.code - 71)] = static_cast<int>(tag.integer());
    return vertex;
}

std::vector<MeshVertex> readVertices(ObjectRecord& polyline)
{
    std::vector<MeshVertex> vertices;
    for (const ObjectRecord* part : subEntitiesOf(polyline))
        if (part->database->dxfNameOf(*part) == "VERTEX")
            vertices.push_back(readVertex(part->view()));
    return vertices;
}

std::vector<AcGePoint3dArray> gridEdges(const MeshHead& head, const std::vector<MeshVertex>& vertices)
{
    constexpr int kClosedRows = 1;
    constexpr int kSmoothed = 4;
    constexpr int kClosedColumns = 32;
    constexpr int kFramePoint = 16;
    const bool smoothed = (head.flags & kSmoothed) != 0;
    AcGePoint3dArray points;
    for (const MeshVertex& vertex : vertices)
        if (!smoothed || (vertex.flags & kFramePoint) == 0)
            points.push_back(vertex.point);
    const size_t rows = head.counts[smoothed ? 2 : 0];
    const size_t columns = head.counts[smoothed ? 3 : 1];
    if (rows == 0 || columns == 0 || points.size() / columns < rows)
        return {};
    std::vector<AcGePoint3dArray> edges;
    for (size_t row = 0; row < rows; ++row)
    {
        AcGePoint3dArray& edge = edges.emplace_back();
        for (size_t column = 0; column < columns; ++column)
            edge.push_back(points[row * columns + column]);
        if ((head.flags & kClosedColumns) != 0)
            edge.push_back(edge.front());
    }
    for (size_t column = 0; column < columns; ++column)
    {
        AcGePoint3dArray& edge = edges.emplace_back();
        for (size_t row = 0; row < rows; ++row)
            edge.push_back(points[row * columns + column]);
        if ((head.flags & kClosedRows) != 0)
            edge.push_back(edge.front());
    }
    return edges;
}

std::vector<AcGePoint3dArray> polyfaceEdges(const std::vector<MeshVertex>& vertices)
{
    constexpr int kPlace = 64;
    AcGePoint3dArray points;
    for (const MeshVertex& vertex : vertices)
        if ((vertex.flags & kPlace) != 0)
            points.push_back(vertex.point);
    std::vector<AcGePoint3dArray> edges;
    for (const MeshVertex& face : vertices)
    {
        if ((face.flags & kPlace) != 0)
            continue;
        size_t count = 0;
        while (count < 4 && face.corners[count] != 0)
            ++count;
        for (size_t i = 0; i < count; ++i)
        {
            const auto from = static_cast<size_t>(std::abs(face.corners[i]));
            const auto to = static_cast<size_t>(std::abs(face.corners[i + 1 < count ? i + 1 : 0]));
            if (face.corners[i] > 0 && from <= points.size() && to <= points.size())
                edges.push_back({points[from - 1], points[to - 1]});
        }
    }
    return edges;
}

} // namespace

bool isMesh(std::string_view pairs)
{
    return (readHead(pairs).flags & (kGrid | kFaces)) != 0;
}

std::vector<AcGePoint3dArray> meshEdges(ObjectRecord& polyline)
{
    const MeshHead head = readHead(polyline.view());
    const std::vector<MeshVertex> vertices = readVertices(polyline);
    return (head.flags & kFaces) != 0 ? polyfaceEdges(vertices) : gridEdges(head, vertices);
}

std::vector<AcGePoint3dArray> faceEdges(std::string_view text)
{
    std::array<AcGePoint3d, 4> points;
    bool hasFourth = false;
    int hidden = 0;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code >= 10 && tag.code <= 13)
        {
            points[static_cast<size_t>(tag.code - 10)] = pairs.pointFrom(tag);
            hasFourth = hasFourth || tag.code == 13;
        }
        else if (tag.code == 70)
            hidden = static_cast<int>(tag.integer());
    if (!hasFourth)
        points[3] = points[2];
    std::vector<AcGePoint3dArray> edges;
    for (size_t i = 0; i < 4; ++i)
        if ((hidden & (1 << i)) == 0)
            edges.push_back({points[i], points[(i + 1) % 4]});
    return edges;
}

} // namespace picture
