#pragma once

#include <cstdint>
#include <string>

namespace disk
{

/// What a file system may refuse besides reading and writing.
enum class Step
{
    kOwner,
    kMode,
    kSync,
    kLock,
    kLink,
    kRename
};

/// Asked before the room does what could fail. The default refuses nothing; a test gives one that does, so that the
/// rules for failures can be tried. `path` is the file as the caller named it; of what happens to an earlier file that
/// is kept, the name it is kept under.
class Faults
{
public:
    virtual ~Faults() = default;
    /// Bytes after which reading (writing) the file fails; negative for never.
    virtual int64_t failReadAt(const std::string& /*path*/) { return -1; }
    virtual int64_t failWriteAt(const std::string& /*path*/) { return -1; }
    /// The error number with which a step fails; 0 when it does not.
    virtual int refuse(Step /*step*/, const std::string& /*path*/) { return 0; }
};

/// Those that refuse nothing.
inline Faults& noFaults()
{
    static Faults none;
    return none;
}

} // namespace disk
