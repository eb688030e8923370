// Saving a drawing in which something was drawn, beside the least that any save does: the same bytes, on the disk.
#include "bench/support/drawings.h"
#include "bench/support/open_drawing.h"
#include "host/db/entity/text_entity.h"
#include "host/db/table/symbol_tables.h"
#include "store/block_index.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <unistd.h>

namespace
{

constexpr int kLabels = 5000;
/// Saves before the one that counts. From then on each finds the memory that the one before gave back, where the first
/// ones are given memory that the system may have to fetch from elsewhere first.
constexpr int kEarlier = 4;

/// Adds labels to the model space, as a drawing command does.
void drawLabels(bench::OpenDrawing& drawing)
{
    drawing.session().documents().lockDocument(&drawing.document());
    const AcDbObjectId modelSpace{drawing.database().blocks().record(u"*Model_Space")};
    const AcDbObjectPointer<AcDbBlockTableRecord> space(modelSpace, AcDb::kForWrite);
    if (!space)
        throw std::runtime_error("the model space cannot be opened");
    for (int i = 0; i < kLabels; ++i)
    {
        auto* label = new AcDbText;
        label->setTextString(u"Nh\u00E0 c\u1EA5p 4");
        label->setPosition({580120.25 + i, 1190340.5, 0.0});
        label->setHeight(0.4);
        if (space->appendAcDbEntity(label) != Acad::eOk)
            throw std::runtime_error("a label cannot be added");
        label->close();
    }
    drawing.session().documents().unlockDocument(&drawing.document());
}

void check(bool done, const char* what)
{
    if (!done)
        throw std::runtime_error(std::string(what) + " failed");
}

void writePlainly(const std::string& path, std::string_view bytes)
{
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    check(file >= 0, "open");
    while (!bytes.empty())
    {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        check(written > 0, "write");
        bytes.remove_prefix(static_cast<size_t>(written));
    }
    check(fsync(file) == 0, "fsync");
    check(close(file) == 0, "close");
}

void Save(benchmark::State& state, const char* name)
{
    bench::OpenDrawing drawing(bench::drawingFile(name));
    drawLabels(drawing);
    const std::string out = bench::dataFolder() + "/saved.dxf";
    files::DxfWriter writer;
    for (int earlier = 0; earlier < kEarlier; ++earlier)
        writer.write(drawing.database(), out);
    for (auto _ : state)
        writer.write(drawing.database(), out);
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(std::filesystem::file_size(out)));
    std::filesystem::remove(out);
    std::filesystem::remove(out + ".bak");
}

void PlainWrite(benchmark::State& state, const char* name)
{
    const std::string out = bench::dataFolder() + "/plain.dxf";
    {
        bench::OpenDrawing drawing(bench::drawingFile(name));
        drawLabels(drawing);
        files::DxfWriter{}.write(drawing.database(), out);
    }
    const std::string bytes = bench::readWhole(out);
    // As many earlier files as a save leaves, so that both find the disk and the memory for files in the same state.
    const auto moveAway = [&out]
    {
        std::filesystem::rename(out, out + ".bak");
        std::filesystem::rename(out + ".new", out);
    };
    for (int earlier = 0; earlier < kEarlier; ++earlier)
    {
        writePlainly(out + ".new", bytes);
        moveAway();
    }
    for (auto _ : state)
    {
        writePlainly(out + ".new", bytes);
        state.PauseTiming();
        moveAway();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(bytes.size()));
    std::filesystem::remove(out);
    std::filesystem::remove(out + ".bak");
}

BENCHMARK_CAPTURE(Save, 10MB, "10mb.dxf")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(PlainWrite, 10MB, "10mb.dxf")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Save, 100MB, "100mb.dxf")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(PlainWrite, 100MB, "100mb.dxf")->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
