#pragma once

#include "kernel/segment2d.h"

/// How many chords of one length stay within `tolerance` of an arc (at most 4,096); 1 for a straight segment.
int chordsWithin(const Segment2d& arc, double tolerance);
