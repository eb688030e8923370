#pragma once

#include "host/drawing/object.h"

#include <memory>
#include <string_view>

/// The class of objects with a DXF name; plain `AcDbEntity` or `AcDbObject` for a name the host has no class for.
/// POLYLINE and VERTEX answer their base: which of the kinds one is stands in its flags (`classOfPolyline`).
const AcRxClass* classOfDxfName(std::string_view dxfName, bool isEntity);

/// The class of a POLYLINE or VERTEX by its own pairs.
const AcRxClass* classOfPolyline(std::string_view pairs);
const AcRxClass* classOfVertex(std::string_view pairs);

/// A fresh object of exactly that class.
std::unique_ptr<AcDbObject> makeObject(const AcRxClass* kind);
