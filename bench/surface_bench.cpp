// Terrain: triangles over a million points that hold the segments of break lines, and sections cut through a million
// triangles, with the index and in a plain loop over all of them. Making the index counts; the ground lines of both are
// compared.
#include "bench/support/cpu_clock.h"
#include "survey/surface/section_cut.h"
#include "survey/surface/triangulate.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <numeric>
#include <random>

namespace
{

using survey::BreakLine;
using survey::CutLine;
using survey::Tin;

constexpr double kLength = 20'000.0; ///< metres of the strip of terrain
constexpr double kWidth = 200.0;

double heightAt(double x, double y)
{
    return 30.0 + 8.0 * std::sin(x / 300.0) + 3.0 * std::cos(y / 40.0);
}

double part(std::mt19937& random)
{
    return random() / 4294967296.0;
}

AcGePoint3d placed(double x, double y)
{
    return {598'000.0 + x, 2'317'000.0 + y, heightAt(x, y)};
}

AcGePoint3dArray scatteredPoints(size_t count)
{
    std::mt19937 random{1};
    AcGePoint3dArray points(count);
    for (AcGePoint3d& point : points)
    {
        const double x = kLength * part(random);
        point = placed(x, kWidth * part(random));
    }
    return points;
}

/// Lines of 100 segments of 5 m that wind across the strip and across one another.
std::vector<AcGePoint3dArray> windingLines(size_t count)
{
    std::mt19937 random{2};
    std::vector<AcGePoint3dArray> lines(count);
    for (AcGePoint3dArray& line : lines)
    {
        double x = kLength * part(random);
        double y = kWidth * part(random);
        double heading = 6.28 * part(random);
        for (int i = 0; i <= 100; ++i)
        {
            line.push_back(placed(x, y));
            heading += 0.2 * (part(random) - 0.5);
            x += 5.0 * std::cos(heading);
            y += 5.0 * std::sin(heading);
        }
    }
    return lines;
}

void Triangulate(benchmark::State& state)
{
    const AcGePoint3dArray points = scatteredPoints(1'000'000);
    const std::vector<AcGePoint3dArray> lines = windingLines(200);
    std::vector<BreakLine> given;
    for (const AcGePoint3dArray& line : lines)
        given.push_back({line, false});
    size_t crossings = 0;
    for (auto _ : state)
    {
        const survey::Triangulation result = survey::triangulate(points, given);
        crossings = result.crossings.size();
        if (result.tin.faces.size() < 2'000'000)
            state.SkipWithError("too few triangles");
    }
    state.counters["crossings"] = static_cast<double>(crossings);
}

const Tin& millionTriangles()
{
    static const Tin tin = survey::triangulate(scatteredPoints(500'050), {}).tin;
    return tin;
}

CutLine sectionLine(size_t number, size_t count)
{
    const double turn = 0.3 * std::sin(static_cast<double>(number));
    const AcGePoint3d center = placed(kLength * static_cast<double>(number) / static_cast<double>(count), kWidth / 2.0);
    return {{center.x, center.y}, {std::sin(turn), -std::cos(turn)}, 30.0, 30.0};
}

constexpr size_t kSections = 10'000;

void Cut(benchmark::State& state)
{
    const Tin& tin = millionTriangles();
    size_t vertices = 0;
    for (auto _ : state)
    {
        vertices = 0;
        const survey::SectionCutter cutter{tin};
        for (size_t i = 0; i < kSections; ++i)
            for (const survey::GroundPiece& piece : cutter.cut(sectionLine(i, kSections)).pieces)
                vertices += piece.size();
    }
    state.counters["triangles"] = static_cast<double>(tin.faces.size());
    state.counters["vertices"] = static_cast<double>(vertices);
}

/// Every 500th section, the time multiplied as if it had done all.
void CutPlain(benchmark::State& state)
{
    constexpr size_t kStep = 500;
    const Tin& tin = millionTriangles();
    std::vector<uint32_t> all(tin.faces.size());
    std::iota(all.begin(), all.end(), 0U);
    const survey::SectionCutter cutter{tin};
    std::vector<survey::GroundCut> cuts(kSections);
    for (auto _ : state)
    {
        const bench::CpuClock clock;
        for (size_t i = 0; i < kSections; i += kStep)
            cuts[i] = survey::cutFaces(tin, all, sectionLine(i, kSections));
        state.SetIterationTime(clock.seconds() * kStep);
    }
    for (size_t i = 0; i < kSections; i += kStep)
        if (cuts[i].pieces != cutter.cut(sectionLine(i, kSections)).pieces)
            state.SkipWithError("other ground lines than the index finds");
}

BENCHMARK(Triangulate)->Unit(benchmark::kMillisecond);
BENCHMARK(Cut)->Name("CutSections/10000x1000000")->Unit(benchmark::kMillisecond);
BENCHMARK(CutPlain)->Name("CutSectionsPlain/10000x1000000")->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
