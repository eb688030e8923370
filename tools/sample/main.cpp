#include "generate.h"
#include "libraries.h"
#include "options.h"

#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>

namespace
{
struct CloseFile
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// The length at which a drawing with these options is about as large as asked.
double LengthForSize(Options options)
{
    const double wanted = options.megabytes * 1e6;
    options.km = 1;
    for (int round = 0; round < 2; ++round)
    {
        const Totals totals = GenerateDrawing(nullptr, Complete(options), {});
        options.km *= wanted / static_cast<double>(totals.bytes);
    }
    return options.km;
}

void WriteDrawing(Options options)
{
    if (options.megabytes > 0)
        options.km = LengthForSize(options);
    options = Complete(options);
    const Totals expected = GenerateDrawing(nullptr, options, {});
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(options.out.c_str(), "wb"));
    if (file == nullptr)
        throw std::runtime_error(options.out + ": cannot be written");
    const Totals totals = GenerateDrawing(file.get(), options, expected);
    if (std::fflush(file.get()) != 0)
        throw std::runtime_error(options.out + ": cannot be written");
    std::printf("%s: %lld bytes, %.2f km, %d alignments, %d sections, %d coded polylines, %d survey points, "
                "%d entities\n",
                options.out.c_str(), static_cast<long long>(totals.bytes), options.km, totals.alignments,
                totals.sections, totals.codedPolylines, totals.points, totals.entities);
}
} // namespace

int main(int argc, char** argv)
try
{
    const Options options = ParseOptions(argc, argv);
    if (options.help)
    {
        std::fputs(HelpText(), stdout);
        return 0;
    }
    if (!options.out.empty())
        WriteDrawing(options);
    if (!options.library.empty())
        WriteLibrary(options.library);
    if (!options.table.empty())
        WritePlanTable(options.table);
    return 0;
}
catch (const std::invalid_argument& problem)
{
    std::fprintf(stderr, "roadgen: %s\n", problem.what());
    return 2;
}
catch (const std::exception& problem)
{
    std::fprintf(stderr, "roadgen: %s\n", problem.what());
    return 1;
}
