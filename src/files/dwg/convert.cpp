#include "files/dwg/convert.h"

#include "disk/error.h"
#include "disk/read.h"
#include "disk/replace.h"
#include "disk/temporary.h"
#include "files/dwg/adapter.h"
#include "files/dwg/cache.h"
#include "files/dxf/version.h"

#include <cctype>
#include <charconv>
#include <cstdlib>
#include <utility>

namespace fs = std::filesystem;

namespace dwg
{
namespace
{

constexpr std::size_t kMagicSize = 6; // "AC1015" and the like
constexpr std::string_view kOldestRead = "AC1014";
constexpr std::string_view kNewestRead = "AC1032";

/// Before R9 a version had a point in it: "AC1.50", "AC2.10", "MC0.0".
bool isEarly(std::string_view bytes)
{
    const auto digit = [&](std::size_t i) { return std::isdigit(static_cast<unsigned char>(bytes[i])) != 0; };
    return (bytes.starts_with("AC") || bytes.starts_with("MC")) && digit(2) && bytes[3] == '.' && digit(4);
}

struct Pending
{
    std::string key;
    Outcome* outcome;
    Job job;
};

/// Reads a whole file into `bytes`. Returns why it could not, or an empty text.
std::string readFile(const fs::path& file, std::string& bytes)
try
{
    bytes = disk::readFile(file).view();
    return {};
}
catch (const disk::FileError& error)
{
    return error.reason();
}

/// One call of convert(): what the cache lacks is collected with a private copy of each file, so that what is
/// converted is what was looked up, then converted together.
class Batch
{
public:
    explicit Batch(const Options& options)
        : m_options(options), m_cache(options.cache, options.cacheLimit), m_version(adapterVersion(options))
    {
    }

    void add(const fs::path& file, Outcome& outcome)
    {
        std::string bytes;
        outcome.reason = readFile(file, bytes);
        if (outcome.ok())
            outcome.reason = whyNotRead(bytes);
        if (!outcome.ok())
            return;
        std::string key = Cache::keyOf(bytes, m_version);
        if (std::optional<Outcome> known = m_cache.find(key))
            outcome = std::move(*known);
        else
            copyForConversion(bytes, std::move(key), outcome);
    }

    void run()
    {
        if (m_pending.empty())
            return;
        std::vector<Job*> jobs;
        for (Pending& pending : m_pending)
            jobs.push_back(&pending.job);
        runAdapter(m_options, jobs);
        for (Pending& pending : m_pending)
            take(pending);
        m_cache.trim();
    }

private:
    static std::string whyNotRead(std::string_view bytes)
    {
        if (!isDwg(bytes))
            return "not a DWG file";
        const std::string_view version = bytes.substr(0, kMagicSize);
        if (isEarly(version) || version < kOldestRead)
            return "DWG version " + nameOf(version) + " is too old to be read; save it as R14 or newer";
        if (version > kNewestRead)
            return "DWG version " + nameOf(version) + " is too new to be read; save it as R2018 or older";
        return {};
    }

    /// "R12 (AC1009)"; without the first part for a version that has no such name.
    static std::string nameOf(std::string_view version)
    {
        std::string shown;
        for (const char c : version)
            if (std::isgraph(static_cast<unsigned char>(c)) != 0)
                shown += c;
        int number = 0;
        if (std::from_chars(version.data() + 2, version.data() + version.size(), number).ptr !=
            version.data() + version.size())
            return shown;
        const std::string name = files::nameOfVersion(number);
        return name == shown ? shown : name + " (" + shown + ")";
    }

    void copyForConversion(std::string_view bytes, std::string key, Outcome& outcome)
    {
        const std::string name = std::to_string(m_pending.size());
        const fs::path folder{m_folder.path()};
        const Job job{folder / (name + ".dwg"), folder / (name + ".dxf")};
        if (m_folder.path().empty() || !disk::writeInPlace(job.input, bytes))
            outcome.reason = "DWG files cannot be read: no temporary file can be written";
        else
            m_pending.push_back({std::move(key), &outcome, job});
    }

    void take(Pending& pending)
    {
        Outcome& outcome = *pending.outcome;
        outcome = std::move(pending.job.outcome);
        if (outcome.ok())
            outcome.reason = readFile(pending.job.output, outcome.dxf);
        if (pending.job.isLasting && outcome.ok() == !outcome.dxf.empty())
            m_cache.store(pending.key, outcome);
    }

    const Options& m_options;
    disk::TemporaryFolder m_folder;
    Cache m_cache;
    std::string m_version;
    std::vector<Pending> m_pending;
};

} // namespace

bool isDwg(std::string_view bytes)
{
    const auto digit = [&](std::size_t i) { return std::isdigit(static_cast<unsigned char>(bytes[i])) != 0; };
    if (bytes.size() < kMagicSize)
        return false;
    return isEarly(bytes) || (bytes.starts_with("AC10") && digit(4) && digit(5));
}

fs::path defaultCacheFolder()
{
    const auto folder = [](const char* variable)
    {
        const char* value = std::getenv(variable);
        const fs::path path = value == nullptr ? "" : value;
        return path.is_absolute() ? path : fs::path{};
    };
    if (const fs::path cache = folder("XDG_CACHE_HOME"); !cache.empty())
        return cache / "veloxa" / "dwg";
    if (const fs::path home = folder("HOME"); !home.empty())
        return home / ".cache" / "veloxa" / "dwg";
    return {};
}

std::vector<Outcome> convert(const std::vector<fs::path>& files, const Options& options)
{
    std::vector<Outcome> outcomes(files.size());
    Batch batch(options);
    for (std::size_t i = 0; i < files.size(); ++i)
        batch.add(files[i], outcomes[i]);
    batch.run();
    return outcomes;
}

} // namespace dwg
