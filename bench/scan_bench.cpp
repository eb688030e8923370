// The whole scan of a drawing that was just loaded: selecting, opening, reading codes, crossings, rows.
#include "bench/support/cpu_clock.h"
#include "bench/support/drawings.h"
#include "bench/support/open_drawing.h"
#include "sections/database_cs.h"
#include "sections/scan.h"

#include <benchmark/benchmark.h>

namespace
{

void Scan(benchmark::State& state, const char* name)
{
    const std::string path = bench::drawingFile(name);
    for (auto _ : state)
    {
        const bench::OpenDrawing drawing(path);
        DatabaseCS found;
        const bench::CpuClock clock;
        ScanCrossSections(found);
        state.SetIterationTime(clock.seconds());
        if (found.m_listReferenceLines.empty())
            state.SkipWithError("nothing found");
    }
}

BENCHMARK_CAPTURE(Scan, 10km, "10km.dxf")->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
