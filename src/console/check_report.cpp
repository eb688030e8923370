#include "console/check_report.h"

#include "console/shown_text.h"

#include <array>

namespace console
{

namespace
{

struct KindNames
{
    const char* key;   ///< in the JSON
    const char* title; ///< for a person
};

constexpr std::array<KindNames, kFeatureKindCount> kKinds{{{"names", "Names of features on the sections"},
                                                           {"codes", "Codes of points on the sections"},
                                                           {"planCodes", "Codes of the sections' points on the plan"},
                                                           {"tableCodes", "Codes of all points of the plan"}}};

/// A text with characters that have no 8-bit form.
struct LostText
{
    std::string text;
    std::vector<LostCharacter> characters;
};

std::vector<LostText> lostTexts(const FeatureCounts& features)
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

Json lostJson(const FeatureCounts& features)
{
    Json json = Json::array();
    for (const auto& [text, lost] : lostTexts(features))
    {
        Json characters = Json::array();
        for (const auto& [character, code] : lost)
            characters.push_back({{"character", character}, {"code", code}});
        json.push_back({{"text", text}, {"characters", std::move(characters)}});
    }
    return json;
}

std::string fileText(const std::u16string& file, const std::map<std::u16string, CheckedFile>& files)
{
    const auto checked = files.find(file);
    if (checked == files.end())
        return "no symbol file";
    const auto& [found, reason, inDrawing] = checked->second;
    std::string text = toUtf8(file) + (found.empty() ? ": not found" : " -> " + found);
    if (!found.empty() && !reason.empty())
        text += ": cannot be read";
    return text + (inDrawing ? "; the drawing has its block" : "");
}

std::string featuresText(const CheckReport& report)
{
    std::string text;
    for (size_t kind = 0; kind < kFeatureKindCount; ++kind)
    {
        const FilesByName& names = report.features.kinds[kind];
        text += names.empty() ? "" : std::string{kKinds[kind].title} + ":\n";
        for (const auto& [name, counts] : names)
            for (const auto& [file, count] : counts)
                text += shownLine("  " + toUtf8(name) + " (" + std::to_string(count) +
                                  "): " + fileText(file, report.files));
    }
    return text;
}

/// `title`, and a line for each element; nothing for an empty list.
template <class List, class LineOf>
std::string listText(const char* title, const List& list, LineOf lineOf)
{
    std::string text = list.empty() ? "" : std::string{title} + ":\n";
    for (const auto& element : list)
        text += shownLine("  " + lineOf(element));
    return text;
}

} // namespace

std::vector<UnreadableSymbol> CheckReport::unreadable() const
{
    std::vector<UnreadableSymbol> unreadable;
    for (const auto& [path, file] : files)
        if (!file.reason.empty())
            unreadable.push_back({toUtf8(path), file.reason});
    return unreadable;
}

Json CheckReport::json() const
{
    Json json{{"drawing", drawing}};
    if (!library.empty())
        json["library"] = library;
    if (!table.empty())
        json["table"] = table;
    json["alignments"] = Json::array();
    for (const auto& [name, sections] : alignments)
        json["alignments"].push_back({{"name", name}, {"sections", sections}});
    for (size_t kind = 0; kind < kFeatureKindCount; ++kind)
        json[kKinds[kind].key] = featuresJson(features.kinds[kind], files);
    json["unreadable"] = unreadableJson(unreadable());
    json["withoutRow"] = Json::array();
    for (const auto& [kind, name, count] : withoutRow)
        json["withoutRow"].push_back({{"list", kKinds[kind].key}, {"name", toUtf8(name)}, {"count", count}});
    json["keptSymbols"] = keptSymbolsJson(keptSymbols);
    json["unusedRows"] = Json::array();
    for (const auto& [kind, key, file] : unusedRows)
        json["unusedRows"].push_back({{"list", kKinds[kind].key}, {"name", toUtf8(key)}, {"file", toUtf8(file)}});
    json["unusedFiles"] = unusedFiles;
    json["withoutGroundLine"] = sectionsJson(withoutGroundLine, false);
    json["withoutGround"] = sectionsJson(withoutGround, true);
    json["lostTexts"] = lostJson(features);
    json["notes"] = notes;
    return json;
}

std::string CheckReport::text() const
{
    std::string text = shownLine(drawing + (library.empty() ? "" : ", library " + library) +
                                 (table.empty() ? "" : ", table " + table));
    text += listText("Alignments", alignments,
                     [](const auto& each) { return each.first + ": " + std::to_string(each.second) + " sections"; });
    text += featuresText(*this);
    text += listText("Symbol files that are missing or cannot be read", unreadable(),
                     [](const UnreadableSymbol& each) { return each.path + ": " + each.reason; });
    text += listText("Without a row", withoutRow,
                     [](const NameWithoutRow& each)
                     { return toUtf8(each.name) + " (" + std::to_string(each.count) + "), " + titleOf(each.kind); });
    text += listText("Rows that nothing uses", unusedRows,
                     [](const FileRow& each)
                     { return toUtf8(each.key) + ", " + titleOf(each.kind) + ", " + toUtf8(each.file); });
    text += listText("Symbol files that no row uses", unusedFiles, [](const std::string& each) { return each; });
    text += listText("Sections without a ground line", withoutGroundLine,
                     [](const CheckedSection& each) { return each.alignment + " " + each.section; });
    text += listText("No ground under", withoutGround,
                     [](const CheckedSection& each)
                     { return each.alignment + " " + each.section + ": " + joined(each.names); });
    text += listText("Texts with characters that have no 8-bit form", lostTexts(features),
                     [](const LostText& each) { return each.text + ": " + namesOf(each.characters); });
    return text + keptSymbolsText(keptSymbols) + notesText(notes);
}

} // namespace console
