#include "survey/read/landxml/parts.h"

#include "store/text/text.h"
#include "survey/read/codes.h"
#include "survey/read/second_point.h"

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

/// Whether a point is to be added: not when it repeats one of its name.
bool isWanted(Context& context, const pugi::xml_node& node, std::string_view name, const AcGePoint3d& position)
{
    if (name.empty())
        return true;
    const auto [found, isNew] = context.pointsByName().try_emplace(name, context.survey().points.size());
    return isNew ||
           keepsSecond(context.findings(), context.lineOf(node), context.survey().points[found->second], position);
}

void addPoint(Context& context, const pugi::xml_node& node, const std::vector<std::u16string>& groupCodes)
{
    const std::string_view name = attributeOf(node, "name");
    const auto place = context.coordinatesOf(node, "a CgPoint");
    if (!place || !isWanted(context, node, name, place->point))
        return;
    Point& point = context.survey().points.emplace_back();
    point.name = toUtf16(name);
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

bool isReference(const pugi::xml_node& node)
{
    return !node.attribute("pntRef").empty();
}

using Taker = void (*)(Context&, const pugi::xml_node&, const std::vector<std::u16string>&);

/// Gives `take` each point that is a reference, or each that is none, with the codes of its group.
void walk(Context& context, const pugi::xml_node& group, const std::vector<std::u16string>& outerCodes, bool references,
          Taker take, int depth)
{
    std::vector<std::u16string> codes = splitCodes(toUtf16(attributeOf(group, "code")));
    if (codes.empty())
        codes = outerCodes;
    for (const pugi::xml_node& node : group)
        if (isNamed(node, "CgPoint"))
        {
            if (isReference(node) == references)
                take(context, node, codes);
        }
        else if (isNamed(node, "CgPoints"))
        {
            if (depth < kDeepest)
                walk(context, node, codes, references, take, depth + 1);
            else if (!references)
                context.unusable(node, "groups of points stand too deep in one another");
        }
}

} // namespace

void readPoints(Context& context, const pugi::xml_node& cgPoints)
{
    walk(context, cgPoints, {}, false, addPoint, 0);
}

void readPointGroups(Context& context, const pugi::xml_node& cgPoints)
{
    walk(context, cgPoints, {}, true, addToGroup, 0);
}

} // namespace survey::landxml
