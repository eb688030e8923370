#pragma once

#include "host/drawing/foreign_pairs.h"
#include "host/drawing/pair_edit.h"

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

/// Writes the boundary of a hatch for another drawing: the spline edges have fit data when its version has that, and
/// no boundary objects are named.
class CarriedBoundary
{
public:
    explicit CarriedBoundary(bool fitData) : m_fitData{fitData} {}

    /// Takes the pairs one by one; `behind` walks on from each. Adds to `pairs` what is written in front of it or in
    /// its place; whether the pair itself is carried.
    bool carries(const Tag& tag, const OwnPairs& behind, std::vector<CarriedPair>& pairs);

private:
    bool m_fitData;
    bool m_insideSpline = false;
    bool m_counted = false;
};
