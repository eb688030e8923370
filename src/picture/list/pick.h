#pragma once

#include "picture/list/drawing_lists.h"

#include <functional>
#include <optional>

namespace picture
{

/// The topmost item of a list that draws something within `reach` (drawing units) of a place: a line near it, an area
/// around it. `isSought` says which items count. Layers that are off or frozen have nothing to be found.
std::optional<uint32_t> pickItem(DrawingLists& lists, DisplayList& list, const Vertex& at, double reach,
                                 const std::function<bool(uint32_t item)>& isSought);

} // namespace picture
