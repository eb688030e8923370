#pragma once

#include "disk/faults.h"
#include "store/object_id.h"

/// Asked before the host does what could fail. The default refuses nothing; a test session gives one that does, so that
/// the rules for failures can be tried.
class Faults : public disk::Faults
{
public:
    virtual bool refuseOpenForWrite(AcDbObjectId) { return false; }
    virtual bool refuseAppend() { return false; }
    virtual bool refuseSelection() { return false; }
};
