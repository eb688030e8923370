#include "host/db/curve/spline_edge.h"

namespace
{

bool within(int code, int first, int last)
{
    return code >= first && code <= last;
}

/// Fit points and the tangents at both ends.
bool isFitPoint(int code)
{
    return within(code, 11, 13) || within(code, 21, 23);
}

} // namespace

SplineEdgePart splineEdgePart(const Tag& tag, OwnPairs behind)
{
    if (isFitPoint(tag.code))
        return SplineEdgePart::kFitData;
    if (within(tag.code, 94, 96) || within(tag.code, 73, 74) || tag.code == 40 || tag.code == 42 || tag.code == 10 ||
        tag.code == 20)
        return SplineEdgePart::kShape;
    // Behind the edge's own count stand its points, the next edge, or the loop's count.
    Tag next;
    const bool isEdges = tag.code == kBoundaryCount && behind.next(next) &&
                         (isFitPoint(next.code) || next.code == kBoundaryEdgeKind || next.code == kBoundaryCount);
    return isEdges ? SplineEdgePart::kFitData : SplineEdgePart::kNone;
}
