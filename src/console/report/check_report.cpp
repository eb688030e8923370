#include "console/report/check_report.h"

#include "console/report/verdict.h"
#include "console/text/json_text.h"

namespace console
{

namespace
{

/// Members `alignment` and `section` for each, and the names where they count.
Json sectionsJson(const std::vector<CheckedSection>& sections, bool names)
{
    Json json = Json::array();
    for (const CheckedSection& section : sections)
    {
        json.push_back({{"alignment", section.alignment}, {"section", section.section}});
        if (names)
            json.back()["names"] = section.names;
    }
    return json;
}

Json featuresJson(const FilesByName& names, const std::map<std::u16string, CheckedFile>& files)
{
    Json json = Json::array();
    for (const auto& [name, counts] : names)
        for (const auto& [file, count] : counts)
        {
            Json entry{{"name", toUtf8(name)}, {"count", count}, {"file", toUtf8(file)}};
            if (const auto checked = files.find(file); checked != files.end())
            {
                entry["found"] = checked->second.found;
                entry["reason"] = checked->second.reason;
                entry["inDrawing"] = checked->second.inDrawing;
            }
            json.push_back(std::move(entry));
        }
    return json;
}

Json lostJson(const std::vector<LostText>& texts)
{
    Json json = Json::array();
    for (const auto& [text, lost] : texts)
    {
        Json characters = Json::array();
        for (const auto& [character, code] : lost)
            characters.push_back({{"character", character}, {"code", code}});
        json.push_back({{"text", text}, {"characters", std::move(characters)}});
    }
    return json;
}

Json placeJson(const SectionName& place)
{
    return {{"alignment", place.alignment}, {"section", place.section}};
}

Json countedJson(const CountedName& each)
{
    return {{"list", kFeatureKinds[each.kind].key}, {"name", toUtf8(each.name)}, {"count", each.count}};
}

Json lostFileJson(const LostFile& file)
{
    return {{"path", file.path},
            {"missing", file.missing},
            {"names", listJson(file.names, countedJson)},
            {"sections", listJson(file.sections, placeJson)}};
}

/// A member with a place, and more members.
Json withPlace(const SectionName& place, const Json& members)
{
    Json json = placeJson(place);
    json.update(members);
    return json;
}

void addFindings(Json& json, const CheckReport& report)
{
    const SectionFindings& sections = report.sections;
    json["lostFiles"] = listJson(report.lostFiles(), lostFileJson);
    json["duplicateAlignments"] = report.duplicateAlignments;
    json["lockedAlignments"] = report.lockedAlignments;
    json["raisedSections"] =
        listJson(sections.raised,
                 [](const RaisedSection& each) {
                     return withPlace(each.place, {{"heightA", each.heightA}, {"heightB", each.heightB}});
                 });
    json["wrongSides"] = listJson(
        sections.wrongSides,
        [](const PointOnWrongSide& each) {
            return withPlace(each.place, {{"code", each.code}, {"offset", each.offset}, {"distance", each.distance}});
        });
    json["coinciding"] = listJson(
        sections.coinciding,
        [](const CoincidingRows& each) {
            return withPlace(each.place, {{"name", each.name}, {"offset", each.offset}, {"count", each.count}});
        });
    json["badLayers"] = listJson(report.badLayers,
                                 [](const BadLayer& each) {
                                     return Json{{"option", each.option}, {"layer", each.layer}};
                                 });
    json["wideRotations"] = listJson(
        report.wideRotations,
        [](const WideRotation& each) {
            return Json{{"list", kFeatureKinds[each.kind].key}, {"name", each.name}, {"rotation", each.rotation}};
        });
}

} // namespace

std::vector<LostText> CheckReport::lostTexts() const
{
    std::set<std::u16string> texts;
    for (const auto& kind : features.texts)
        texts.insert(kind.begin(), kind.end());
    std::vector<LostText> found;
    for (const std::u16string& text : texts)
        if (std::vector<LostCharacter> lost = lostCharacters(text); !lost.empty())
            found.push_back({toUtf8(text), std::move(lost)});
    return found;
}

std::vector<UnreadableSymbol> CheckReport::unreadable() const
{
    std::vector<UnreadableSymbol> unreadable;
    for (const auto& [path, file] : files)
        if (!file.reason.empty())
            unreadable.push_back({toUtf8(path), file.reason});
    return unreadable;
}

std::vector<LostFile> CheckReport::lostFiles() const
{
    std::vector<LostFile> lost;
    for (const auto& [path, file] : files)
    {
        if (file.reason.empty() || file.inDrawing)
            continue;
        LostFile entry{toUtf8(path), file.found.empty(), {}, {}};
        for (size_t kind = 0; kind < kFeatureKindCount; ++kind)
            for (const auto& [name, counts] : needed.kinds[kind])
                if (const auto used = counts.find(path); used != counts.end())
                    entry.names.push_back({static_cast<FeatureKind>(kind), name, used->second});
        if (const auto places = sections.sectionsOfFile.find(path); places != sections.sectionsOfFile.end())
            entry.sections = places->second;
        if (!entry.names.empty())
            lost.push_back(std::move(entry));
    }
    return lost;
}

Json CheckReport::json() const
{
    Json json{{"drawing", drawing}};
    json.update(verdictOf(*this).json());
    if (!library.empty())
        json["library"] = library;
    if (!table.empty())
        json["table"] = table;
    json["alignments"] = Json::array();
    for (const auto& [name, count] : alignments)
        json["alignments"].push_back({{"name", name}, {"sections", count}});
    for (size_t kind = 0; kind < kFeatureKindCount; ++kind)
        json[kFeatureKinds[kind].key] = featuresJson(features.kinds[kind], files);
    json["unreadable"] = unreadableJson(unreadable());
    json["withoutRow"] = listJson(withoutRow, countedJson);
    json["keptSymbols"] = keptSymbolsJson(keptSymbols);
    json["unusedRows"] = Json::array();
    for (const auto& [kind, key, file] : unusedRows)
        json["unusedRows"].push_back(
            {{"list", kFeatureKinds[kind].key}, {"name", toUtf8(key)}, {"file", toUtf8(file)}});
    json["unusedFiles"] = unusedFiles;
    json["withoutGroundLine"] = sectionsJson(withoutGroundLine, false);
    json["withoutGround"] = sectionsJson(withoutGround, true);
    addFindings(json, *this);
    json["lostTexts"] = lostJson(lostTexts());
    json["notes"] = notes;
    return json;
}

} // namespace console
