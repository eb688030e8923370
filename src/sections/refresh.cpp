#include "sections/refresh.h"

#include "dbkit/filter_objects.h"
#include "host/companion/measure_point.h"
#include "host/db/entity/block_reference.h"
#include "kernel/crossing/plane_crossing.h"
#include "sections/database_cs.h"
#include "sections/ownership.h"
#include "sections/survey_info.h"
#include "util/document_lock.h"

#include <cmath>
#include <unordered_map>

namespace
{

constexpr int kCodeField = 1;
constexpr double kProbeReach = 1000.0;

/// A coded object that may stand beside a section.
struct NearObject
{
    AcGePoint3d position;
    std::u16string code;
};

std::optional<NearObject> read(AcDbObjectId id, SurveyInfoReader& info)
{
    const AcDbObjectPointer<AcDbObject> object(id);
    if (!object)
        return std::nullopt;
    if (object->isKindOf(PlxDbMeasurePointObj::desc()))
    {
        const auto& point = static_cast<const PlxDbMeasurePointObj&>(*object);
        NearObject found{point.GetPoint(), point.Get(kCodeField)};
        return found.code.empty() ? std::nullopt : std::optional{std::move(found)};
    }
    if (!object->isKindOf(AcDbBlockReference::desc()))
        return std::nullopt;
    std::optional<std::u16string> code = info.codeOf(*object);
    if (!code)
        return std::nullopt;
    return NearObject{static_cast<const AcDbBlockReference&>(*object).position(), std::move(*code)};
}

BoxedSegment straight(const AcGePoint3d& from, const AcGePoint3d& to)
{
    return {PathVertex{from.x, from.y}, PathVertex{to.x, to.y}};
}

/// Where an object stands along a section: seen square to it, on one of the halves that begin at its midpoint.
class OffsetFinder
{
public:
    OffsetFinder(const CrossSectionXdata& section, const AcGeVector3d& ahead)
        : m_center(section.m_ptCenter), m_ahead(ahead),
          m_halfA(straight(m_center, m_center + section.m_vecDir * section.m_dExtent1)),
          m_halfB(straight(m_center, m_center - section.m_vecDir * section.m_dExtent1))
    {
    }

    /// Negative on the half towards end A; 0 beside neither.
    double offsetOf(const AcGePoint3d& position) const
    {
        const BoxedSegment probe = straight(position - m_ahead * kProbeReach, position + m_ahead * kProbeReach);
        if (const auto distance = distanceOn(m_halfA, probe))
            return -*distance;
        return distanceOn(m_halfB, probe).value_or(0.0);
    }

private:
    std::optional<double> distanceOn(const BoxedSegment& half, const BoxedSegment& probe) const
    {
        PlaceList places;
        findCrossings(probe, half, places);
        if (places.count() == 0)
            return std::nullopt;
        return places.begin()->distanceTo({m_center.x, m_center.y});
    }

    AcGePoint3d m_center;
    AcGeVector3d m_ahead;
    BoxedSegment m_halfA;
    BoxedSegment m_halfB;
};

AcDbObjectIdArray selectBand(const CrossSectionXdata& section, const AcGeVector3d& ahead, double forward,
                             double backward)
{
    const AcGePoint3d back = section.m_ptCenter - ahead * backward;
    const AcGePoint3d front = section.m_ptCenter + ahead * forward;
    const AcGeVector3d reach1 = section.m_vecDir * section.m_dExtent1;
    const AcGeVector3d reach2 = section.m_vecDir * section.m_dExtent2;
    FilterObjects filter;
    filter.AddClass(AcDbBlockReference::desc()->dxfName());
    filter.AddClass(PlxDbMeasurePointObj::desc()->dxfName());
    filter.SelectByPolygon({back + reach1, back - reach2, front - reach2, front + reach2}, PolygonMode::kCrossing);
    return filter.ids();
}

BlockData makeRow(AcDbObjectId id, NearObject object, const OffsetFinder& finder, const SymbolLook& look)
{
    BlockData row;
    row.look() = look;
    row.m_idBlock = id;
    row.m_dOffset1 = finder.offsetOf(object.position);
    row.m_strName = std::move(object.code);
    return row;
}

void refresh(CrossSectionXdata& section, double forward, double backward, const SymbolLook& look,
             SurveyInfoReader& info)
{
    const ListBlockData old = std::move(section.m_listBlockData1);
    section.m_listBlockData1.clear();
    std::unordered_map<AcDbObjectId, const BlockData*> oldById;
    for (const BlockData& row : old)
        oldById.try_emplace(row.m_idBlock, &row);

    const AcGeVector3d ahead = section.m_vecDir.perpVector();
    const OffsetFinder finder(section, ahead);
    for (const AcDbObjectId id : selectBand(section, ahead, forward, backward))
    {
        std::optional<NearObject> object = read(id, info);
        if (!object)
            continue;
        const auto known = oldById.find(id);
        BlockData row = known != oldById.end() ? *known->second : makeRow(id, std::move(*object), finder, look);
        if (std::fabs(row.m_dOffset1) > 0.0)
            section.m_listBlockData1.append(std::move(row));
    }
}

} // namespace

void RefreshSection(CrossSectionXdata& section, double forward, double backward, const SymbolLook& look)
{
    const OpenForWrite lock;
    SurveyInfoReader info;
    refresh(section, forward, backward, look, info);
}

void RefreshAllSections(DatabaseCS& database)
{
    const OpenForWrite lock;
    const SymbolLook look = database.symbolScales();
    SurveyInfoReader info;
    for (ItemReferenceLine& alignment : database.m_listReferenceLines)
        if (BelongsToDrawing(alignment))
            for (CrossSectionXdata& section : alignment.m_listCrossSections)
                refresh(section, database.m_dForwardDistance, database.m_dBackwardDistance, look, info);
}
