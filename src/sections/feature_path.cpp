#include "sections/feature_path.h"

#include "host/db/entity/polyline.h"

namespace
{

using Path = std::vector<AcGePoint2d>;

void add(const AcGePoint3d& vertex, Path& path)
{
    path.emplace_back(vertex.x, vertex.y);
}

void closeIf(bool closed, Path& path)
{
    if (closed && !path.empty())
        path.push_back(AcGePoint2d(path.front()));
}

void collect(const AcDb3dPolyline& polyline, Path& path)
{
    const auto vertices = polyline.vertexIterator();
    for (vertices->start(); !vertices->done(); vertices->step())
        if (const AcDbObjectPointer<AcDb3dPolylineVertex> vertex(vertices->objectId()); vertex)
            add(vertex->position(), path);
}

void collect(const AcDbPolyline& polyline, Path& path)
{
    AcGePoint3d vertex;
    for (unsigned index = 0; index < polyline.numVerts(); ++index)
        if (polyline.getPointAt(index, vertex) == Acad::eOk)
            add(vertex, path);
    closeIf(polyline.isClosed(), path);
}

void collect(const AcDb2dPolyline& polyline, Path& path)
{
    const auto vertices = polyline.vertexIterator();
    for (vertices->start(); !vertices->done(); vertices->step())
    {
        AcDb2dVertex* vertex = nullptr;
        if (polyline.openVertex(vertex, vertices->objectId(), AcDb::kForRead) != Acad::eOk)
            break;
        add(vertex->position(), path);
        vertex->close();
    }
    closeIf(polyline.isClosed(), path);
}

} // namespace

void CollectFeaturePath(const AcDbObject& polyline, std::vector<AcGePoint2d>& path)
{
    path.clear();
    if (polyline.isKindOf(AcDb3dPolyline::desc()))
        collect(static_cast<const AcDb3dPolyline&>(polyline), path);
    else if (polyline.isKindOf(AcDbPolyline::desc()))
        collect(static_cast<const AcDbPolyline&>(polyline), path);
    else if (polyline.isKindOf(AcDb2dPolyline::desc()))
        collect(static_cast<const AcDb2dPolyline&>(polyline), path);
}
