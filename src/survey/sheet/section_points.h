#pragma once

#include "survey/sheet/section_plan.h"

#include <optional>
#include <vector>

namespace survey
{

/// The section that a point belongs to.
struct PointSection
{
    size_t alignment = 0; ///< index into the plan's alignments
    size_t section = 0;
    double offset = 0.0; ///< of its horizontal foot on the section's line, metres
    double away = 0.0;   ///< metres from the line
};

/// For each survey point the section on whose line it lies within the tolerance: the nearest, of equally near ones the
/// first. Nothing for a point of no section.
std::vector<std::optional<PointSection>> sectionsOfPoints(const std::vector<Point>& points,
                                                          const std::vector<PlannedAlignment>& alignments,
                                                          const WriteOptions& options);

} // namespace survey
