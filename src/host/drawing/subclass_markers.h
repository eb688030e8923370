#pragma once

#include "host/drawing/foreign_pairs.h"

/// The class markers (100) that entities have had since R13: puts the pairs of an older entity of `kind` in their
/// order, each part behind its marker.
void writeWithMarkers(TagWriter& out, std::string_view kind, const std::vector<CarriedPair>& pairs);
