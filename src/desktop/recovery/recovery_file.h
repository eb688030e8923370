#pragma once

#include "desktop/documents/snapshot.h"
#include "disk/faults.h"
#include "disk/file_text.h"
#include "disk/stamp.h"

#include <optional>
#include <string>
#include <vector>

namespace desktop
{

/// What a recovery file says of the drawing in it: comments in front of the drawing's own text.
struct RecoveryNote
{
    std::string file; ///< the recovery file itself
    std::string path; ///< of the drawing
    disk::FileStamp seen;
    bool isConverted = false; ///< the drawing came from another kind of file
    long written = 0;         ///< seconds since 1970
    long process = 0;
    std::string start; ///< of the process: with the number it is named for good
    std::string boot;
    std::string machine;
};

/// Where recovery files lie: $XDG_STATE_HOME/veloxa/recovery, else below ~/.local/state. Empty when there is no home.
std::string recoveryFolder();

/// The recovery file of a drawing and this process.
std::string recoveryFileOf(const std::string& path);

/// Writes one whole, for this process; its folder is made when it is missing. On any thread. Throws FileError.
void writeRecovery(const Snapshot& drawing, const RecoveryNote& note, disk::Faults& faults);

/// What one says; nothing when it is none.
std::optional<RecoveryNote> readRecoveryNote(const std::string& file);
/// The drawing's own text in one. Throws FileError.
disk::FileText readRecovery(const std::string& file);

/// The recovery files whose processes are gone, the newest first.
std::vector<RecoveryNote> abandonedRecoveries();

} // namespace desktop
