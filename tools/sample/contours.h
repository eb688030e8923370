#pragma once

#include "sections.h"

/// Draws contour lines every half metre over a strip of `halfWidth` to each side of the road, every fifth one on a
/// layer of its own. They are cut at every hundred metres of road, as on map sheets.
void DrawContours(const RoadDrawing& drawing, double halfWidth);
