#pragma once

#include "survey/model/alignment_line.h"

namespace survey
{

/// The unit vector to the right along a section at a distance from the alignment's start: at a right angle to the line,
/// turned clockwise by `skew` radians.
AcGeVector2d sectionDirection(const AlignmentLine& line, double distance, double skew);

/// The place of an offset on that section.
AcGePoint2d sectionPlace(const AlignmentLine& line, double distance, double skew, double offset);

} // namespace survey
