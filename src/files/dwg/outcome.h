#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace dwg
{

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

} // namespace dwg
