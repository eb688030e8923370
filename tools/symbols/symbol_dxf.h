#pragma once

#include "tools/symbols/symbol_text.h"

#include <string>

namespace symbols
{

/// The symbol as the text of a complete DXF drawing (AC1015): its base point is the insertion base 0,0,0, everything
/// lies on layer 0 and takes the colour of the block it becomes. The same symbol always gives the same bytes.
std::string SymbolDrawing(const Symbol& symbol);

} // namespace symbols
