#pragma once

#include "host/db/insert/foreign_pairs.h"
#include "store/pair_edit.h"

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
