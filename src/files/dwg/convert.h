#pragma once

#include "files/dwg/outcome.h"

#include <filesystem>
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

/// The DXF of each of `files`, in their order. Those not in the cache are converted together by one child process;
/// one that crashes or hangs it is given up and the others go on. No process or temporary file outlives the call.
std::vector<Outcome> convert(const std::vector<std::filesystem::path>& files, const Options& options = {});

} // namespace dwg
