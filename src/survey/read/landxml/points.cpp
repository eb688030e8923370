#include "survey/read/landxml/parts.h"

#include "store/text/text.h"
#include "survey/read/codes.h"

#include <algorithm>

namespace survey::landxml
{

namespace
{

/// Groups that stand deeper in one another than this are not read.
constexpr int kDeepest = 50;

std::vector<std::u16string> stemOf(std::string_view description)
{
    std::vector<std::u16string> words = splitWords(toUtf16(description));
    words.resize(std::min<size_t>(words.size(), 1));
    return words;
}

/// The codes of a point: its own, else the stem of its description, else those of its group.
std::vector<std::u16string> codesOf(const pugi::xml_node& node, const std::vector<std::u16string>& groupCodes)
{
    std::vector<std::u16string> codes = splitCodes(toUtf16(attributeOf(node, "code")));
    if (codes.empty())
        codes = stemOf(attributeOf(node, "desc"));
    return codes.empty() ? groupCodes : codes;
}

void addPoint(Context& context, const pugi::xml_node& node, const std::vector<std::u16string>& groupCodes)
{
    const auto place = context.coordinatesOf(node, "a CgPoint");
    if (!place)
        return;
    Point& point = context.survey().points.emplace_back();
    point.name = toUtf16(attributeOf(node, "name"));
    point.codes = codesOf(node, groupCodes);
    point.position = place->point;
    point.hasElevation = place->hasElevation;
    point.place = context.placeOf(node);
}

/// A point of a group that stands elsewhere gets the group's code where it has none.
void addToGroup(Context& context, const pugi::xml_node& node, const std::vector<std::u16string>& groupCodes)
{
    const std::string_view name = attributeOf(node, "pntRef");
    Point* const point = context.findPoint(name);
    if (point == nullptr)
        context.unusable(node, "a CgPoint refers to the point " + quoted(name) + ", which there is none of");
    else if (point->codes.empty())
        point->codes = codesOf(node, groupCodes);
}

/// The points of a group and the groups in it; `outerCodes` are those of the group around it.
void readGroup(Context& context, const pugi::xml_node& group, const std::vector<std::u16string>& outerCodes, int depth)
{
    std::vector<std::u16string> codes = splitCodes(toUtf16(attributeOf(group, "code")));
    if (codes.empty())
        codes = outerCodes;
    context.makeRoom(likelyChildren(group));
    for (const pugi::xml_node& node : group)
        if (isNamed(node, "CgPoint"))
        {
            if (node.attribute("pntRef").empty())
                addPoint(context, node, codes);
            else
                context.afterPoints([&context, node, codes] { addToGroup(context, node, codes); });
        }
        else if (isNamed(node, "CgPoints"))
        {
            if (depth < kDeepest)
                readGroup(context, node, codes, depth + 1);
            else
                context.unusable(node, "groups of points stand too deep in one another");
        }
}

} // namespace

void readPoints(Context& context, const pugi::xml_node& cgPoints)
{
    readGroup(context, cgPoints, {}, 0);
}

} // namespace survey::landxml
