#pragma once

#include "console/findings/feature_counts.h"

#include <string>
#include <vector>

namespace console
{

/// A row of a library or table: what the module will take it for.
struct FileRow
{
    FeatureKind kind;
    std::u16string key;
    std::u16string file;
};

/// The rows of a feature library (".dv") or plan table (".dvbd"), read by the module's own rules, with what the module
/// passes over in silence.
struct RowFile
{
    std::vector<FileRow> rows;         ///< those that count
    std::vector<std::string> problems; ///< lines that do not count, and texts where a number should be

    /// The first row of that kind and name; null when there is none.
    const FileRow* find(FeatureKind kind, std::u16string_view key) const;
    /// The rows that no name of the drawing uses.
    std::vector<FileRow> unused(const FeatureCounts& features) const;
};

/// Both throw FileError when the file cannot be read, and Failure when it is of another kind (a drawing, the other one
/// of the two), by its name or by what it holds.
RowFile readLibraryRows(const std::string& path);
RowFile readTableRows(const std::string& path);

/// The kind as the files name it: the section of a library, or "table".
std::string titleOf(FeatureKind kind);

} // namespace console
