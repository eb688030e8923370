#pragma once

#include "console/findings/feature_counts.h"
#include "console/findings/row_file.h"
#include "console/findings/section_findings.h"
#include "console/report/report.h"
#include "console/text/lost_text.h"

#include <array>
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

/// A name or code of the drawing, and how many rows it has.
struct CountedName
{
    FeatureKind kind;
    std::u16string name;
    size_t count;
};

/// A symbol file that is nowhere or cannot be used, and what is not drawn for that.
struct LostFile
{
    std::string path; ///< as the rows have it
    bool missing;
    std::vector<CountedName> names;
    std::vector<SectionName> sections;
};

/// A layer of the settings that the drawing lacks and that no drawing can have.
struct BadLayer
{
    std::string option; ///< what it is for: "nameLabels", "codeLabels", "symbols" or "codeSymbols"
    std::string layer;
};

/// A section, and what is the matter with it.
struct CheckedSection
{
    std::string alignment;
    std::string section;
    std::vector<std::string> names; ///< under which there is no ground; unused for one without a ground line
};

/// A text with characters that have no 8-bit form.
struct LostText
{
    std::string text;
    std::vector<LostCharacter> characters;
};

/// How a kind is called.
struct KindNames
{
    const char* key;   ///< in the JSON
    const char* title; ///< for a person
};

inline constexpr std::array<KindNames, kFeatureKindCount> kFeatureKinds{
    {{"names", "Names of features on the sections"},
     {"codes", "Codes of points on the sections"},
     {"planCodes", "Codes of the sections' points on the plan"},
     {"tableCodes", "Codes of all points of the plan"}}};

/// What `check` found, for a person or as JSON.
struct CheckReport
{
    std::string drawing;
    std::string library; ///< empty: none was given
    std::string table;
    std::vector<std::pair<std::string, size_t>> alignments; ///< name and number of sections
    std::vector<std::string> duplicateAlignments;           ///< names that an earlier alignment has
    std::vector<std::string> lockedAlignments;
    std::string layout; ///< that the drawing was saved on; empty for model space
    FeatureCounts features;
    FeatureCounts needed; ///< those of them whose symbols the settings have drawn
    SectionFindings sections;
    std::vector<WideRotation> wideRotations;
    std::vector<BadLayer> badLayers;
    std::map<std::u16string, CheckedFile> files; ///< by the path that rows have
    std::vector<CountedName> withoutRow;
    std::vector<KeptSymbol> keptSymbols; ///< of the plan's table
    std::vector<FileRow> unusedRows;
    std::vector<std::string> unusedFiles;
    std::vector<CheckedSection> withoutGroundLine;
    std::vector<CheckedSection> withoutGround;
    std::vector<std::string> notes;

    /// The names and codes with characters that have no 8-bit form.
    std::vector<LostText> lostTexts() const;
    /// The symbol files that are nowhere or cannot be read.
    std::vector<UnreadableSymbol> unreadable() const;
    /// Those of them that drawing would need: the drawing has no block of their name.
    std::vector<LostFile> lostFiles() const;
    Json json() const;
    /// The verdict, then the lists, most important first; those of more than ten lines are cut there unless `all`.
    std::string text(bool all) const;
};

} // namespace console
