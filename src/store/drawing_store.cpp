#include "store/drawing_store.h"

uint16_t DrawingStore::kindOf(std::string_view name)
{
    for (size_t i = 0; i < kinds.size(); ++i)
        if (kinds[i] == name)
            return static_cast<uint16_t>(i);
    kinds.emplace_back(name);
    return static_cast<uint16_t>(kinds.size() - 1);
}
