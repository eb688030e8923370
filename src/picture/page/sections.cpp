#include "picture/page/sections.h"

#include "host/companion/alignment.h"
#include "host/db/database.h"
#include "host/db/entity/entity.h"

#include <algorithm>
#include <unordered_map>

namespace picture
{

namespace
{

/// The places of entities of model space in its list.
class Places
{
public:
    explicit Places(const DisplayList& list) : m_list{list}
    {
        for (uint32_t i = 0; i < list.items().size(); ++i)
            m_itemOf.emplace(list.items()[i].entity, i);
    }

    void add(AcDbObjectId id, Box2d& box) const
    {
        if (id.isNull())
            return;
        if (const auto item = m_itemOf.find(id.record()); item != m_itemOf.end() && !m_list.box(item->second).isEmpty())
            box.add(m_list.box(item->second));
    }

private:
    const DisplayList& m_list;
    std::unordered_map<const ObjectRecord*, uint32_t> m_itemOf;
};

Box2d ownBox(const SectionRecord& section, const Places& places)
{
    Box2d box;
    if (section.groundLineId.isNull())
        return box;
    places.add(section.groundLineId, box);
    if (box.isEmpty())
        return box;
    box.add(section.basePoint.x, section.basePoint.y);
    // Remembered are the symbols on the plan too, far from the section's own drawing.
    const double near = std::max(box.maxX - box.minX, box.maxY - box.minY);
    const Box2d ground = box;
    for (const AcDbObjectId drawn : section.drawnIds)
        if (Box2d placed; places.add(drawn, placed), !placed.isEmpty() && !placed.isApart(ground, near / 2))
            box.add(placed);
    return box;
}

bool holds(const Box2d& outer, const Box2d& inner)
{
    return outer.minX <= inner.minX && outer.maxX >= inner.maxX && outer.minY <= inner.minY && outer.maxY >= inner.maxY;
}

/// How much of the frame reaches over a neighbour's box is taken back, on the side where that costs least.
void keepClear(Box2d& frame, const Box2d& own, const Box2d& neighbour)
{
    if (frame.isApart(neighbour, 0.0))
        return;
    if (neighbour.minX >= own.maxX)
        frame.maxX = std::min(frame.maxX, (own.maxX + neighbour.minX) / 2);
    else if (neighbour.maxX <= own.minX)
        frame.minX = std::max(frame.minX, (own.minX + neighbour.maxX) / 2);
    else if (neighbour.minY >= own.maxY)
        frame.maxY = std::min(frame.maxY, (own.maxY + neighbour.minY) / 2);
    else if (neighbour.maxY <= own.minY)
        frame.minY = std::max(frame.minY, (own.minY + neighbour.maxY) / 2);
}

/// The box grown by the entities that touch it, and by those that touch these, as long as they keep off the neighbours.
Box2d grown(const Box2d& own, const DisplayList& list, const std::vector<Box2d>& others)
{
    constexpr int kMostRounds = 6;
    Box2d frame = own;
    const auto isOfNeighbour = [&](const Box2d& box)
    { return std::any_of(others.begin(), others.end(), [&](const Box2d& other) { return !other.isApart(box, 0.0); }); };
    for (int round = 0; round < kMostRounds; ++round)
    {
        const Box2d before = frame;
        const double width = own.maxX - own.minX;
        const double height = own.maxY - own.minY;
        // A title stands a little off the line it belongs to.
        const double near = width / 25;
        const Box2d around{before.minX - near, before.minY - near, before.maxX + near, before.maxY + near};
        for (const uint32_t item : list.itemsIn(around))
        {
            const Box2d& box = list.box(item);
            // What is many times as large is no part of a section's drawing: a frame around all of them, a plan.
            const bool isLarge = box.maxX - box.minX > 3 * width || box.maxY - box.minY > 3 * (height + width);
            if (!isLarge && !isOfNeighbour(box))
                frame.add(box);
        }
        for (const Box2d& other : others)
            keepClear(frame, own, other);
        if (holds(before, frame))
            break;
    }
    return frame;
}

} // namespace

AcDbObjectIdArray alignmentsOf(AcDbDatabase& database)
{
    AcDbObjectIdArray found;
    for (const AcDbObjectId id : modelSpaceOf(database))
        if (database.dxfNameOf(*id.record()) == "PLXDBALIGNMENT")
            found.push_back(id);
    return found;
}

std::vector<Page> sectionPages(AcDbDatabase& database, const DisplayList& list, const PlxDbAlignment& alignment,
                               const std::vector<size_t>& positions)
{
    const Places places{list};
    std::vector<Box2d> boxes;
    for (const AcDbObjectId id : alignmentsOf(database))
        if (const AcDbObjectPointer<PlxDbAlignment> each{id})
            for (const SectionRecord& section : each->sections())
                boxes.push_back(ownBox(section, places));
    const double unitsPerMetre = alignment.scaleValue() > 0.0 ? 1000.0 / alignment.scaleValue() : 1.0;
    std::vector<Page> pages;
    for (const size_t position : positions)
    {
        const SectionRecord& section = alignment.sections()[position];
        Page page;
        page.title = alignment.name() + u" \u00B7 " + section.name;
        page.entry = section.name;
        page.isCutToFrame = true;
        page.millimetresPerUnit = 1000.0 / unitsPerMetre;
        const Box2d own = ownBox(section, places);
        if (own.isEmpty())
            page.message = u"Trắc ngang này không có đường tự nhiên / This section has no ground line";
        else
        {
            std::vector<Box2d> others;
            for (const Box2d& box : boxes)
                if (!box.isEmpty() && box.isApart(own, 0.0))
                    others.push_back(box);
            page.frame = grown(own, list, others);
        }
        pages.push_back(std::move(page));
    }
    return pages;
}

} // namespace picture
