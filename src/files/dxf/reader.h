#pragma once

#include "host/db/drawing_io.h"

namespace files
{

/// Reads DXF drawings, text and binary, R2000 and newer; as symbols older ones too. Throws FileError.
class DxfReader : public DrawingReader
{
public:
    DrawingStore read(const std::string& path, Purpose purpose) override;
};

/// The same from bytes in memory; `path` is used in messages only.
DrawingStore readDxf(FileText bytes, const std::string& path, DrawingReader::Purpose purpose);

} // namespace files
