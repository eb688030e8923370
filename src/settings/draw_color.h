#pragma once

#include <string_view>

/// The palette colour that the settings keep for the name in a colour cell: "ByLayer" is the colour of the drawing's
/// current layer at this moment; "ByBlock", that layer when it cannot be opened, and a name of no colour are 7.
int DrawColorOf(std::u16string_view name);
