#pragma once

#include "picture/list/drawing_lists.h"
#include "picture/list/hidden.h"

#include <optional>

namespace picture
{

/// The topmost item of a list that draws something within `reach` (drawing units) of a place: a line near it, an area
/// around it. What is hidden (may be null), off or frozen is not found.
std::optional<uint32_t> pickItem(const DrawingLists& lists, const DisplayList& list, const Vertex& at, double reach,
                                 const Hidden* hidden);

} // namespace picture
