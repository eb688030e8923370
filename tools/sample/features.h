#pragma once

#include "entities.h"
#include "sections.h"

/// Draws exactly `count` coded polylines beside the road, in blocks of the catalogue's features, and survey points on
/// some of their vertices, at most `pointBudget`. The result is how many points were drawn.
int DrawFeatures(const RoadDrawing& drawing, int count, int pointBudget);
