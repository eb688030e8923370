// Reading a drawing, ready for commands, beside the least that any reader does and beside another reader.
#include "bench/support/drawings.h"
#include "bench/support/open_drawing.h"
#include "store/group_codes.h"

#include <benchmark/benchmark.h>
#include <charconv>
#include <cstring>
#include <dl_creationadapter.h>
#include <dl_dxf.h>
#include <fcntl.h>
#include <stdexcept>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

/// A file mapped for reading, each page touched for the first time by whoever reads it.
class MappedFile
{
public:
    explicit MappedFile(const std::string& path)
    {
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        m_size = static_cast<size_t>(lseek(file, 0, SEEK_END));
        m_bytes = mmap(nullptr, m_size, PROT_READ, MAP_PRIVATE, file, 0);
        close(file);
        if (m_bytes == MAP_FAILED)
            throw std::runtime_error(path + " cannot be mapped");
    }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile() { munmap(m_bytes, m_size); }

    std::string_view view() const { return {static_cast<const char*>(m_bytes), m_size}; }

private:
    void* m_bytes;
    size_t m_size;
};

/// What a pass over all pairs finds.
struct Sum
{
    size_t pairs = 0;
    double reals = 0.0;
};

const char* skipBlanks(const char* at, const char* end)
{
    while (at != end && *at == ' ')
        ++at;
    return at;
}

const char* lineEnd(const char* at, const char* end)
{
    const void* found = std::memchr(at, '\n', static_cast<size_t>(end - at));
    return found != nullptr ? static_cast<const char*>(found) : end;
}

/// The least a reader can do: finds every line, reads every group code, and the value where it is a real.
Sum passOver(std::string_view text)
{
    Sum sum;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at < end)
    {
        const char* codeEnd = lineEnd(at, end);
        int code = -1;
        std::from_chars(skipBlanks(at, codeEnd), codeEnd, code);
        if (codeEnd == end)
            break;
        const char* value = codeEnd + 1;
        const char* valueEnd = lineEnd(value, end);
        if (dxf::isReal(code))
        {
            double real = 0.0;
            std::from_chars(skipBlanks(value, valueEnd), valueEnd, real);
            sum.reals += real;
        }
        ++sum.pairs;
        at = valueEnd == end ? end : valueEnd + 1;
    }
    return sum;
}

void setRate(benchmark::State& state, const std::string& path)
{
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(MappedFile(path).view().size()));
}

void Pass(benchmark::State& state, const char* name)
{
    const std::string path = bench::drawingFile(name);
    for (auto _ : state)
    {
        const MappedFile file(path);
        benchmark::DoNotOptimize(passOver(file.view()));
    }
    setRate(state, path);
}

void Load(benchmark::State& state, const char* name)
{
    const std::string path = bench::drawingFile(name);
    for (auto _ : state)
    {
        AcDbDatabase database;
        bench::readForCommands(database, path);
        benchmark::ClobberMemory();
    }
    setRate(state, path);
}

void Dxflib(benchmark::State& state, const char* name)
{
    const std::string path = bench::drawingFile(name);
    for (auto _ : state)
    {
        DL_CreationAdapter listener;
        DL_Dxf reader;
        if (!reader.in(path, &listener))
            state.SkipWithError("dxflib cannot read the drawing");
    }
    setRate(state, path);
}

BENCHMARK_CAPTURE(Pass, 10MB, "10mb.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Load, 10MB, "10mb.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Dxflib, 10MB, "10mb.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Load, 10km, "10km.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Pass, 100MB, "100mb.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Load, 100MB, "100mb.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Dxflib, 100MB, "100mb.dxf")->Unit(benchmark::kMillisecond);

} // namespace
