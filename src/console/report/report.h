#pragma once

#include "console/text/json_text.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace console
{

/// What one section got.
struct SectionReport
{
    std::string name;
    size_t erased = 0;
    size_t blocks = 0;
    size_t labels = 0;
    size_t entities = 0;
    std::vector<std::string> withoutGround; ///< features and codes under which no ground was found
};

/// A symbol drawing that could not be read or found, and why.
struct UnreadableSymbol
{
    std::string path; ///< as the row has it
    std::string reason;
};

/// A code that has a symbol though the table given has no row for it.
struct KeptSymbol
{
    std::string code;
    std::string file;
    size_t count = 0; ///< of its points
};

/// What only `plan` tells.
struct PlanReport
{
    std::vector<KeptSymbol> keptSymbols;
    std::map<std::string, size_t> placedTwice; ///< points that have a symbol of `draw` as well, by code
};

/// What `draw`, `erase` and `plan` did, for a person or as JSON.
struct Report
{
    std::string drawing;
    std::string output;
    std::optional<std::string> alignment; ///< `plan` has none, and no sections
    std::vector<SectionReport> sections;
    std::optional<size_t> placed; ///< `erase` has none
    size_t erased = 0;
    std::optional<PlanReport> plan;
    std::map<std::string, size_t> withoutSymbol;
    std::vector<UnreadableSymbol> unreadable;
    std::vector<std::string> notes;

    Json json() const;
    std::string text() const;
};

/// The parts of reports that are the same in each of them.
Json unreadableJson(const std::vector<UnreadableSymbol>& unreadable);
Json keptSymbolsJson(const std::vector<KeptSymbol>& kept);
std::string keptSymbolsText(const std::vector<KeptSymbol>& kept);
std::string notesText(const std::vector<std::string>& notes);
/// The names with a comma between them.
std::string joined(const std::vector<std::string>& names);

} // namespace console
