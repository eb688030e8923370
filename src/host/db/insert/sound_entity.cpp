#include "host/db/insert/sound_entity.h"

#include "host/db/curve/curve_readers.h"
#include "host/db/insert/subclass_markers.h"
#include "store/group_codes.h"
#include "store/pair_edit.h"
#include "store/point_order.h"
#include "store/tags.h"

#include <algorithm>

namespace
{

bool isHexadecimal(std::string_view digits)
{
    return digits.size() % 2 == 0 && digits.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

std::string whyOutsideFormat(const Tag& tag)
{
    const std::string code = std::to_string(tag.code);
    switch (dxf::kindOf(tag.code))
    {
    case dxf::ValueKind::None:
        return "group code " + code + " is not part of the format";
    case dxf::ValueKind::Chunk:
        return isHexadecimal(tag.word()) ? std::string{} : "group code " + code + " does not hold hexadecimal digits";
    default:
        return {};
    }
}

/// Of the points, in the order of `inPointOrder`.
std::string whyIncomplete(const std::vector<Tag>& tags)
{
    for (size_t i = 0; i < tags.size(); ++i)
    {
        const int y = tags[i].code + dxf::kToSecondCoordinate;
        if (dxf::isFirstCoordinate(tags[i].code) && (i + 1 == tags.size() || tags[i + 1].code != y))
            return "a point (group code " + std::to_string(tags[i].code) + ") has no second coordinate";
    }
    return {};
}

/// Of the class markers: each once, and what only a class of its own has behind that, not among what all entities have.
std::string whyMisplaced(std::string_view kind, const std::vector<Tag>& tags)
{
    const auto isMarker = [](const Tag& tag) { return tag.code == dxf::kClassMarker; };
    const auto isOfClass = [](int code) { return code == 2 || (code >= 10 && code <= 39); };
    bool common = std::any_of(tags.begin(), tags.end(), isMarker);
    std::vector<std::string_view> seen;
    for (const Tag& tag : tags)
    {
        if (common && isOfClass(tag.code))
            return "group code " + std::to_string(tag.code) + " stands in front of its class marker";
        if (!isMarker(tag))
            continue;
        common = tag.word() == "AcDbEntity";
        if (kind != "TEXT" && std::find(seen.begin(), seen.end(), tag.word()) != seen.end())
            return "its class marker " + std::string{tag.word()} + " (group code 100) stands twice";
        seen.push_back(tag.word());
    }
    return {};
}

/// Of all pairs. Extended data is kept in its order: each coordinate must stand behind the one before.
std::string whyUnreadable(std::string_view pairs)
{
    TagReader reader{pairs};
    bool inside = false;
    int expected = 0;
    for (Tag tag; reader.next(tag);)
    {
        if (tag.code == dxf::kComment)
            continue;
        if (std::string why = whyOutsideFormat(tag); !why.empty())
            return why;
        inside = inside || tag.code == dxf::kXApplication;
        if (!inside && tag.code >= dxf::kXString)
            return "extended data (group code " + std::to_string(tag.code) + ") of no application";
        if (expected != 0 && tag.code != expected)
            return "a point of its extended data has no second coordinate";
        expected = inside && dxf::isFirstCoordinate(tag.code) ? tag.code + dxf::kToSecondCoordinate : 0;
    }
    return expected == 0 ? std::string{} : "a point of its extended data has no second coordinate";
}

} // namespace

std::string whyUnsound(std::string_view kind, std::string_view pairs, int version)
{
    if (std::string why = whyUnreadable(pairs); !why.empty())
        return why;
    const std::vector<Tag> own = kind == "HATCH" ? ownTags(pairs) : inPointOrder(pairs);
    if (std::string why = whyIncomplete(own); !why.empty())
        return why;
    if (const std::string_view marker = missingMarker(kind, own, version); !marker.empty())
        return "its class marker " + std::string{marker} + " (group code 100) is missing";
    if (std::string why = whyMisplaced(kind, own); !why.empty())
        return why;
    const auto isLoopCount = [](const Tag& tag) { return tag.code == 91; };
    const bool isWhole = kind != "HATCH" || (std::any_of(own.begin(), own.end(), isLoopCount) && isWholeHatch(pairs));
    return isWhole ? std::string{} : "loops or edges of its boundary are missing";
}
