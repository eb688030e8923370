#pragma once

#include "survey/model/alignment_line.h"

#include <vector>

/// Places along an alignment. Distances are metres along the line from its start; before 0 and behind the length the
/// line goes on straight.

namespace survey
{

/// The whole length.
double lengthOf(const AlignmentLine& line);

AcGePoint2d pointAt(const AlignmentLine& line, double distance);

/// The unit vector in which the line runs there.
AcGeVector2d directionAt(const AlignmentLine& line, double distance);

/// Where a point is seen from the line: the nearest place of it, and how far the point lies from there.
struct Foot
{
    double distance = 0.0; ///< along the line, from 0 to its length
    double offset = 0.0;   ///< negative to the left
    /// The point lies before the line's start or behind its end; its offset is then the distance to that end.
    bool isBeyondEnd = false;
};
Foot footOf(const AlignmentLine& line, const AcGePoint2d& point);

/// Where the geometry changes: start, end and the joints of elements of different kinds or radii, rising. Joints of
/// straight ones are among them.
std::vector<double> keyDistances(const AlignmentLine& line);

/// The line as chords that nowhere leave it by more than `deviation` metres, start and end included.
std::vector<AcGePoint2d> chordsOf(const AlignmentLine& line, double deviation);

} // namespace survey
