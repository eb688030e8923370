#include "console/report/report.h"

#include "console/text/shown_text.h"

namespace console
{

namespace
{

std::string sectionText(const SectionReport& section, bool drawn)
{
    std::string text = "  " + section.name + ": ";
    if (section.erased > 0 || !drawn)
        text += std::to_string(section.erased) + " erased" + (drawn ? ", " : "");
    if (drawn)
        text += std::to_string(section.blocks) + " symbols, " + std::to_string(section.labels) + " labels";
    if (!section.withoutGround.empty())
        text += "; no ground under " + joined(section.withoutGround);
    return shownLine(text);
}

Json countsJson(const std::map<std::string, size_t>& counts)
{
    Json json = Json::array();
    for (const auto& [name, count] : counts)
        json.push_back({{"name", name}, {"count", count}});
    return json;
}

/// Points with two symbols: two at one place look like one, until one of them is erased.
std::string placedTwiceText(const std::map<std::string, size_t>& twice)
{
    size_t points = 0;
    std::vector<std::string> codes;
    for (const auto& [code, count] : twice)
    {
        points += count;
        codes.push_back(code + " (" + std::to_string(count) + ")");
    }
    return points == 0 ? ""
                       : shownLine("Note: " + std::to_string(points) +
                                   " points had a symbol of draw already and have two now: " + joined(codes));
}

} // namespace

Json Report::json() const
{
    Json json{{"drawing", drawing}, {"output", output}};
    if (alignment)
    {
        json["alignment"] = *alignment;
        json["sections"] = Json::array();
        for (const SectionReport& section : sections)
            json["sections"].push_back({{"name", section.name},
                                        {"erased", section.erased},
                                        {"blocks", section.blocks},
                                        {"labels", section.labels},
                                        {"entities", section.entities},
                                        {"withoutGround", section.withoutGround}});
    }
    if (placed)
        json["placed"] = *placed;
    json["erased"] = erased;
    if (plan)
    {
        json["keptSymbols"] = keptSymbolsJson(plan->keptSymbols);
        json["placedTwice"] = countsJson(plan->placedTwice);
    }
    json["withoutSymbol"] = countsJson(withoutSymbol);
    json["unreadable"] = unreadableJson(unreadable);
    json["notes"] = notes;
    return json;
}

std::string Report::text() const
{
    std::string text = shownLine(drawing + " -> " + output + (alignment ? ", alignment " + *alignment : std::string{}));
    for (const SectionReport& section : sections)
        text += sectionText(section, placed.has_value());
    text += "In all: " + (placed ? std::to_string(*placed) + " placed, " : std::string{}) + std::to_string(erased) +
            " erased\n";
    if (!withoutSymbol.empty())
        text += "Without a symbol file:\n";
    for (const auto& [name, count] : withoutSymbol)
        text += shownLine("  " + name + " (" + std::to_string(count) + ")");
    if (!unreadable.empty())
        text += "Symbol files that could not be read:\n";
    for (const auto& [path, reason] : unreadable)
        text += shownLine("  " + path + ": " + reason);
    if (plan)
        text += keptSymbolsText(plan->keptSymbols) + placedTwiceText(plan->placedTwice);
    return text + notesText(notes);
}

Json keptSymbolsJson(const std::vector<KeptSymbol>& kept)
{
    Json json = Json::array();
    for (const auto& [code, file, count] : kept)
        json.push_back({{"name", code}, {"count", count}, {"file", file}});
    return json;
}

std::string keptSymbolsText(const std::vector<KeptSymbol>& kept)
{
    std::vector<std::string> codes;
    codes.reserve(kept.size());
    for (const auto& [code, file, count] : kept)
        codes.push_back(code + " (" + std::to_string(count) + ", " + file + ")");
    return codes.empty() ? ""
                         : shownLine("Note: codes outside the table that still have the symbols of an earlier run: " +
                                     joined(codes));
}

Json unreadableJson(const std::vector<UnreadableSymbol>& unreadable)
{
    Json json = Json::array();
    for (const auto& [path, reason] : unreadable)
        json.push_back({{"path", path}, {"reason", reason}});
    return json;
}

std::string notesText(const std::vector<std::string>& notes)
{
    std::string text;
    for (const std::string& note : notes)
        text += shownLine("Note: " + note);
    return text;
}

std::string joined(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

} // namespace console
