#pragma once

#include "kernel/point2d.h"

#include <span>
#include <vector>

namespace survey
{

struct SheetSize
{
    double width = 0.0;
    double height = 0.0;
};

/// Where sheets stand, by their upper left corners: below one another in columns, the columns beside one another from
/// `upperLeft` to the right. No two overlap. Columns become about as high as all of them together are wide, and not
/// lower than `leastHeight`.
std::vector<AcGePoint2d> columnPlaces(std::span<const SheetSize> sheets, const AcGePoint2d& upperLeft,
                                      double leastHeight);

/// The right end of columns placed so.
double rightEndOf(std::span<const SheetSize> sheets, std::span<const AcGePoint2d> places);

/// Between two sheets, and between sheets and what stands beside them.
inline constexpr double kSheetGap = 30.0;

} // namespace survey
