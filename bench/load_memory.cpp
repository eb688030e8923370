// How much memory one drawing takes while it is read: veloxa_memory DRAWING prints, as JSON, the growth of the peak of
// the process, the bytes of the file and the number of entities. A process of its own, since a peak never sinks.
#include "bench/support/open_drawing.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace
{

/// A line of /proc/self/status, in bytes.
size_t statusOf(const std::string& field)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(field + ":"))
            return std::stoul(line.substr(field.size() + 1)) * 1024;
    throw std::runtime_error("/proc/self/status has no " + field);
}

size_t countEntities(const DrawingStore& store)
{
    size_t entities = 0;
    for (const Container& container : store.containers)
        if (container.kind == Container::kEntities || container.kind == Container::kBlock)
            for (size_t order = container.first; order < container.last; ++order)
                entities += store.records[order].has(ObjectRecord::kSubEntity) ? 0U : 1U;
    return entities;
}

void measure(const std::string& path)
{
    const size_t before = statusOf("VmRSS");
    AcDbDatabase database;
    bench::readForCommands(database, path);
    const size_t growth = statusOf("VmHWM") - before;
    const size_t file = std::filesystem::file_size(path);
    const size_t entities = countEntities(database.store());
    std::printf("{\"growth\": %zu, \"file\": %zu, \"entities\": %zu}\n", growth, file, entities);
}

} // namespace

int main(int argc, char** argv)
{
    try
    {
        if (argc != 2)
            throw std::invalid_argument("usage: veloxa_memory DRAWING");
        measure(argv[1]);
        return 0;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
