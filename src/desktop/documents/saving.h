#pragma once

#include "desktop/documents/snapshot.h"
#include "disk/faults.h"
#include "disk/stamp.h"

#include <stop_token>
#include <string>

namespace desktop
{

struct SaveRequest
{
    std::string path;
    disk::FileStamp seen;                     ///< replace the file in this state only; of no file: in any
    disk::Faults* faults = &disk::noFaults(); ///< asked before each step
};

/// Saves a drawing as DXF; on any thread. A stop that is asked for before the file has taken its name leaves what was
/// there; it is thrown as a FileError. Throws what saving throws. Answers the new file's state.
disk::FileStamp saveSnapshot(const Snapshot& drawing, const SaveRequest& request, const std::stop_token& stop);

} // namespace desktop
