#pragma once

#include "host/drawing/object_id.h"

#include <cstdint>
#include <string>

/// Asked before the host does what could fail. The default refuses nothing; a test session gives one that does, so that
/// the rules for failures can be tried.
class Faults
{
public:
    virtual ~Faults() = default;
    virtual bool refuseOpenForWrite(AcDbObjectId) { return false; }
    virtual bool refuseAppend() { return false; }
    virtual bool refuseSelection() { return false; }
    /// Bytes after which reading (writing) the file fails; negative for never.
    virtual int64_t failReadAt(const std::string& /*path*/) { return -1; }
    virtual int64_t failWriteAt(const std::string& /*path*/) { return -1; }
};
