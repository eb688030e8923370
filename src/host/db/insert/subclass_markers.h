#pragma once

#include "host/db/insert/foreign_pairs.h"

/// The first class marker (100) that an entity of `kind` must have, and has not, in a drawing of `version`; empty when
/// there is none, as in drawings older than R13, whose entities have no marker at all.
std::string_view missingMarker(std::string_view kind, const std::vector<Tag>& pairs, int version);

/// The class markers that entities have had since R13: puts the pairs of an older entity of `kind` in their
/// order, each part behind its marker.
void writeWithMarkers(TagWriter& out, std::string_view kind, const std::vector<CarriedPair>& pairs);
