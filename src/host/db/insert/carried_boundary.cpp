#include "host/db/insert/carried_boundary.h"

#include "host/db/curve/spline_edge.h"

bool CarriedBoundary::carries(const Tag& tag, const OwnPairs& behind, std::vector<CarriedPair>& pairs)
{
    constexpr int kSpline = 4; // no other 72 of a hatch has this value
    const SplineEdgePart part = m_insideSpline ? splineEdgePart(tag, behind) : SplineEdgePart::kNone;
    m_counted = m_counted || (part == SplineEdgePart::kFitData && tag.code == kBoundaryCount);
    if (part != SplineEdgePart::kNone)
        return part == SplineEdgePart::kShape || m_fitData;
    if (m_insideSpline && m_fitData && !m_counted)
        pairs.push_back({kBoundaryCount, "0"});
    m_insideSpline = tag.code == kBoundaryEdgeKind && tag.integer() == kSpline;
    m_counted = false;
    if (tag.code == kBoundaryCount)
        pairs.push_back({kBoundaryCount, "0"});
    return tag.code != kBoundaryCount;
}
