#pragma once

#include "disk/stamp.h"

#include <string>

class AcDbDatabase;

namespace files
{

/// Saves a drawing as DXF at `path`, replacing what stands there; see `DrawingWriter` for what that promises. The file
/// is replaced in the state `seen` only, else ChangedFile is thrown; in any when that is of no file. Throws FileError.
void saveDrawing(AcDbDatabase& database, const std::string& path, const disk::FileStamp& seen = {});

} // namespace files
