#include "host/app/symbol_search.h"

#include "host/app/paths.h"
#include "store/text/tcvn3_letters.h"
#include "store/text/text.h"
#include "store/text/text_encoding.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace host
{

namespace
{

namespace fs = std::filesystem;

constexpr int kR2000 = 1015;

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

bool isAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// What the bytes of a name on disk may say: archives keep names in UTF-8, in 8-bit Vietnamese or in CP1258. Anything
/// that is not ASCII is read in all three ways, the likeliest one first.
std::vector<std::u16string> readingsOf(const std::string& name)
{
    static const auto cp1258 = makeTextEncoding(kR2000, "ANSI_1258");
    std::vector<std::u16string> readings{lettersForBytes(keepBytes(name))};
    if (isAscii(name))
        return readings;
    std::u16string& tcvn3 = readings.emplace_back();
    for (const char byte : name)
        tcvn3 += kTcvn3Units[static_cast<unsigned char>(byte)];
    readings.push_back(cp1258->decode(name));
    return readings;
}

/// The entry of a folder that is called `name`; else one whose name says the same in another reading or letter case,
/// the likeliest reading first and then the first in order.
template <class Wanted>
std::optional<fs::path> entryOf(const fs::path& folder, const std::string& name, Wanted wanted)
{
    std::error_code error;
    if (const fs::path exact = folder / name; wanted(fs::status(exact, error)))
        return exact;
    const std::u16string wide = lettersForBytes(keepBytes(name));
    std::optional<std::pair<std::ptrdiff_t, fs::path>> first;
    const fs::directory_iterator end;
    for (fs::directory_iterator entry{folder, error}; !error && entry != end; entry.increment(error))
    {
        std::error_code unknown;
        const std::vector<std::u16string> readings = readingsOf(entry->path().filename().string());
        const auto same = std::find_if(readings.begin(), readings.end(),
                                       [&](const std::u16string& reading) { return equalNoCase(reading, wide); });
        if (same == readings.end() || !wanted(entry->status(unknown)))
            continue;
        std::pair found{same - readings.begin(), entry->path()};
        if (!first || found < *first)
            first = std::move(found);
    }
    return first ? std::optional{first->second} : std::nullopt;
}

bool isFile(const fs::file_status& status)
{
    return fs::is_regular_file(status);
}

bool isFolder(const fs::file_status& status)
{
    return fs::is_directory(status);
}

/// What there is at a path some of whose levels may be written in another letter case or read in another way.
template <class Wanted>
std::optional<fs::path> entryAt(const fs::path& path, Wanted wanted)
{
    std::error_code ignored;
    if (wanted(fs::status(path, ignored)))
        return path;
    if (!path.has_filename())
        return std::nullopt;
    fs::path folder = path.has_root_path() ? path.root_path() : fs::path{"."};
    for (const fs::path& level : path.parent_path().relative_path())
    {
        const auto next = entryOf(folder, level.string(), isFolder);
        if (!next)
            return std::nullopt;
        folder = *next;
    }
    return entryOf(folder, path.filename().string(), wanted);
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

std::optional<std::string> findFolder(const std::string& path)
{
    const auto found = entryAt(path, isFolder);
    return found ? std::optional{found->string()} : std::nullopt;
}

std::optional<std::string> SymbolSearch::find(std::u16string_view path) const
{
    const std::string native = nativePath(path);
    if (const auto own = entryAt(native, isFile))
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
