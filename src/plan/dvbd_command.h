#pragma once

/// DVBD: puts the symbols of feature codes onto the plan, at the measured points of the current drawing, in place of
/// the block references on the layer "DiaVatBinhDo". The user chooses the symbols in a table; a cancelled table leaves
/// the plan without symbols. Silent: a symbol file that cannot be used ends the placing.
void DvbdCommand();
