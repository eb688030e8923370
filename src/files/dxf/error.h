#pragma once

#include "disk/error.h"

namespace files
{

/// A file that cannot be read or written: the one error of this box.
using disk::FileError;

} // namespace files
