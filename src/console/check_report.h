#pragma once

#include "console/feature_counts.h"
#include "console/lost_text.h"
#include "console/report.h"
#include "console/row_file.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace console
{

/// A symbol file as the disk has it.
struct CheckedFile
{
    std::string found;  ///< its real path; empty when it is nowhere
    std::string reason; ///< why it cannot be used; empty when it can
    bool inDrawing;     ///< the drawing has a block of its name, which is used in place of the file
};

/// A section, and what is the matter with it.
struct CheckedSection
{
    std::string alignment;
    std::string section;
    std::vector<std::string> names; ///< under which there is no ground; unused for one without a ground line
};

/// A name or code of the drawing that no row gives a symbol.
struct NameWithoutRow
{
    FeatureKind kind;
    std::u16string name;
    size_t count;
};

/// What `check` found, for a person or as JSON.
struct CheckReport
{
    std::string drawing;
    std::string library; ///< empty: none was given
    std::string table;
    std::vector<std::pair<std::string, size_t>> alignments; ///< name and number of sections
    FeatureCounts features;
    std::map<std::u16string, CheckedFile> files; ///< by the path that rows have
    std::vector<NameWithoutRow> withoutRow;
    std::vector<KeptSymbol> keptSymbols; ///< of the plan's table
    std::vector<FileRow> unusedRows;
    std::vector<std::string> unusedFiles;
    std::vector<CheckedSection> withoutGroundLine;
    std::vector<CheckedSection> withoutGround;
    std::vector<std::string> notes;

    /// The symbol files that are nowhere or cannot be read.
    std::vector<UnreadableSymbol> unreadable() const;
    Json json() const;
    std::string text() const;
};

} // namespace console
