#pragma once

#include "survey/model/alignment_line.h"

#include <optional>
#include <vector>

/// Single elements of alignments.

namespace survey
{

/// Shorter than this is no element, and ends nearer than this meet, metres.
inline constexpr double kMeetingDistance = 0.01;

AlignmentElement straightElement(const AcGePoint2d& start, const AcGePoint2d& end);

/// The arc around `centre` from `start` towards `end`, a whole turn where they meet. Its radius is that of the start.
AlignmentElement arcElement(const AcGePoint2d& start, const AcGePoint2d& centre, const AcGePoint2d& end,
                            bool clockwise);

/// The centre of an arc of this radius between two points, less than half a turn unless `isLong`. None when they lie
/// further apart than the radius allows, or at one place.
std::optional<AcGePoint2d> arcCentre(const AcGePoint2d& start, const AcGePoint2d& end, double radius, bool clockwise,
                                     bool isLong);

/// The clothoid of this length and these curvatures between two points, turned so that its end lies towards `end`.
/// Its own end is `endOf` it, which is `end` when they go together.
AlignmentElement clothoidElement(const AcGePoint2d& start, const AcGePoint2d& end, double length, double startCurvature,
                                 double endCurvature);

/// The place at a distance from the element's start, at most its length and not below 0.
AcGePoint2d pointOn(const AlignmentElement& element, double distance);
/// Radians, as `AlignmentElement::direction`.
double directionOn(const AlignmentElement& element, double distance);

inline AcGePoint2d endOf(const AlignmentElement& element)
{
    return pointOn(element, element.length);
}

/// The distance from the element's start to the place of it that is nearest to `point`.
double nearestOn(const AlignmentElement& element, const AcGePoint2d& point);

/// Distances from the element's start, its end the last, between which straight lines leave it by no more than
/// `deviation` metres.
std::vector<double> chordEnds(const AlignmentElement& element, double deviation);

} // namespace survey
