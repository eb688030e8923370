#pragma once

class PlaceList;
struct BoxedSegment;

/// `findCrossings` for two straight segments whose boxes meet.
void findStraightCrossing(const BoxedSegment& a, const BoxedSegment& b, PlaceList& places);
