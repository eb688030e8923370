#pragma once

#include "entities.h"
#include "random.h"
#include "sections.h"

#include <string>

/// Drawing units of a cross-section drawing for a metre on the ground (scale 1:200 in millimetres).
inline constexpr double kSheetScale = 5;

struct SectionSheet
{
    std::u16string_view name;
    double chainage;
    double extent; ///< metres to each side
    Point base;    ///< offset 0 on the datum
};

/// Draws one cross-section: ground line, datum, the table below it with heights and distances, and its title.
/// The result is the ground line's handle. The ground stays above the datum.
Handle DrawSectionSheet(Entities& entities, const RoadDrawing& drawing, const SectionSheet& sheet, Random& random);
