#pragma once

#include "disk/stamp.h"
#include "store/drawing_store.h"

#include <string>

namespace desktop
{

/// A drawing as it was read, not yet a document.
struct ReadDrawing
{
    std::string path;
    disk::FileStamp seen; ///< the file's state when it was read
    DrawingStore store;
    bool isConverted = false; ///< from a DWG: what is saved is a DXF
};

/// Reads a drawing; on any thread. Throws what readers throw.
ReadDrawing readDrawing(const std::string& path);

} // namespace desktop
