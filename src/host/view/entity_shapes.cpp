#include "host/view/entity_shapes.h"

#include "host/db/curve/entity_curves.h"
#include "host/db/curve/insert_placement.h"
#include "host/db/damage.h"
#include "host/db/database.h"
#include "host/db/entity/entity.h"
#include "kernel/plan_region.h"
#include "store/block_index.h"

#include <algorithm>
#include <array>

namespace
{

constexpr size_t kDeepestNesting = 100;
constexpr size_t kMostVisits = 100'000;

/// The most lines of a run: so few that their box tells something of them.
constexpr size_t kLongestRun = 16;

/// Points joined by straight lines, and the box around them; a single point stands for itself.
struct Run
{
    AcGePoint3dArray points;
    AcGeExtents box;
};

/// The curve as runs, each going on where the last one ended.
void appendRuns(const CurvePath& curve, std::vector<Run>& runs)
{
    const AcGePoint3dArray points = curve.flatten();
    for (size_t begin = 0; begin < points.size(); begin += kLongestRun)
    {
        if (begin > 0 && begin + 1 == points.size())
            break; // the end of the run before
        const size_t end = std::min(begin + kLongestRun + 1, points.size());
        Run& run = runs.emplace_back();
        run.points.assign(points.begin() + static_cast<ptrdiff_t>(begin), points.begin() + static_cast<ptrdiff_t>(end));
        for (const AcGePoint3d& point : run.points)
            run.box.addPoint(point);
    }
}

/// A box around what the map makes of a box.
AcGeExtents transformed(const AcGeExtents& box, const AcGeMatrix3d& map)
{
    AcGeExtents result;
    if (!box.isValid())
        return result;
    AcGePoint3d low = map.origin();
    AcGePoint3d high = low;
    const auto stretch = [&](const AcGeVector3d& from, const AcGeVector3d& to)
    {
        low += AcGeVector3d{std::min(from.x, to.x), std::min(from.y, to.y), std::min(from.z, to.z)};
        high += AcGeVector3d{std::max(from.x, to.x), std::max(from.y, to.y), std::max(from.z, to.z)};
    };
    stretch(map.column(0) * box.minPoint().x, map.column(0) * box.maxPoint().x);
    stretch(map.column(1) * box.minPoint().y, map.column(1) * box.maxPoint().y);
    stretch(map.column(2) * box.minPoint().z, map.column(2) * box.maxPoint().z);
    result.addPoint(low);
    result.addPoint(high);
    return result;
}

bool isReference(const ObjectRecord& entity)
{
    return entity.database->dxfNameOf(entity) == "INSERT";
}

bool isSurveyPoint(const ObjectRecord& entity)
{
    return entity.database->dxfNameOf(entity) == "PLXDBMEASUREPOINTOBJ";
}

std::vector<CurvePath> curvesOf(ObjectRecord& entity)
{
    if (isSurveyPoint(entity))
        return {};
    const AcDbObjectPointer<AcDbEntity> opened{AcDbObjectId{&entity}};
    return opened ? opened->curves() : std::vector<CurvePath>{};
}

/// Where an entity without curves stands, if anywhere; a damaged one stands nowhere.
AcGeExtents standingPlace(const ObjectRecord& entity)
{
    AcGeExtents place;
    if (entity.has(ObjectRecord::kDamaged))
        return place;
    if (const auto point = readInsertionPoint(entity.view()))
        place.addPoint(*point);
    return place;
}

AcGePoint3d insertionPoint(const InsertPlacement& reference)
{
    return AcGeMatrix3d::planeToWorld(reference.normal) * reference.position;
}

/// Whether the run has a point in the region (for a window: all of it lies there).
bool runMeets(const Run& run, const AcGeMatrix3d& placed, const PlanRegion& region)
{
    const bool seekMeeting = region.kind() != PlanRegion::Kind::Window;
    if (run.box.isValid() && region.isApart(boxInPlan(transformed(run.box, placed))))
        return false;
    if (run.points.size() == 1)
        return region.meetsPoint(placed * run.points.front());
    AcGePoint3d from = placed * run.points.front();
    for (size_t i = 1; i < run.points.size(); ++i)
    {
        const AcGePoint3d to = placed * run.points[i];
        if (region.meetsLine(from, to) == seekMeeting)
            return seekMeeting;
        from = to;
    }
    return !seekMeeting;
}

} // namespace

