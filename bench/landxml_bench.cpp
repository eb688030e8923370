// Reading LandXML of 100 MB: of triangles, of break lines and of points, beside the parse of the same bytes alone.
#include "bench/support/cpu_clock.h"
#include "survey/read/landxml/read_landxml.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <pugixml.hpp>
#include <string>

namespace
{

constexpr size_t kSize = 100'000'000;

[[gnu::format(printf, 2, 3)]] void append(std::string& text, const char* format, ...)
{
    char line[200];
    va_list values;
    va_start(values, format);
    const int length = std::vsnprintf(line, sizeof line, format, values);
    va_end(values);
    text.append(line, static_cast<size_t>(length));
}

double heightAt(size_t i)
{
    return 30.0 + 8.0 * std::sin(static_cast<double>(i) / 300.0);
}

double northOf(size_t row)
{
    return 2317000.0 + 1.25 * static_cast<double>(row) + 0.000123;
}

double eastOf(size_t column)
{
    return 598000.0 + 1.25 * static_cast<double>(column) + 0.000321;
}

std::string document(const std::string& parts)
{
    return "<?xml version=\"1.0\"?>\n<LandXML xmlns=\"http://www.landxml.org/schema/LandXML-1.2\" version=\"1.2\">\n"
           "<Units><Metric linearUnit=\"meter\"/></Units>\n" +
           parts + "</LandXML>\n";
}

/// A grid of points, two triangles to a cell, as surveyors' programs write a terrain.
std::string triangles()
{
    constexpr size_t kWidth = 900;
    constexpr size_t kBytesOfRow = kWidth * 160;
    const size_t rows = kSize / kBytesOfRow;
    std::string text = "<Surfaces><Surface name=\"S\"><Definition surfType=\"TIN\">\n<Pnts>\n";
    for (size_t i = 0; i < rows * kWidth; ++i)
        append(text, "<P id=\"%zu\">%.6f %.6f %.6f</P>\n", i + 1, northOf(i / kWidth), eastOf(i % kWidth), heightAt(i));
    text += "</Pnts>\n<Faces>\n";
    for (size_t row = 0; row + 1 < rows; ++row)
        for (size_t i = row * kWidth + 1; i < (row + 1) * kWidth; ++i)
        {
            append(text, "<F n=\"%zu %zu %zu\">%zu %zu %zu</F>\n", i, i + 1, i + 2, i, i + 1, i + kWidth);
            append(text, "<F n=\"%zu %zu %zu\">%zu %zu %zu</F>\n", i, i + 1, i + 2, i + 1, i + kWidth + 1, i + kWidth);
        }
    return document(text + "</Faces>\n</Definition></Surface></Surfaces>\n");
}

std::string breakLines()
{
    std::string text = "<Surfaces><Surface name=\"S\"><SourceData><Breaklines>\n";
    for (size_t line = 0; text.size() < kSize; ++line)
    {
        append(text, "<Breakline brkType=\"standard\" name=\"%zu\">\n<PntList3D>", line);
        for (size_t i = 0; i < 100; ++i)
            append(text, "%.6f %.6f %.6f ", northOf(line), eastOf(i), heightAt(i));
        text += "</PntList3D>\n<Feature code=\"IM_coding\"><Property label=\"terrainCoding\" value=\"122\"/>"
                "<Property label=\"terrainCodingDesc\" value=\"Edge\"/></Feature>\n</Breakline>\n";
    }
    return document(text + "</Breaklines></SourceData></Surface></Surfaces>\n");
}

std::string points()
{
    std::string text = "<CgPoints name=\"all\">\n";
    for (size_t i = 0; text.size() < kSize; ++i)
        append(text,
               "<CgPoint name=\"%zu\" code=\"D%zu\" timeStamp=\"2020-09-17T04:54:38Z\">%.6f %.6f %.6f</CgPoint>\n", i,
               i % 50, northOf(i / 1000), eastOf(i % 1000), heightAt(i));
    return document(text + "</CgPoints>\n");
}

disk::OwnBytes copyOf(const std::string& text)
{
    std::shared_ptr<char> bytes{new char[text.size() + 1], std::default_delete<char[]>{}};
    std::memcpy(bytes.get(), text.data(), text.size());
    return {bytes, text.size()};
}

void Read(benchmark::State& state, std::string (*make)())
{
    const std::string text = make();
    for (auto _ : state)
    {
        disk::OwnBytes bytes = copyOf(text);
        survey::Survey all;
        all.files.emplace_back();
        const bench::CpuClock clock;
        survey::readLandXml(all, 0, std::move(bytes), {});
        state.SetIterationTime(clock.seconds());
        if (!all.findings.empty() || all.points.size() + all.lines.size() + all.surfaces.size() == 0)
            state.SkipWithError("not everything was read");
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}

void Parse(benchmark::State& state, std::string (*make)())
{
    const std::string text = make();
    for (auto _ : state)
    {
        const disk::OwnBytes bytes = copyOf(text);
        const bench::CpuClock clock;
        {
            pugi::xml_document document;
            if (!document.load_buffer_inplace(bytes.bytes.get(), bytes.size))
                state.SkipWithError("not parsed");
        }
        state.SetIterationTime(clock.seconds());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}

#define LANDXML_PAIR(NAME, MAKE)                                                                                       \
    BENCHMARK_CAPTURE(Read, NAME, MAKE)->Name("LandXml/" #NAME)->Unit(benchmark::kMillisecond)->UseManualTime();       \
    BENCHMARK_CAPTURE(Parse, NAME, MAKE)->Name("Pugixml/" #NAME)->Unit(benchmark::kMillisecond)->UseManualTime()
LANDXML_PAIR(triangles, triangles);
LANDXML_PAIR(lines, breakLines);
LANDXML_PAIR(points, points);

} // namespace
