#pragma once

#include "store/object_id.h"

#include <QString>

#include <vector>

namespace desktop
{

/// A line of what is known about an entity.
struct Fact
{
    QString name;
    QString value;
    bool isHeading = false; ///< of a group; the lines behind it belong to it
};

/// What the user may want to know of an entity: kind, layer, handle, place, measures, feature code, extended data.
/// A damaged one tells what can be read. Empty for null and erased.
std::vector<Fact> factsOf(AcDbObjectId entity);

/// Of several: how many there are, of each kind and on each layer.
std::vector<Fact> factsOfAll(const std::vector<AcDbObjectId>& entities);

/// What the user calls a kind of entity; its name in drawing files for other kinds.
QString kindName(std::string_view dxfName);

} // namespace desktop
