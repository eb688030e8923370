#include "host/app/symbol_search.h"

#include "host/app/paths.h"
#include "host/text.h"

#include <algorithm>
#include <filesystem>

namespace host
{

namespace
{

namespace fs = std::filesystem;

bool isDriveLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// The last level of a path; a drive without a separator behind it ("D:cay.dwg") is no part of it.
std::string fileName(const std::string& native)
{
    std::string name = fs::path(native).filename().string();
    if (name.size() > 1 && name[1] == ':' && isDriveLetter(name[0]))
        name.erase(0, 2);
    return name;
}

/// The entry of a folder that is called `name`, or else the first one that differs from it in letter case only.
template <class Wanted>
std::optional<fs::path> entryOf(const fs::path& folder, const std::string& name, Wanted wanted)
{
    std::error_code error;
    if (const fs::path exact = folder / name; wanted(fs::status(exact, error)))
        return exact;
    const std::u16string wide = toUtf16(name);
    std::optional<fs::path> first;
    const fs::directory_iterator end;
    for (fs::directory_iterator entry{folder, error}; !error && entry != end; entry.increment(error))
    {
        std::error_code unknown;
        if (equalNoCase(toUtf16(entry->path().filename().string()), wide) && wanted(entry->status(unknown)) &&
            (!first || entry->path() < *first))
            first = entry->path();
    }
    return first;
}

bool isFile(const fs::file_status& status)
{
    return fs::is_regular_file(status);
}

/// The file at a path some of whose levels may be written in another letter case.
std::optional<fs::path> fileAt(const fs::path& path)
{
    std::error_code ignored;
    if (fs::is_regular_file(path, ignored))
        return path;
    if (!path.has_filename())
        return std::nullopt;
    fs::path folder = path.has_root_path() ? path.root_path() : fs::path{"."};
    for (const fs::path& level : path.parent_path().relative_path())
    {
        const auto next =
            entryOf(folder, level.string(), [](const fs::file_status& status) { return fs::is_directory(status); });
        if (!next)
            return std::nullopt;
        folder = *next;
    }
    return entryOf(folder, path.filename().string(), isFile);
}

} // namespace

std::vector<std::string> SymbolSearch::foldersBeside(const std::string& file)
{
    std::error_code unknown; // a folder that cannot be had holds nothing
    const fs::path folder = fs::absolute(file, unknown).parent_path();
    return {folder.string(), (folder / "symbols").string()};
}

void SymbolSearch::lookFirstIn(std::vector<std::string> folders)
{
    for (std::string& folder : m_folders)
        if (std::find(folders.begin(), folders.end(), folder) == folders.end())
            folders.push_back(std::move(folder));
    m_folders = std::move(folders);
}

std::optional<std::string> SymbolSearch::find(std::u16string_view path) const
{
    const std::string native = nativePath(path);
    if (const auto own = fileAt(native))
        return own->string();
    const std::string name = fileName(native);
    if (name.empty())
        return std::nullopt;
    for (const std::string& folder : m_folders)
        if (const auto found = entryOf(folder, name, isFile))
            return found->string();
    return std::nullopt;
}

std::string SymbolSearch::whyMissing(std::u16string_view path) const
{
    const std::string native = nativePath(path);
    std::string text = native + ": no such file";
    if (m_folders.empty())
        return text;
    text += ", and no " + fileName(native) + " in ";
    for (const std::string& folder : m_folders)
        text += (&folder == m_folders.data() ? "" : ", ") + folder;
    return text;
}

} // namespace host
