#pragma once

#include <string>
#include <vector>

namespace console
{

/// The folders in which the user's symbol files are always looked for: "symbol-folders.txt" in the settings folder,
/// UTF-8, one folder a line. Reading makes neither file nor folder.
class SymbolFolderList
{
public:
    /// Reads the list in `settingsFolder`. A missing file is an empty list; throws FileError for one that cannot be
    /// read.
    explicit SymbolFolderList(const std::string& settingsFolder);

    const std::string& file() const { return m_file; }
    const std::vector<std::string>& folders() const { return m_folders; }

    /// Puts a folder at the end, as an absolute path, unless it is in the list. Failure when there is no such folder.
    void add(const std::string& folder);
    /// Failure when the folder, absolute or as it stands, is not in the list.
    void remove(const std::string& folder);
    /// Replaces the file, and makes its folder when it is missing. Failure or FileError when that cannot be done.
    void save() const;

private:
    std::string m_file;
    std::vector<std::string> m_folders;
};

} // namespace console
