// The refresh of all sections in a drawing that was just loaded, what it builds on the way included, beside one pass
// that reads the position of every point and block reference once, and beside testing each of them for each section.
#include "bench/support/cpu_clock.h"
#include "bench/support/drawings.h"
#include "bench/support/open_drawing.h"
#include "host/companion/measure_point.h"
#include "host/db/entity/block_reference.h"
#include "sections/database_cs.h"
#include "sections/refresh.h"
#include "sections/scan.h"
#include "store/block_index.h"

#include <algorithm>
#include <benchmark/benchmark.h>

namespace
{

constexpr size_t kStep = 100;

AcDbObjectIdArray modelSpace(AcDbDatabase& database)
{
    return database.blocks().entities(*database.blocks().record(u"*Model_Space"));
}

/// The position of a survey point or block reference; nothing for any other object.
std::optional<AcGePoint3d> positionOf(const AcDbObject& object)
{
    if (object.isKindOf(PlxDbMeasurePointObj::desc()))
        return static_cast<const PlxDbMeasurePointObj&>(object).GetPoint();
    if (object.isKindOf(AcDbBlockReference::desc()))
        return static_cast<const AcDbBlockReference&>(object).position();
    return std::nullopt;
}

bool hasPosition(AcDbDatabase& database, AcDbObjectId id)
{
    const AcRxClass* kind = database.classOf(*id.record());
    return kind != nullptr &&
           (kind->isDerivedFrom(PlxDbMeasurePointObj::desc()) || kind->isDerivedFrom(AcDbBlockReference::desc()));
}

/// Whether a position is one that the refresh looks for: in the band, and at an offset.
bool isNear(const CrossSectionXdata& section, const DatabaseCS& settings, const AcGePoint3d& position)
{
    const AcGeVector3d way{position.x - section.m_ptCenter.x, position.y - section.m_ptCenter.y, 0.0};
    const double along = way.dotProduct(section.m_vecDir);
    const double ahead = section.m_vecDir.x * way.y - section.m_vecDir.y * way.x;
    return std::fabs(along) <= section.m_dExtent1 && along != 0.0 && ahead <= settings.m_dForwardDistance &&
           ahead >= -settings.m_dBackwardDistance;
}

/// The coded survey points near a section, each object opened and asked.
std::vector<AcDbObjectId> pointsNear(const CrossSectionXdata& section, const DatabaseCS& settings,
                                     const AcDbObjectIdArray& objects)
{
    std::vector<AcDbObjectId> found;
    for (const AcDbObjectId id : objects)
    {
        const AcDbObjectPointer<AcDbObject> object(id);
        const auto position = positionOf(*object);
        if (!position || !isNear(section, settings, *position) || !object->isKindOf(PlxDbMeasurePointObj::desc()))
            continue;
        if (!static_cast<const PlxDbMeasurePointObj&>(*object).Get(1).empty())
            found.push_back(id);
    }
    return found;
}

std::vector<CrossSectionXdata*> sectionsOf(DatabaseCS& tree)
{
    std::vector<CrossSectionXdata*> sections;
    for (ItemReferenceLine& line : tree.m_listReferenceLines)
        for (CrossSectionXdata& section : line.m_listCrossSections)
            sections.push_back(&section);
    return sections;
}

void Refresh(benchmark::State& state)
{
    const std::string path = bench::drawingFile("refresh.dxf");
    size_t rows = 0;
    for (auto _ : state)
    {
        bench::OpenDrawing drawing(path);
        DatabaseCS tree;
        ScanCrossSections(tree);
        drawing.document().view().zoomExtents();
        const bench::CpuClock clock;
        RefreshAllSections(tree);
        state.SetIterationTime(clock.seconds());
        rows = 0;
        for (const CrossSectionXdata* section : sectionsOf(tree))
            rows += section->m_listBlockData1.size();
    }
    state.counters["rows"] = static_cast<double>(rows);
}

void Positions(benchmark::State& state)
{
    const std::string path = bench::drawingFile("refresh.dxf");
    size_t objects = 0;
    for (auto _ : state)
    {
        bench::OpenDrawing drawing(path);
        DatabaseCS tree;
        ScanCrossSections(tree);
        const bench::CpuClock clock;
        AcGePoint3d highest;
        objects = 0;
        for (const AcDbObjectId id : modelSpace(drawing.database()))
            if (hasPosition(drawing.database(), id))
            {
                const AcDbObjectPointer<AcDbObject> object(id);
                const auto position = positionOf(*object);
                if (position && position->z > highest.z)
                    highest = *position;
                ++objects;
            }
        benchmark::DoNotOptimize(highest);
        state.SetIterationTime(clock.seconds());
    }
    state.counters["objects"] = static_cast<double>(objects);
}

/// For every `kStep`-th section, its time multiplied as if it had been all. Finds the same survey points as the
/// refresh.
void RefreshPlain(benchmark::State& state)
{
    bench::OpenDrawing drawing(bench::drawingFile("refresh.dxf"));
    DatabaseCS tree;
    ScanCrossSections(tree);
    drawing.document().view().zoomExtents();
    RefreshAllSections(tree);
    AcDbObjectIdArray objects = modelSpace(drawing.database());
    std::erase_if(objects, [&](AcDbObjectId id) { return !hasPosition(drawing.database(), id); });
    const std::vector<CrossSectionXdata*> sections = sectionsOf(tree);
    for (auto _ : state)
    {
        double seconds = 0.0;
        size_t asked = 0;
        for (size_t i = 0; i < sections.size(); i += kStep, ++asked)
        {
            const bench::CpuClock clock;
            const std::vector<AcDbObjectId> found = pointsNear(*sections[i], tree, objects);
            seconds += clock.seconds();
            std::vector<AcDbObjectId> rows;
            for (const BlockData& row : sections[i]->m_listBlockData1)
                if (AcDbObjectPointer<PlxDbMeasurePointObj>(row.m_idBlock))
                    rows.push_back(row.m_idBlock);
            if (rows != found)
                state.SkipWithError("other points than the refresh finds");
        }
        state.SetIterationTime(seconds * static_cast<double>(sections.size()) / static_cast<double>(asked));
    }
}

BENCHMARK(Refresh)->Name("Refresh/1000")->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(Positions)->Name("Positions/1000")->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(RefreshPlain)->Name("RefreshPlain/1000")->Unit(benchmark::kMillisecond)->UseManualTime();

} // namespace
