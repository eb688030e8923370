#pragma once

#include "disk/descriptor.h"
#include "disk/faults.h"

#include <string>

namespace disk
{

/// Locks the file that is about to be replaced at `path`, named `name` by the caller, against other savers: for as long
/// as the descriptor is open. Waits a moment for one that is about to end, then throws FileError. Where there is no
/// file, or no locks, there is none, and no error.
Descriptor lockForSaving(const std::string& path, const std::string& name, Faults& faults);

} // namespace disk
