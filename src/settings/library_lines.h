#pragma once

#include "dbkit/symbol_look.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The text of a feature library file (".dv") and of a drawing's stored settings: sections of row lines, each section
/// under a marker line of its own. Files and dialogs stand elsewhere. Nothing here fails: what cannot be understood is
/// passed over.

using TextLines = std::vector<std::u16string>;

/// The tables in the order in which a file holds them.
enum LibraryTable : size_t
{
    kSymbolTable,       ///< "[SYMBOL]"
    kSectionFcodeTable, ///< "[TN]"
    kPlanFcodeTable,    ///< "[BD]"
    kLibraryTableCount
};

/// The row lines of each table, and the line of the general settings, which only a drawing's stored settings have.
struct LibraryLines
{
    std::array<TextLines, kLibraryTableCount> tables;
    TextLines general; ///< "[ALL]"
};

/// Whether a text has a section for the general settings; in one that has not, its marker is a line like any other.
enum class GeneralSection
{
    kNone,
    kLast
};

/// All lines with their markers; a section without lines is left out.
TextLines JoinSections(const LibraryLines& sections);

/// The lines of each section. A marker is a whole line, in any letter case; sections may come in any order and more
/// than once; lines before the first marker are dropped.
LibraryLines SplitSections(const TextLines& lines, GeneralSection general);

/// The line that opens the section of a table.
std::u16string_view MarkerOf(LibraryTable table);

/// The numbers of the general settings as they are typed, in the order in which a line of them holds them.
struct GeneralTexts
{
    std::u16string backward;
    std::u16string forward;
    std::u16string textHeight;
    std::u16string deltaY;
};

/// Those of the first line when it holds exactly four.
std::optional<GeneralTexts> ParseGeneralLine(const TextLines& lines);

/// The row as a line, joined by ",".
std::u16string JoinRow(const RowTexts& row);

/// The row of a line that holds five fields; any other line makes none.
std::optional<RowTexts> ParseRow(std::u16string_view line);

/// Rows of a file by their key.
class RowLookup
{
public:
    /// Takes the lines that make a row.
    explicit RowLookup(const TextLines& lines);

    /// The first row of that key, letter case ignored; null when there is none. It lives as long as the look-up.
    const RowTexts* find(std::u16string_view key) const;

private:
    std::vector<RowTexts> m_rows; ///< by key, equal ones in file order
};
