#pragma once

#include "disk/faults.h"
#include "disk/stamp.h"
#include "host/db/drawing_io.h"

#include <string>
#include <string_view>
#include <vector>

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

/// Writes drawings as DXF; see `DrawingWriter` for what it promises. Throws FileError.
class DxfWriter : public DrawingWriter
{
public:
    void write(AcDbDatabase& database, const std::string& path) override;
};

} // namespace files
