#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host
{

/// Finds the real file of a symbol drawing: at the path that it is known by, else by its file name in a list of
/// folders. Paths may come from another machine: either separator, a drive in front, letters in another case. The disk
/// is looked at anew each time.
class SymbolSearch
{
public:
    /// `folders` are real paths, the first one is looked in first; one that does not exist holds nothing.
    explicit SymbolSearch(std::vector<std::string> folders) : m_folders{std::move(folders)} {}

    /// The folders that a file which names symbol drawings adds: its own, and `symbols` in it.
    static std::vector<std::string> foldersBeside(const std::string& file);

    /// Looks in these first from now on.
    void lookFirstIn(std::vector<std::string> folders);

    /// The real path of the file. Where the path or name as it is leads nowhere, letter case is ignored and names on
    /// disk that are not ASCII are also read as 8-bit Vietnamese and as CP1258; of names that differ in nothing else,
    /// the first in alphabetical order counts. Nothing when there is no such file.
    std::optional<std::string> find(std::u16string_view path) const;

    /// One line on a file that was not found: its path, and in which folders its name was looked for.
    std::string whyMissing(std::u16string_view path) const;

private:
    std::vector<std::string> m_folders;
};

/// The real path of a folder whose path is kept as text, found level by level as `SymbolSearch` finds a file.
std::optional<std::string> findFolder(const std::string& path);

} // namespace host
