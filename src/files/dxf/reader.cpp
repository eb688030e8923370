#include "files/dxf/reader.h"

#include "disk/read.h"
#include "files/dxf/binary.h"
#include "files/dxf/error.h"
#include "files/dxf/indexer.h"
#include "files/dxf/version.h"
#include "host/app/disk.h"

namespace files
{

namespace
{

void requireVersion(int version, const std::string& path)
{
    if (version < kR2000)
        throw FileError{path, "is a drawing of version " + nameOfVersion(version) +
                                  ", older than R2000: open it in your CAD program and save it as DXF of version "
                                  "R2000 or newer"};
    if (version > kR2018)
        throw FileError{path, "is a drawing of version " + nameOfVersion(version) +
                                  ", newer than R2018: save it as DXF of version R2018 or older"};
}

} // namespace

DrawingStore DxfReader::read(const std::string& path, Purpose purpose)
{
    return readDxf(disk::readFile(path, host::diskFaults()), path, purpose);
}

DrawingStore readDxf(FileText bytes, const std::string& path, DrawingReader::Purpose purpose)
{
    const bool binary = isBinaryDxf(bytes.view());
    FileText text = binary ? textOfBinaryDxf(bytes.view(), path) : bytes;
    DrawingStore store = DxfIndexer{path, std::move(text)}.run();
    if (binary)
    {
        store.original = std::move(bytes);
        store.hasLines = false;
    }
    if (purpose == DrawingReader::Purpose::Drawing)
        requireVersion(store.version, path);
    return store;
}

} // namespace files
