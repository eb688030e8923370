#pragma once

#include "store/drawing_store.h"

namespace files
{

/// An empty drawing as a reader would have found it: R2018, UTF-8, metres, model space and one sheet, the layer 0, the
/// linetypes that a drawing must have and dashed ones, and the text style "Standard".
DrawingStore newDrawing();

} // namespace files
