#pragma once

#include <cstddef>

/// The module's tracking of open documents: a database reactor for each, from `StartTracking` to `StopTracking`. There
/// is at most one at a time; stopping what does not run does nothing.

/// Attaches to the documents that are open now, and from then on to each that is opened.
void StartTracking();

/// Detaches from everything.
void StopTracking();

/// How many documents are tracked.
size_t TrackedDocuments();

/// While it lives, databases that come up are not tracked; for work on a database beside the drawing.
class TrackingPause
{
public:
    TrackingPause();
    ~TrackingPause();
    TrackingPause(const TrackingPause&) = delete;
    TrackingPause& operator=(const TrackingPause&) = delete;
};
