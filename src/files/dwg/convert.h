#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Reading DWG drawings: each becomes a DXF, made by a converter that runs as a child process with limits of its own,
/// so that a broken or hostile file costs that file and nothing else. What became of a file is kept in a cache,
/// refusals too: a file that hangs the converter hangs it once. Nothing here throws for a file that cannot be read; its
/// outcome carries the reason.
namespace dwg
{

/// Whether a file's content (not its name) is a DWG of any version.
bool isDwg(std::string_view bytes);

/// Where the converter stands: `dwg2dxf/` beside the program, `../share/veloxa/dwg2dxf/`, or the source tree's.
std::filesystem::path defaultAdapterFolder();

/// `$XDG_CACHE_HOME/veloxa/dwg` or `~/.cache/veloxa/dwg`; empty when neither can be told.
std::filesystem::path defaultCacheFolder();

struct Options
{
    std::filesystem::path adapter = defaultAdapterFolder();
    std::string node = "node";                          ///< a program's name, looked for in PATH, or its path
    std::filesystem::path cache = defaultCacheFolder(); ///< empty: nothing is kept
    std::uint64_t cacheLimit = 256U << 20U;             ///< bytes; beyond it the entries longest unused go
    std::chrono::milliseconds timeLimit{60'000}; ///< of processor time for each file; five times that by the clock
    std::uint64_t memoryLimit = 2ULL << 30U;     ///< bytes of data of the child process
};

/// What became of one file: the text of its DXF, or why there is none (a line without the file's name).
struct Outcome
{
    std::string dxf;
    std::string reason;
    std::map<std::string, std::size_t> lost; ///< how many entities of each kind (by its DXF name) the DXF lacks

    bool ok() const { return reason.empty(); }
};

/// The DXF of each of `files`, in their order. Those not in the cache are converted together by one child process;
/// one that crashes or hangs it is given up and the others go on. No process or temporary file outlives the call.
std::vector<Outcome> convert(const std::vector<std::filesystem::path>& files, const Options& options = {});

} // namespace dwg
