#include "host/db/curve/entity_curves.h"

#include "host/db/curve/curve_readers.h"
#include "host/db/curve/insert_placement.h"
#include "host/db/damage.h"
#include "host/db/database.h"
#include "store/block_index.h"
#include "store/pair_edit.h"

#include <algorithm>

namespace
{

constexpr size_t kDeepestNesting = 100;
constexpr size_t kMostCurves = 1'000'000;

/// Gathers what a block reference draws, blocks inside blocks included.
class BlockCurves
{
public:
    void add(ObjectRecord& entity, const AcGeMatrix3d& placed);
    std::vector<CurvePath> take() { return std::move(m_curves); }

private:
    void addInside(ObjectRecord& entity, const AcGeMatrix3d& placed);
    void addReference(ObjectRecord& reference, const AcGeMatrix3d& placed);
    void addDimension(ObjectRecord& dimension, const AcGeMatrix3d& placed);
    void addContents(AcDbDatabase& drawing, const std::u16string& block, const std::vector<AcGeMatrix3d>& places);
    void addPlaced(const CurvePath& curve, const AcGeMatrix3d& placed);

    std::vector<CurvePath> m_curves;
    std::vector<const Container*> m_open; ///< the blocks that stand around the entity at hand
    size_t m_visited = 0;
};

void BlockCurves::addPlaced(const CurvePath& curve, const AcGeMatrix3d& placed)
{
    m_curves.push_back(m_open.empty() ? curve : curve.transformed(placed));
}

void BlockCurves::add(ObjectRecord& entity, const AcGeMatrix3d& placed)
{
    if (++m_visited > kMostCurves || m_curves.size() > kMostCurves)
        return;
    const std::string_view kind = entity.database->dxfNameOf(entity);
    if (kind == "INSERT")
        return addReference(entity, placed);
    if (kind == "DIMENSION")
        return addDimension(entity, placed);
    if (kind == "POLYLINE")
    {
        if (const CurvePath shape = readVertexPolyline(entity); !shape.isEmpty())
            addPlaced(shape, placed);
        return;
    }
    for (const CurvePath& curve : curvesOfPairs(kind, entity.view()))
        addPlaced(curve, placed);
}

/// What is damaged inside a block draws nothing.
void BlockCurves::addInside(ObjectRecord& entity, const AcGeMatrix3d& placed)
{
    try
    {
        add(entity, placed);
    }
    catch (const DamagedValue& damage)
    {
        host::noteDamage(entity, damage);
    }
}

void BlockCurves::addReference(ObjectRecord& reference, const AcGeMatrix3d& placed)
{
    const InsertPlacement insert = readInsertPlacement(reference.view());
    std::vector<AcGeMatrix3d> places;
    const size_t count = std::min(insert.count(), kMostCurves - std::min(kMostCurves, m_visited));
    for (size_t i = 0; i < count; ++i)
        places.push_back(placed * insert.toWorld(i));
    m_visited += count;
    addContents(*reference.database, reference.database->encoding().decode(insert.block), places);
}

void BlockCurves::addDimension(ObjectRecord& dimension, const AcGeMatrix3d& placed)
{
    OwnPairs pairs{dimension.view()};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 2)
            return addContents(*dimension.database, dimension.database->encoding().decode(tag.word()), {placed});
}

void BlockCurves::addContents(AcDbDatabase& drawing, const std::u16string& block,
                              const std::vector<AcGeMatrix3d>& places)
{
    const Container* contents = drawing.blocks().contents(block);
    if (contents == nullptr || m_open.size() >= kDeepestNesting ||
        std::find(m_open.begin(), m_open.end(), contents) != m_open.end())
        return;
    const auto index = static_cast<uint32_t>(contents - drawing.store().containers.data());
    const host::InPassing inPassing;
    const auto base = host::readOf(*contents->head, [&] { return std::optional{basePointOf(*contents)}; });
    if (!base)
        return;
    const AcDbObjectIdArray entities = drawing.blocks().entitiesIn(index, false);
    m_open.push_back(contents);
    for (const AcGeMatrix3d& place : places)
        for (const AcDbObjectId id : entities)
            addInside(*id.record(), place * AcGeMatrix3d::translation(AcGePoint3d::kOrigin - *base));
    m_open.pop_back();
}

} // namespace

std::vector<CurvePath> curvesOfEntity(ObjectRecord& record)
{
    BlockCurves curves;
    curves.add(record, AcGeMatrix3d::kIdentity);
    return curves.take();
}

std::optional<AcGePoint3d> readInsertionPoint(std::string_view text)
{
    OwnPairs pairs{text};
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    std::optional<AcGePoint3d> point;
    for (Tag tag; pairs.next(tag);)
    {
        if (tag.code == 10 && !point)
            point = pairs.pointFrom(tag);
        else if (tag.code == 210)
            normal = pairs.pointFrom(tag).asVector();
    }
    return point ? std::optional{AcGeMatrix3d::planeToWorld(normal) * *point} : std::nullopt;
}
