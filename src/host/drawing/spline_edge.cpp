#include "host/drawing/spline_edge.h"

namespace
{

constexpr int kCount = 97;
constexpr int kEdgeKind = 72;

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
    const bool isEdges = tag.code == kCount && behind.next(next) &&
                         (isFitPoint(next.code) || next.code == kEdgeKind || next.code == kCount);
    return isEdges ? SplineEdgePart::kFitData : SplineEdgePart::kNone;
}

bool CarriedBoundary::carries(const Tag& tag, const OwnPairs& behind, std::vector<CarriedPair>& pairs)
{
    constexpr int kSpline = 4; // no other 72 of a hatch has this value
    const SplineEdgePart part = m_insideSpline ? splineEdgePart(tag, behind) : SplineEdgePart::kNone;
    m_counted = m_counted || (part == SplineEdgePart::kFitData && tag.code == kCount);
    if (part != SplineEdgePart::kNone)
        return part == SplineEdgePart::kShape || m_fitData;
    if (m_insideSpline && m_fitData && !m_counted)
        pairs.push_back({kCount, "0"});
    m_insideSpline = tag.code == kEdgeKind && tag.integer() == kSpline;
    m_counted = false;
    if (tag.code == kCount)
        pairs.push_back({kCount, "0"});
    return tag.code != kCount;
}
