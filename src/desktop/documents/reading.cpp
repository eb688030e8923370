#include "desktop/documents/reading.h"

#include "files/reader.h"

namespace desktop
{

ReadDrawing readDrawing(const std::string& path)
{
    ReadDrawing read{path, disk::stampOf(path), {}, files::isDwgFile(path)};
    read.store = files::FileReader{}.read(path, DrawingReader::Purpose::Drawing);
    return read;
}

} // namespace desktop