Box2d boxInPlan(const AcGeExtents& extents)
{
    Box2d box;
    if (extents.isValid())
    {
        box.add(extents.minPoint().x, extents.minPoint().y);
        box.add(extents.maxPoint().x, extents.maxPoint().y);
    }
    return box;
}

/// What a block definition draws, in its own coordinates.
struct EntityShapes::Block
{
    AcGePoint3d base;
    std::vector<Run> runs;
    std::vector<InsertPlacement> references;
    AcGeExtents box;

    /// Carries the definition's coordinates to where the index-th of a reference's copies stands.
    AcGeMatrix3d placed(const InsertPlacement& reference, size_t index) const
    {
        return reference.toWorld(index) * AcGeMatrix3d::translation(AcGePoint3d::kOrigin - base);
    }
};

/// A walk over everything a reference draws, blocks in blocks included, that ends with the first run that decides
/// whether the reference meets the region: for a window one outside, else one that meets it.
class EntityShapes::Walk
{
public:
    Walk(EntityShapes& shapes, const PlanRegion& region)
        : m_shapes{shapes}, m_region{region}, m_seekMeeting{region.kind() != PlanRegion::Kind::Window}
    {
    }

    bool meets(const InsertPlacement& reference) { return visit(reference, {}, 0) == m_seekMeeting; }

private:
    bool visit(const InsertPlacement& reference, const AcGeMatrix3d& outer, size_t depth)
    {
        const Block* block = depth < kDeepestNesting ? m_shapes.block(reference.block, depth) : nullptr;
        for (size_t i = 0; block != nullptr && i < reference.count(); ++i)
        {
            // Copies and nestings without end are taken to meet what they come near to.
            if (++m_visits > kMostVisits)
                return true;
            const AcGeMatrix3d placed = outer * block->placed(reference, i);
            if (m_seekMeeting && m_region.isApart(boxInPlan(transformed(block->box, placed))))
                continue;
            if (visitContents(*block, placed, depth))
                return true;
        }
        return false;
    }

    bool visitContents(const Block& block, const AcGeMatrix3d& placed, size_t depth)
    {
        for (const Run& run : block.runs)
            if (runMeets(run, placed, m_region) == m_seekMeeting)
                return true;
        return std::any_of(block.references.begin(), block.references.end(),
                           [&](const InsertPlacement& inner) { return visit(inner, placed, depth + 1); });
    }

    EntityShapes& m_shapes;
    const PlanRegion& m_region;
    bool m_seekMeeting;
    size_t m_visits = 0;
};

EntityShapes::EntityShapes(AcDbDatabase& database) : m_database{database} {}
EntityShapes::~EntityShapes() = default;

void EntityShapes::forget()
{
    m_blocks.clear();
}

const EntityShapes::Block* EntityShapes::block(std::string_view name, size_t depth)
{
    if (const auto known = m_blocks.find(name); known != m_blocks.end())
        return known->second.get();
    const Container* contents = m_database.blocks().contents(m_database.encoding().decode(name));
    // Entered before it is filled: a block that leads back to itself finds itself empty there.
    Block* fresh = m_blocks.emplace(name, std::make_unique<Block>()).first->second.get();
    if (contents != nullptr)
        load(*fresh, static_cast<uint32_t>(contents - m_database.store().containers.data()), depth);
    return fresh;
}

