#include "dbkit/placing.h"

#include "host/db/database.h"
#include "host/db/host_services.h"
#include "host/db/table/symbol_tables.h"

namespace
{

AcDbDatabase* drawing()
{
    return acdbHostApplicationServices()->workingDatabase();
}

const char16_t* blockNameOf(Space space)
{
    const bool paper = space == Space::kPaper || (space == Space::kCurrent && !drawing()->tilemode());
    return paper ? u"*Paper_Space" : u"*Model_Space";
}

Acad::ErrorStatus append(std::unique_ptr<AcDbEntity> entity, AcDbObjectId& id, Space space)
{
    AcDbObjectId blockId;
    const AcDbObjectPointer<AcDbBlockTable> blocks(drawing()->tableId(AcDbBlockTable::desc()));
    if (!blocks)
        return blocks.openStatus();
    if (const Acad::ErrorStatus status = blocks->getIdAt(blockNameOf(space), blockId); status != Acad::eOk)
        return status;

    const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForWrite);
    if (!block)
        return block.openStatus();
    const Acad::ErrorStatus status = block->appendAcDbEntity(id, entity.get());
    if (status == Acad::eOk)
        (void)entity.release(); // the drawing's from here on
    return status;
}

} // namespace

Acad::ErrorStatus AppendToSpace(std::unique_ptr<AcDbEntity> entity, AcDbObjectId& id, Coordinates coordinates,
                                Space space)
{
    if (drawing() == nullptr)
        return Acad::eNoDatabase;
    AcDbEntity* const appended = entity.get();
    Acad::ErrorStatus status = append(std::move(entity), id, space);
    if (status != Acad::eOk)
        return status;
    if (coordinates == Coordinates::kUser)
        status = appended->transformBy(UcsToWcsMatrix());
    appended->close();
    return status;
}

AcGeMatrix3d UcsToWcsMatrix()
{
    AcDbDatabase* const database = drawing();
    const bool model = database->tilemode();
    const AcGePoint3d origin = model ? database->ucsorg() : database->pucsorg();
    const AcGeVector3d xAxis = model ? database->ucsxdir() : database->pucsxdir();
    const AcGeVector3d yAxis = model ? database->ucsydir() : database->pucsydir();
    AcGeMatrix3d matrix;
    return matrix.setToAlignCoordSys(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis,
                                     AcGeVector3d::kZAxis, origin, xAxis, yAxis, xAxis.crossProduct(yAxis));
}
