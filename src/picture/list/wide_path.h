#pragma once

#include "kernel/matrix3d.h"
#include "kernel/segment2d.h"
#include "picture/map2d.h"

#include <string_view>
#include <vector>

struct ObjectRecord;

namespace picture
{

/// A polyline in its own plane whose pieces have widths, in drawing units.
struct WidePath
{
    struct Corner
    {
        PathVertex vertex;
        double startWidth = 0.0; ///< of the piece that begins here
        double endWidth = 0.0;
    };
    std::vector<Corner> corners;
    bool closed = false;
    double elevation = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;

    bool hasWidth() const;
    AcGeMatrix3d toWorld() const { return AcGeMatrix3d::planeToWorld(normal); }
    /// Loops, all turning the same way, that together cover the band; joints are mitred, sharp ones cut off.
    std::vector<std::vector<Vertex>> outlines() const;
};

WidePath readLightweightWidths(std::string_view pairs);
/// Of a polyline whose vertices follow it as records; without corners when it is no polyline of the plane.
WidePath readPolylineWidths(ObjectRecord& polyline);

} // namespace picture
