#include "console/program/symbol_folders.h"

#include "console/program/failure.h"
#include "disk/read.h"
#include "disk/replace.h"
#include "host/app/symbol_search.h"
#include "store/text/text.h"

#include <algorithm>
#include <filesystem>

namespace console
{

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The folders of a list, as they are on disk when they are there.
std::vector<std::string> foldersOf(std::string_view text)
{
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());
    std::vector<std::string> lines;
    while (!text.empty())
    {
        const size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (!line.empty())
            lines.push_back(host::findFolder(std::string{line}).value_or(std::string{line}));
    }
    return lines;
}

/// A folder as the list holds it: UTF-8, whatever its name on disk is.
std::string textOf(const std::string& folder)
{
    return toUtf8(keepBytes(folder));
}

std::string absolutePath(const std::string& folder)
{
    std::string path = fs::absolute(folder).lexically_normal().string();
    if (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

} // namespace

SymbolFolderList::SymbolFolderList(const std::string& settingsFolder) : m_file{settingsFolder + "/symbol-folders.txt"}
{
    std::error_code ignored;
    if (fs::exists(m_file, ignored))
        m_folders = foldersOf(disk::readFile(m_file).view());
}

void SymbolFolderList::add(const std::string& folder)
{
    std::error_code ignored;
    if (folder.empty() || !fs::is_directory(folder, ignored))
        throw Failure{folder + ": no such folder"};
    const std::string path = absolutePath(folder);
    if (path.find_first_of("\r\n") != std::string::npos)
        throw Failure{"a folder with a line end in its name cannot be kept in a list"};
    if (std::find(m_folders.begin(), m_folders.end(), path) == m_folders.end())
        m_folders.push_back(path);
}

void SymbolFolderList::remove(const std::string& folder)
{
    const auto is = [&](const std::string& kept)
    { return textOf(kept) == textOf(folder) || (!folder.empty() && textOf(kept) == textOf(absolutePath(folder))); };
    if (std::erase_if(m_folders, is) == 0)
        throw Failure{folder + ": not in the list " + m_file};
}

void SymbolFolderList::save() const
{
    std::error_code error;
    fs::create_directories(fs::path{m_file}.parent_path(), error);
    if (error)
        throw Failure{fs::path{m_file}.parent_path().string() + ": the folder cannot be made: " + error.message()};
    std::string text;
    for (const std::string& folder : m_folders)
        text += textOf(folder) + "\n";
    disk::replaceFile(m_file, {text});
}

} // namespace console
