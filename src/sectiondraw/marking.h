#pragma once

#include "host/db/object_id.h"

#include <string>

/// Marks an entity that was just placed as one that stands for the feature code `code`: extended data of the
/// application "PLX_GEOPOINT", for other modules. Nothing happens when the entity cannot be opened or changed. The
/// caller holds the document lock.
void MarkGeoPoint(AcDbObjectId id, const std::u16string& code);
