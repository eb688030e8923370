#include "files/dwg/cache.h"

#include "files/dwg/file_bytes.h"
#include "files/dwg/sha256.h"

#include <algorithm>
#include <stdlib.h> // mkstemp is not in <cstdlib>
#include <unistd.h>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace dwg
{
namespace
{

struct Entry
{
    fs::file_time_type used;
    std::uint64_t size;
    fs::path path;
};

/// What a program left half-written when it was stopped counts as an entry too, so that it ages and goes.
std::vector<Entry> entriesOf(const fs::path& folder)
{
    std::vector<Entry> entries;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
    {
        std::error_code gone;
        Entry entry{it->last_write_time(gone), it->file_size(gone), it->path()};
        if (!gone)
            entries.push_back(std::move(entry));
    }
    return entries;
}

/// A power cut can leave an entry without its end.
bool isWhole(std::string_view dxf)
{
    while (!dxf.empty() && (dxf.back() == '\n' || dxf.back() == '\r'))
        dxf.remove_suffix(1);
    return dxf.ends_with("EOF");
}

fs::path newFileIn(const fs::path& folder)
{
    std::string name = folder / "new-XXXXXX";
    const int file = mkstemp(name.data());
    if (file < 0)
        return {};
    close(file);
    return name;
}

} // namespace

Cache::Cache(fs::path folder, std::uint64_t limit) : m_folder(std::move(folder)), m_limit(limit) {}

std::string Cache::keyOf(std::string_view dwg, std::string_view version)
{
    return sha256(dwg) + "-" + std::string(version) + ".dxf";
}

bool Cache::find(const std::string& key, std::string& dxf) const
{
    if (!m_folder.empty() && readFile(m_folder / key, dxf).empty() && isWhole(dxf))
    {
        std::error_code ignored;
        fs::last_write_time(m_folder / key, fs::file_time_type::clock::now(), ignored);
        return true;
    }
    dxf.clear();
    return false;
}

void Cache::store(const std::string& key, std::string_view dxf) const
{
    if (m_folder.empty() || dxf.size() > m_limit)
        return;
    std::error_code error;
    fs::create_directories(m_folder, error);
    const fs::path file = newFileIn(m_folder);
    if (file.empty() || !writeFile(file, dxf))
        return;
    fs::rename(file, m_folder / key, error);
    if (error)
        fs::remove(file, error);
}

void Cache::trim() const
{
    if (m_folder.empty())
        return;
    std::vector<Entry> entries = entriesOf(m_folder);
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.used < b.used; });
    std::uint64_t total = 0;
    for (const Entry& entry : entries)
        total += entry.size;
    for (auto oldest = entries.begin(); total > m_limit && oldest != entries.end(); ++oldest)
    {
        std::error_code ignored;
        fs::remove(oldest->path, ignored);
        total -= oldest->size;
    }
}

} // namespace dwg
