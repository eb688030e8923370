#include "files/dwg/cache.h"

#include "disk/error.h"
#include "disk/read.h"
#include "disk/replace.h"
#include "files/dwg/answer.h"
#include "files/dwg/content_hash.h"

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
bool endsWithEof(std::string_view dxf)
{
    while (!dxf.empty() && (dxf.back() == '\n' || dxf.back() == '\r'))
        dxf.remove_suffix(1);
    return dxf.ends_with("EOF");
}

/// An entry is a line, the outcome, and behind it the DXF.
std::optional<Outcome> read(std::string_view entry)
{
    const std::size_t lineEnd = entry.find('\n');
    if (lineEnd == entry.npos)
        return std::nullopt;
    std::optional<Outcome> outcome = outcomeOf(entry.substr(0, lineEnd));
    if (!outcome || !outcome->ok())
        return outcome;
    outcome->dxf = entry.substr(lineEnd + 1);
    return endsWithEof(outcome->dxf) ? outcome : std::nullopt;
}

} // namespace

Cache::Cache(fs::path folder, std::uint64_t limit) : m_folder(std::move(folder)), m_limit(limit) {}

std::string Cache::keyOf(std::string_view dwg, std::string_view version)
{
    return contentHash(dwg) + "-" + std::string(version);
}

std::optional<Outcome> Cache::find(const std::string& key) const
try
{
    if (m_folder.empty())
        return std::nullopt;
    std::optional<Outcome> outcome = read(disk::readFile(m_folder / key).view());
    std::error_code ignored;
    if (outcome)
        fs::last_write_time(m_folder / key, fs::file_time_type::clock::now(), ignored);
    return outcome;
}
catch (const disk::FileError&)
{
    return std::nullopt;
}

void Cache::store(const std::string& key, const Outcome& outcome) const
try
{
    const std::string entry = answerOf(outcome) + "\n" + outcome.dxf;
    if (m_folder.empty() || entry.size() > m_limit)
        return;
    std::error_code error;
    fs::create_directories(m_folder, error);
    disk::replaceFile(m_folder / key, {entry}, {.durable = false});
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
