#pragma once

#include <string>

namespace bench
{

/// The folder of generated drawings, filled by bench/run.sh; `VELOXA_BENCH_DATA` in the environment names another one.
std::string dataFolder();

/// The path of a generated drawing. Throws std::runtime_error, and says what to do, when it is not there.
std::string drawingFile(const std::string& name);

/// The whole file as it stands on disk. Throws std::runtime_error.
std::string readWhole(const std::string& path);

} // namespace bench
