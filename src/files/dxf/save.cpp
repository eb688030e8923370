#include "files/dxf/save.h"

#include "disk/replace.h"
#include "files/dxf/drawing_names.h"
#include "files/dxf/error.h"
#include "files/dxf/writer.h"
#include "host/app/disk.h"
#include "host/db/database.h"

namespace files
{

void requireSavable(AcDbDatabase& database, const std::string& path)
{
    if (!database.hasHandlesLeft())
        throw FileError{path, "the drawing has no handles left for new objects: one of its objects has the last that "
                              "there is, or one so near it that the new ones did not fit"};
}

void saveDrawingBytes(const std::vector<std::string_view>& pieces, const std::string& path, const disk::FileStamp& seen,
                      disk::Faults& faults)
{
    requireDrawingOutput(path);
    disk::replaceFile(path, pieces, {.keepEarlier = true, .seen = seen}, faults);
}

void saveDrawing(AcDbDatabase& database, const std::string& path, const disk::FileStamp& seen)
{
    requireDrawingOutput(path);
    requireSavable(database, path);
    const DrawingPieces drawing{database};
    saveDrawingBytes(drawing.pieces(), path, seen, host::diskFaults());
}

void DxfWriter::write(AcDbDatabase& database, const std::string& path)
{
    saveDrawing(database, path);
}

} // namespace files
