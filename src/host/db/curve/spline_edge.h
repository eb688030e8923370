#pragma once

#include "store/pair_edit.h"

/// Group codes of a hatch's boundary: a count of fit points or boundary objects, and the kind of an edge.
constexpr int kBoundaryCount = 97;
constexpr int kBoundaryEdgeKind = 72;

/// What a pair that follows the kind (72) of a spline edge of a hatch is: since R2010 such an edge has fit data, a
/// count (97) at the least, which looks like the count of boundary objects that ends every loop of edges.
enum class SplineEdgePart
{
    kNone, ///< the edge is over
    kShape,
    kFitData
};

/// `behind` walks on from the pair.
SplineEdgePart splineEdgePart(const Tag& tag, OwnPairs behind);
