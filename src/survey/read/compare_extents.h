#pragma once

#include "survey/model/survey.h"

namespace survey
{

/// Sets the extents of each file to the box around all that came from it and has a place in the plan.
void measureExtents(Survey& survey);

/// A finding for each file that lies far from the others, with the likely reason: northing and easting are swapped, or
/// feet are taken for metres or the reverse. The others are the most files that lie near one another.
void compareExtents(Survey& survey);

} // namespace survey
