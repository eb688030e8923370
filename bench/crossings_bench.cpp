// Which polylines cross which sections, and where: the scan's search beside the plain loop and two other indexes. The
// drawing's objects are read before; building an index counts. The rows of all four are compared.
#include "bench/support/cpu_clock.h"
#include "bench/support/crossing_case.h"

#include <benchmark/benchmark.h>

namespace
{

using bench::CrossingCase;
using bench::CrossingRows;

/// The search of a whole drawing, which gives all rows.
template <CrossingRows (*Find)(const CrossingCase&)>
void Crossings(benchmark::State& state, const char* name)
{
    const CrossingCase& input = bench::crossingCase(name);
    CrossingRows rows;
    for (auto _ : state)
        rows = Find(input);
    if (rows != bench::indexedRows(input))
        state.SkipWithError("other rows than the scan's");
    size_t count = 0;
    for (const auto& section : rows)
        count += section.size();
    state.counters["rows"] = static_cast<double>(count);
}

/// The plain loop over every `step`-th section, its time multiplied as if it had done all.
void Plain(benchmark::State& state, const char* name, size_t step)
{
    const CrossingCase& input = bench::crossingCase(name);
    const size_t asked = (input.lines.size() + step - 1) / step;
    CrossingRows rows;
    for (auto _ : state)
    {
        const bench::CpuClock clock;
        rows = bench::plainRows(input, step);
        state.SetIterationTime(clock.seconds() * static_cast<double>(input.lines.size()) / static_cast<double>(asked));
    }
    const CrossingRows expected = bench::indexedRows(input);
    for (size_t line = 0; line < rows.size(); line += step)
        if (rows[line] != expected[line])
            state.SkipWithError("other rows than the scan's");
    state.counters["sections"] = static_cast<double>(asked);
}

void Indexed(benchmark::State& state, const char* name)
{
    Crossings<bench::indexedRows>(state, name);
}

void StrTree(benchmark::State& state, const char* name)
{
    Crossings<bench::strTreeRows>(state, name);
}

void RTree(benchmark::State& state, const char* name)
{
    Crossings<bench::rTreeRows>(state, name);
}

BENCHMARK_CAPTURE(Indexed, 100x1000, "100x1000.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StrTree, 100x1000, "100x1000.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RTree, 100x1000, "100x1000.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Plain, 100x1000, "100x1000.dxf", 1)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK_CAPTURE(Indexed, 1000x10000, "1000x10000.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StrTree, 1000x10000, "1000x10000.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RTree, 1000x10000, "1000x10000.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Plain, 1000x10000, "1000x10000.dxf", 10)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK_CAPTURE(Indexed, 2000x100000, "2000x100000.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StrTree, 2000x100000, "2000x100000.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RTree, 2000x100000, "2000x100000.dxf")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Plain, 2000x100000, "2000x100000.dxf", 100)->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
