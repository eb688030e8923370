#include "store/point_order.h"

#include "store/group_codes.h"
#include "store/pair_edit.h"

#include <algorithm>

namespace
{

constexpr int kToThird = 2 * dxf::kToSecondCoordinate;

/// Moves the coordinate `code` of the point with x at `point` to `place`; false when it has none.
bool bring(std::vector<Tag>& tags, size_t point, int code, size_t place)
{
    const int x = tags[point].code;
    size_t at = place;
    while (at < tags.size() && tags[at].code != code && tags[at].code != x)
        ++at;
    if (at == tags.size() || tags[at].code != code)
        return false;
    const auto begin = tags.begin();
    std::rotate(begin + static_cast<ptrdiff_t>(place), begin + static_cast<ptrdiff_t>(at),
                begin + static_cast<ptrdiff_t>(at) + 1);
    return true;
}

} // namespace

std::vector<Tag> ownTags(std::string_view pairs)
{
    std::vector<Tag> tags;
    OwnPairs own{pairs};
    for (Tag tag; own.next(tag);)
        if (tag.code != dxf::kComment)
            tags.push_back(tag);
    return tags;
}

std::vector<Tag> inPointOrder(std::string_view pairs)
{
    std::vector<Tag> tags = ownTags(pairs);
    for (size_t i = 0; i < tags.size(); ++i)
        if (dxf::isFirstCoordinate(tags[i].code) && bring(tags, i, tags[i].code + dxf::kToSecondCoordinate, i + 1))
            bring(tags, i, tags[i].code + kToThird, i + 2);
    return tags;
}
