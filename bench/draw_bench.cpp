// Drawing features onto sections: entities a second, and one probe of a ground line. The symbols' blocks are in the
// drawing already, as after a first run.
#include "bench/support/cpu_clock.h"
#include "bench/support/drawings.h"
#include "bench/support/open_drawing.h"
#include "host/db/entity/polyline.h"
#include "host/db/table/symbol_tables.h"
#include "sectiondraw/alignment_drawing.h"
#include "sectiondraw/draw_style.h"
#include "sectiondraw/ground_line.h"
#include "sections/database_cs.h"
#include "sections/scan.h"
#include "store/block_index.h"
#include "util/document_lock.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <filesystem>
#include <numeric>
#include <unordered_map>

namespace
{

/// Gives every name and code one of the sample's symbols, in turn.
class SymbolChoice
{
public:
    SymbolChoice()
    {
        for (const auto& entry : std::filesystem::directory_iterator(VELOXA_SYMBOLS))
            m_files.push_back(entry.path().u16string());
        std::sort(m_files.begin(), m_files.end());
    }

    void applyTo(CrossSectionXdata& section)
    {
        for (ListBlockData* rows : {&section.m_listBlockData1, &section.m_listBlockData2})
            for (BlockData& row : *rows)
                row.m_strFile = fileOf(row.m_strName);
        for (ListBlockFcode* rows : {&section.m_listBlockFcode1, &section.m_listBlockFcode2})
            for (BlockFcode& row : *rows)
                row.m_strFile = fileOf(row.m_strFcode);
    }

private:
    const std::u16string& fileOf(const std::u16string& name)
    {
        const auto at = m_chosen.try_emplace(name, m_chosen.size()).first;
        return m_files[at->second % m_files.size()];
    }

    std::vector<std::u16string> m_files;
    std::unordered_map<std::u16string, size_t> m_chosen;
};

std::vector<size_t> allOf(const ItemReferenceLine& line)
{
    std::vector<size_t> positions(line.m_listCrossSections.size());
    std::iota(positions.begin(), positions.end(), size_t{0});
    return positions;
}

size_t drawAll(DatabaseCS& tree)
{
    size_t placed = 0;
    for (ItemReferenceLine& line : tree.m_listReferenceLines)
    {
        DrawSections(line, allOf(line), MakeDrawStyle(tree));
        for (const CrossSectionXdata& section : line.m_listCrossSections)
            placed += section.m_arrDrawnIds.size();
    }
    return placed;
}

void Draw(benchmark::State& state, const char* name)
{
    bench::OpenDrawing drawing(bench::drawingFile(name));
    const OpenForWrite lock;
    DatabaseCS tree;
    tree.m_arrDrawFlags.assign(kDrawOptionCount, 1);
    tree.m_arrLayerNames.assign(kDrawOptionCount, u"0");
    ScanCrossSections(tree);
    SymbolChoice symbols;
    for (ItemReferenceLine& line : tree.m_listReferenceLines)
        for (CrossSectionXdata& section : line.m_listCrossSections)
            symbols.applyTo(section);
    size_t placed = drawAll(tree);
    size_t entities = 0;
    for (auto _ : state)
    {
        for (ItemReferenceLine& line : tree.m_listReferenceLines)
            EraseSections(line);
        const bench::CpuClock clock;
        placed = drawAll(tree);
        state.SetIterationTime(clock.seconds());
        entities += placed;
    }
    state.SetItemsProcessed(static_cast<int64_t>(entities));
    state.counters["placed"] = static_cast<double>(placed);
}

BENCHMARK_CAPTURE(Draw, 10km, "10km.dxf")->Unit(benchmark::kMillisecond)->UseManualTime();

/// One probe of a ground line of 100 vertices.
void GroundPoint(benchmark::State& state)
{
    constexpr int kVertices = 100;
    bench::OpenDrawing drawing(bench::drawingFile("10km.dxf"));
    const OpenForWrite lock;
    auto* line = new AcDbPolyline(kVertices);
    for (int i = 0; i < kVertices; ++i)
        line->addVertexAt(static_cast<unsigned>(i), {i - kVertices / 2.0, 10.0 + (i * 7 % 5)});
    CrossSectionXdata section;
    section.m_dScale = 1.0;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(
        AcDbObjectId{drawing.database().blocks().record(u"*Model_Space")}, AcDb::kForWrite);
    space->appendAcDbEntity(section.m_idGroundLine, line);
    line->close();

    GroundLine ground(section);
    double offset = 0.0;
    for (auto _ : state)
    {
        // Offsets all over the line, in no order.
        offset = offset > 0.0 ? offset - 31.37 : offset + 17.91;
        const auto point = ground.FindGroundPoint(offset);
        if (!point)
            state.SkipWithError("no ground");
        benchmark::DoNotOptimize(point);
    }
}

BENCHMARK(GroundPoint)->Name("GroundPoint/100");

} // namespace
