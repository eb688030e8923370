#include "survey/read/section_order.h"

#include <algorithm>

namespace survey
{

void orderGround(GivenSection& section)
{
    const auto isLess = [](const SectionPoint& a, const SectionPoint& b) { return a.offset < b.offset; };
    for (std::vector<SectionPoint>& piece : section.ground)
    {
        if (piece.front().offset > piece.back().offset)
            std::reverse(piece.begin(), piece.end());
        std::stable_sort(piece.begin(), piece.end(), isLess);
    }
    std::stable_sort(section.ground.begin(), section.ground.end(),
                     [&](const auto& a, const auto& b) { return isLess(a.front(), b.front()); });
}

} // namespace survey
