#pragma once

#include "kernel/curve/curve_path.h"

#include <optional>
#include <string_view>
#include <vector>

struct ObjectRecord;

/// What entities draw, read straight from their pairs, in world coordinates; no object is opened. Texts and kinds
/// without curves give none. Blocks that contain each other do no harm: a block inside itself, nested too deep or
/// multiplied beyond a million curves ends there. A number that cannot be read is a DamagedValue; inside a block what
/// holds one draws nothing, and is noted.

/// Curves of an entity of `kind` (its name in drawing files) that stands alone: no block reference, no polyline with
/// vertices of its own.
std::vector<CurvePath> curvesOfPairs(std::string_view kind, std::string_view pairs);

/// Curves of any entity, contents of block references placed.
std::vector<CurvePath> curvesOfEntity(ObjectRecord& record);

/// Shape of a lightweight polyline; false when the number of vertices is not the one it declares.
bool readLightweightPolyline(std::string_view pairs, CurvePath& shape);

/// Shape of a polyline whose vertices follow it as records of their own; empty for meshes. Fitted ones give the points
/// of the fitted curve.
CurvePath readVertexPolyline(ObjectRecord& polyline);

/// Where an entity without curves stands: its first point (10), from its own plane into the world.
std::optional<AcGePoint3d> readInsertionPoint(std::string_view pairs);
