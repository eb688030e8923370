#include "files/dwg/cache.h"

#include "disk/error.h"
#include "disk/read.h"
#include "disk/replace.h"
#include "files/dwg/sha256.h"

#include <algorithm>
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

} // namespace

Cache::Cache(fs::path folder, std::uint64_t limit) : m_folder(std::move(folder)), m_limit(limit) {}

std::string Cache::keyOf(std::string_view dwg, std::string_view version)
{
    return sha256(dwg) + "-" + std::string(version) + ".dxf";
}

bool Cache::find(const std::string& key, std::string& dxf) const
try
{
    dxf.clear();
    if (m_folder.empty())
        return false;
    const disk::FileText entry = disk::readFile(m_folder / key);
    if (!isWhole(entry.view()))
        return false;
    dxf = entry.view();
    std::error_code ignored;
    fs::last_write_time(m_folder / key, fs::file_time_type::clock::now(), ignored);
    return true;
}
catch (const disk::FileError&)
{
    return false;
}

void Cache::store(const std::string& key, std::string_view dxf) const
try
{
    if (m_folder.empty() || dxf.size() > m_limit)
        return;
    std::error_code error;
    fs::create_directories(m_folder, error);
    disk::replaceFile(m_folder / key, {dxf}, {.durable = false});
}
catch (const disk::FileError&)
{
    return;
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
