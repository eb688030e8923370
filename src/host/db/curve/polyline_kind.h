#pragma once

struct ObjectRecord;

/// What a POLYLINE is.
enum class PolylineKind
{
    Plane,
    Space,
    Mesh ///< a mesh of faces, of either sort
};

/// What a VERTEX belongs to.
enum class VertexKind
{
    Plane,
    Space,
    Mesh
};

/// Which kind a POLYLINE is: in space by a flag or class marker of its own, or by those of its first vertex.
PolylineKind kindOfPolyline(const ObjectRecord& polyline);

/// Which kind a VERTEX of `polyline` is: by flags and class marker of its own, else by its polyline.
VertexKind kindOfVertex(const ObjectRecord& vertex, const ObjectRecord& polyline);
