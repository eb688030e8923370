#pragma once

#include "host/db/database.h"
#include "kernel/extents.h"

#include <set>
#include <string>

namespace survey
{

/// What a drawing has before something is imported into it.

/// Around everything in model space; empty when there is nothing.
AcGeExtents contentExtents(AcDbDatabase& drawing);

/// What objects remember that were made for an alignment, or of what stood in a file: by its name without folders.
std::u16string alignmentOrigin(const std::u16string& name);
std::u16string fileOrigin(const std::string& path);

/// The alignment of a name; null when there is none.
AcDbObjectId findAlignment(AcDbDatabase& drawing, const std::u16string& name);

/// Erases an alignment with its ground lines and what was drawn on its sections. How many objects could not be erased.
size_t eraseAlignment(AcDbObjectId alignment);

/// Erases everything that an earlier import made and marked with one of the origins. How many objects could not be
/// erased.
size_t eraseImported(AcDbDatabase& drawing, const std::set<std::u16string>& origins);

} // namespace survey
