#pragma once

#include <cstdint>
#include <vector>

namespace picture
{

/// What of a list is not to be seen although the drawing shows it.
struct Hidden
{
    std::vector<bool> items;
    std::vector<bool> layers; ///< by their index in `Looks`

    bool hasItem(uint32_t item) const { return item < items.size() && items[item]; }
    bool hasLayer(uint32_t layer) const { return layer < layers.size() && layers[layer]; }
};

} // namespace picture
