#pragma once

#include "dxf_out.h"
#include "road.h"
#include "terrain.h"

#include <cstdint>

/// What the drawing of one road is made from.
struct RoadDrawing
{
    DxfOut& out;
    const Road& road;
    const Terrain& terrain;
    std::uint64_t seed;
};

/// Hands out the places of the cross-section drawings, row by row downwards from `corner`.
struct SectionGrid
{
    Point corner;
    int columns;
    int used = 0;

    /// The middle of the next place's datum line.
    Point Next();
};

/// Draws the road's cross-sections with their survey points, and the alignment that keeps their records. At most half
/// of `pointBudget` is used for survey points of sections; the result is how many were.
int DrawSections(const RoadDrawing& drawing, SectionGrid& grid, int count, int pointBudget);
