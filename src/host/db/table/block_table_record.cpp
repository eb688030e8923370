#include "host/db/damage.h"
#include "host/db/database.h"
#include "host/db/host_services.h"
#include "host/db/table/new_block.h"
#include "host/db/table/symbol_tables.h"
#include "store/block_index.h"
#include "store/pair_edit.h"
#include "store/table_index.h"

ACRX_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, u"BLOCK_RECORD")

namespace
{

std::u16string currentLayer(AcDbDatabase& drawing)
{
    const AcDbObjectId id = drawing.clayer();
    return id.isNull() ? std::u16string{u"0"} : nameOfRecord(*id.record());
}

} // namespace

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity)
{
    if (entity == nullptr)
        return Acad::eNullObjectPointer;
    if (!isWriteEnabled())
    {
        assertWriteEnabled();
        return Acad::eNotOpenForWrite;
    }
    if (!entity->objectId().isNull())
        return Acad::eAlreadyInDb;
    if (entity->isA()->dxfName() == nullptr)
        return Acad::eNotImplementedYet;
    if (acdbHostApplicationServices()->refusesAppend())
        return Acad::eLockViolation;
    AcDbDatabase& drawing = *database();
    const ObjectRecord& block = *objectId().record();
    const uint32_t container = drawing.blocks().containerOf(block);
    if (container == BlockIndex::npos)
        return Acad::eKeyNotFound;
    if (entity->m_layer.empty())
        entity->m_layer = currentLayer(drawing);
    ObjectRecord& record = drawing.take(*entity, container, block.handle);
    record.set(ObjectRecord::kPaperSpace, drawing.blocks().isPaperSpace(block));
    entity->addParts();
    id = entity->objectId();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity)
{
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

AcDbObjectIdArray AcDbBlockTableRecord::entityIds() const
{
    return database()->blocks().entities(*objectId().record());
}

AcGePoint3d AcDbBlockTableRecord::origin() const
{
    const Container* contents = database()->blocks().contents(getName());
    if (contents == nullptr)
        return {};
    return host::readOf(*contents->head, [&] { return basePointOf(*contents); });
}

void AcDbBlockTableRecord::encode(TagWriter& out) const
{
    encodeBlockRecord(out, *database(), getName());
}
