#include "survey/read/landxml/read_landxml.h"

#include "survey/read/landxml/parts.h"
#include "survey/read/utf8_text.h"

#include <algorithm>
#include <array>
#include <map>

namespace survey
{

namespace
{

using Part = void (*)(landxml::Context&, const pugi::xml_node&);

/// In the order in which they need one another.
constexpr std::array<std::pair<std::string_view, Part>, 4> kParts{{{"CgPoints", landxml::readPoints},
                                                                   {"Alignments", landxml::readAlignments},
                                                                   {"Surfaces", landxml::readSurfaces},
                                                                   {"PlanFeatures", landxml::readPlanFeatures}}};

/// Parts that say something of the file, not of the terrain.
constexpr std::array<std::string_view, 6> kHeads{"Units",       "CoordinateSystem",  "Project",
                                                 "Application", "FeatureDictionary", "Amendment"};

template <class List, class Project>
bool isAmong(const List& list, std::string_view name, Project project)
{
    return std::any_of(list.begin(), list.end(), [&](const auto& each) { return project(each) == name; });
}

/// Parts that are not read are told by name, once each.
void noteOthers(landxml::Context& context, const pugi::xml_node& root)
{
    std::map<std::string_view, pugi::xml_node> others;
    for (const pugi::xml_node& part : root)
    {
        const std::string_view name = localName(part.name());
        if (part.type() == pugi::node_element && !isAmong(kHeads, name, [](auto each) { return each; }) &&
            !isAmong(kParts, name, [](const auto& each) { return each.first; }))
            others.emplace(name, part);
    }
    for (const auto& [name, part] : others)
        context.note(part, std::string{name} + " is not read");
}

void readParts(landxml::Context& context, const pugi::xml_node& root)
{
    for (const auto& [name, read] : kParts)
    {
        for (const pugi::xml_node& part : root)
            if (isNamed(part, name))
                read(context, part);
        if (read == landxml::readPoints)
            context.endOfPoints();
    }
    noteOthers(context, root);
}

void readDocument(Survey& survey, uint32_t file, const XmlDocument& xml, const ReadOptions& options)
{
    FindingList findings{survey, file};
    if (!xml.error().empty())
        findings.unusable(xml.errorLine(), xml.error());
    if (xml.entityLine() != 0)
        findings.unusable(xml.entityLine(), "declares entities of its own, which are not expanded");
    const pugi::xml_node root = xml.root();
    if (!root)
        return;
    if (!isNamed(root, "LandXML"))
    {
        findings.unusable(xml.lineOf(root), "is XML but not LandXML: its element is " + quoted(root.name()));
        return;
    }
    survey.files[file].format = "LandXML " + std::string{attributeOf(root, "version")};
    landxml::Context context{survey, file, xml};
    const pugi::xml_node units = childOf(root, "Units");
    context.setUnits(units ? units : root, options.unit.value_or(kMetre));
    context.setSwapped(options.swapped.contains(survey.files[file].path));
    readParts(context, root);
}

} // namespace

void readLandXml(Survey& survey, uint32_t file, disk::OwnBytes bytes, const ReadOptions& options)
{
    survey.files[file].format = "LandXML";
    const std::string declared = declaredEncoding(bytes.view());
    Utf8Text text =
        utf8Of(std::move(bytes), survey.files[file].path, options.encoding.empty() ? declared : options.encoding);
    survey.files[file].encoding = text.encoding;
    survey.files[file].isGuessedEncoding = text.isGuessed;
    readDocument(survey, file, XmlDocument{std::move(text.text)}, options);
}

} // namespace survey
