#pragma once

#include "sections.h"

/// Draws the road's plan: centre line, exactly `polylines` coded features, exactly `points` survey points (some of
/// them on vertices of features), coded blocks, and what no code belongs to: contours, heights, hachures, vegetation.
void DrawPlan(const RoadDrawing& drawing, int polylines, int points);