void EntityShapes::load(Block& block, uint32_t container, size_t depth)
{
    const host::InPassing inPassing;
    Block loaded;
    if (ObjectRecord* head = m_database.store().containers[container].head)
    {
        loaded.base = host::readOf(*head, [&] { return readInsertionPoint(head->view()); }).value_or(AcGePoint3d{});
        if (head->has(ObjectRecord::kDamaged))
            return;
    }
    for (const AcDbObjectId id : m_database.blocks().entitiesIn(container, false))
    {
        ObjectRecord& entity = *id.record();
        if (isReference(entity))
        {
            const auto reference =
                host::readOf(entity, [&] { return std::optional{readInsertPlacement(entity.view())}; });
            if (!reference)
                continue;
            loaded.references.push_back(*reference);
            if (depth < kDeepestNesting)
                loaded.box.addExtents(placedBox(loaded.references.back(), depth + 1));
            continue;
        }
        for (const CurvePath& curve : curvesOf(entity))
        {
            appendRuns(curve, loaded.runs);
            loaded.box.addExtents(curve.extents());
        }
    }
    block = std::move(loaded);
}

/// Empty when the reference draws nothing.
AcGeExtents EntityShapes::placedBox(const InsertPlacement& reference, size_t depth)
{
    AcGeExtents box;
    const Block* drawn = block(reference.block, depth);
    box = transformed(drawn->box, drawn->placed(reference, 0));
    if (reference.count() == 1)
        return box;
    const size_t lastColumn = static_cast<size_t>(reference.columns) - 1;
    const size_t lastRow = reference.count() - 1 - lastColumn;
    for (const size_t corner : {lastColumn, lastRow, lastRow + lastColumn})
        box.addExtents(transformed(drawn->box, drawn->placed(reference, corner)));
    return box;
}

AcGeExtents EntityShapes::box(ObjectRecord& entity)
{
    const host::InPassing inPassing;
    return host::readOf(entity, [&] { return boxOf(entity); });
}

AcGeExtents EntityShapes::boxOf(ObjectRecord& entity)
{
    AcGeExtents box;
    if (isReference(entity))
    {
        const InsertPlacement reference = readInsertPlacement(entity.view());
        box = placedBox(reference, 0);
        if (!box.isValid())
            box.addPoint(insertionPoint(reference));
        return box;
    }
    for (const CurvePath& curve : curvesOf(entity))
        box.addExtents(curve.extents());
    return box.isValid() ? box : standingPlace(entity);
}

bool EntityShapes::meets(ObjectRecord& entity, const PlanRegion& region)
{
    const host::InPassing inPassing;
    const auto meets = [&]
    {
        return isReference(entity) ? referenceMeets(readInsertPlacement(entity.view()), region)
                                   : curvesMeet(entity, region);
    };
    return host::readOf(entity, meets);
}

bool EntityShapes::referenceMeets(const InsertPlacement& reference, const PlanRegion& region)
{
    const AcGeExtents around = placedBox(reference, 0);
    if (!around.isValid())
        return region.meetsPoint(insertionPoint(reference));
    const Box2d box = boxInPlan(around);
    return !region.isApart(box) && (region.holdsBox(box) || Walk{*this, region}.meets(reference));
}

bool EntityShapes::curvesMeet(ObjectRecord& entity, const PlanRegion& region)
{
    const std::vector<CurvePath> curves = curvesOf(entity);
    if (curves.empty())
    {
        const AcGeExtents place = standingPlace(entity);
        return place.isValid() && region.meetsPoint(place.minPoint());
    }
    std::vector<Run> runs;
    for (const CurvePath& curve : curves)
        appendRuns(curve, runs);
    const auto meets = [&region](const Run& run) { return runMeets(run, AcGeMatrix3d::kIdentity, region); };
    return region.kind() == PlanRegion::Kind::Window ? !runs.empty() && std::all_of(runs.begin(), runs.end(), meets)
                                                     : std::any_of(runs.begin(), runs.end(), meets);
}
