#pragma once

#include "disk/faults.h"
#include "disk/stamp.h"

#include <string>
#include <string_view>
#include <vector>

class AcDbDatabase;

namespace files
{

/// Saves a drawing as DXF at `path`, replacing what stands there; see `DrawingWriter` for what that promises. The file
/// is replaced in the state `seen` only, else ChangedFile is thrown; in any when that is of no file. Throws FileError.
void saveDrawing(AcDbDatabase& database, const std::string& path, const disk::FileStamp& seen = {});

/// The same for the bytes of one, on any thread. `faults` are asked as `disk::replaceFile` says.
void saveDrawingBytes(const std::vector<std::string_view>& pieces, const std::string& path,
                      const disk::FileStamp& seen = {}, disk::Faults& faults = disk::noFaults());

/// Throws FileError, with the file named `path`, for a drawing that cannot be saved whatever its file.
void requireSavable(AcDbDatabase& database, const std::string& path);

} // namespace files
