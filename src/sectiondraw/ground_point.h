#pragma once

#include "host/geometry/point3d.h"

#include <optional>

struct CrossSectionXdata;

/// Whether the section's ground line can be read: a lightweight polyline that is not erased.
bool HasGroundLine(const CrossSectionXdata& section);

/// The ground at `offset` of a section, in drawing units: where the vertical from the section's datum upwards meets the
/// ground line first, in order along that line. Nothing when the ground lies below the datum, more than 1000 above it,
/// or cannot be read.
std::optional<AcGePoint3d> FindGroundPoint(const CrossSectionXdata& section, double offset);
