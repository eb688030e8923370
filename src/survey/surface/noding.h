#pragma once

#include "survey/surface/vertex_set.h"

#include <cstdint>
#include <vector>

namespace survey
{

/// A straight piece of a break line, between two vertices.
struct Chord
{
    uint32_t from = 0;
    uint32_t to = 0;
    uint32_t line = 0; ///< which break line it is of
};

/// Two break lines that cross: the vertex there has the height of the first.
struct BreakCrossing
{
    uint32_t first = 0; ///< line; of the lower number
    uint32_t second = 0;
    AcGePoint3d place;
    double secondHeight = 0.0; ///< of the other line there
};

/// Makes a net of break lines: splits chords where they cross and where they run through a vertex, and leaves one of
/// those that lie on one another. Afterwards chords touch at their ends only, and no vertex lies on one but its ends.
/// Vertices are added for crossings. The answer is what crossed.
///
/// Chords bend to vertices within half a unit of the grid (snap rounding), again where the bent ones meet; a chord that
/// does not come to rest is left out.
std::vector<BreakCrossing> nodeChords(VertexSet& vertices, std::vector<Chord>& chords);

} // namespace survey
