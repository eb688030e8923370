#include "section_desk.h"

#include "host/db/entity/block_reference.h"
#include "host/db/entity/polyline.h"
#include "host/db/entity/text_entity.h"
#include "host/db/host_services.h"
#include "host/db/table/symbol_tables.h"
#include "store/text/text.h"

#include <sstream>

namespace
{

AcDbObjectId spaceId()
{
    AcDbDatabase& drawing = *acdbHostApplicationServices()->workingDatabase();
    const AcDbObjectPointer<AcDbBlockTable> blocks(drawing.tableId(AcDbBlockTable::desc()));
    AcDbObjectId id;
    blocks->getIdAt(u"*Model_Space", id);
    return id;
}

std::ostream& operator<<(std::ostream& out, const AcGePoint3d& point)
{
    out << "(" << point.x << "," << point.y;
    if (point.z != 0.0)
        out << "," << point.z;
    return out << ")";
}

void describeShape(std::ostream& out, const AcDbEntity& entity)
{
    if (const auto* line = dynamic_cast<const AcDbPolyline*>(&entity))
    {
        out << "line";
        AcGePoint3d point;
        for (unsigned i = 0; line->getPointAt(i, point) == Acad::eOk; ++i)
            out << " " << point;
    }
    else if (const auto* text = dynamic_cast<const AcDbText*>(&entity))
    {
        EXPECT_EQ(text->horizontalMode(), AcDb::kTextCenter);
        EXPECT_TRUE(text->position().isEqualTo(text->alignmentPoint()));
        out << "text " << toUtf8(text->textString()) << " " << text->position() << " h" << text->height();
    }
    else if (const auto* block = dynamic_cast<const AcDbBlockReference*>(&entity))
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> definition(block->blockTableRecord());
        const AcGeScale3d scale = block->scaleFactors();
        out << "block " << toUtf8(definition->getName()) << " " << block->position() << " x" << scale.sx << ","
            << scale.sy << "," << scale.sz << " r" << block->rotation();
    }
}

void describeMark(std::ostream& out, const AcDbObject& object)
{
    const ResbufPtr data(object.xData(u"PLX_GEOPOINT"));
    for (const resbuf* item = data.get(); item != nullptr; item = item->rbnext)
        out << " [" << item->restype << " " << toUtf8(item->resval.rstring) << "]";
}

std::string describeOne(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbEntity> entity(id);
    if (!entity)
        return id.isNull() ? "null" : "gone";
    std::ostringstream out;
    out.precision(10);
    describeShape(out, *entity);
    if (entity->layer() != u"0")
        out << " on " << toUtf8(entity->layer());
    if (entity->colorIndex() != 256)
        out << " colour " << entity->colorIndex();
    describeMark(out, *entity);
    return out.str();
}

} // namespace

SectionRecord SectionDesk::record(size_t position, size_t alignment) const
{
    const AcDbObjectPointer<PlxDbAlignment> opened(g_DatabaseCS.m_listReferenceLines[alignment].m_idAlignment);
    return opened->sections().at(position);
}

AcDbObjectIdArray SectionDesk::living() const
{
    return AcDbObjectPointer<AcDbBlockTableRecord>(spaceId())->entityIds();
}

std::vector<std::string> SectionDesk::describe(const AcDbObjectIdArray& ids)
{
    std::vector<std::string> lines;
    for (const AcDbObjectId id : ids)
        lines.push_back(describeOne(id));
    return lines;
}
