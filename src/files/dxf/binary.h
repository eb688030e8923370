#pragma once

#include "store/drawing_store.h"

#include <string>

namespace files
{

/// Whether the bytes are a binary DXF file.
bool isBinaryDxf(std::string_view bytes);

/// The same drawing as text DXF: reals so that they read back to the same double, binary chunks as hexadecimal digits.
/// Throws FileError with the byte where the file is damaged.
FileText textOfBinaryDxf(std::string_view bytes, const std::string& path);

} // namespace files
