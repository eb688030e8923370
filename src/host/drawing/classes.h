#pragma once

#include "host/drawing/object.h"

#include <memory>
#include <string_view>

/// The class of objects with a DXF name; plain `AcDbEntity` or `AcDbObject` for a name the host has no class for.
/// POLYLINE and VERTEX answer their base: which of the kinds one is stands in its flags (`classOfPolyline`).
const AcRxClass* classOfDxfName(std::string_view dxfName, bool isEntity);

/// The class of a POLYLINE or VERTEX: in space by a flag or class marker of its own, a polyline also by those of its
/// first vertex, a vertex by its polyline.
const AcRxClass* classOfPolyline(const ObjectRecord& polyline);
const AcRxClass* classOfVertex(const ObjectRecord& vertex, const ObjectRecord& polyline);

/// A fresh object of exactly that class.
std::unique_ptr<AcDbObject> makeObject(const AcRxClass* kind);
