#include "bench/support/drawings.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace bench
{

std::string dataFolder()
{
    const char* folder = std::getenv("VELOXA_BENCH_DATA");
    return folder != nullptr ? folder : VELOXA_BENCH_DATA;
}

std::string drawingFile(const std::string& name)
{
    std::string path = dataFolder() + "/" + name;
    if (!std::filesystem::exists(path))
        throw std::runtime_error(path + " is not there: bench/run.sh makes it");
    return path;
}

std::string readWhole(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string bytes(std::filesystem::file_size(path), '\0');
    if (!file.read(bytes.data(), static_cast<std::streamsize>(bytes.size())))
        throw std::runtime_error(path + " cannot be read");
    return bytes;
}

} // namespace bench
