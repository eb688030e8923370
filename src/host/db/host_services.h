#pragma once

#include "store/drawing_store.h"
#include "store/object_id.h"

#include <map>
#include <string>
#include <string_view>

class AcDbDatabase;

namespace host
{
class DamageLog;
}

/// What the database asks of the application around it. The application derives from it and is `current` while it runs;
/// without one there is no current drawing, nothing is refused and nothing is noted.
class AcDbHostApplicationServices
{
public:
    AcDbHostApplicationServices() = default;
    AcDbHostApplicationServices(const AcDbHostApplicationServices&) = delete;
    AcDbHostApplicationServices& operator=(const AcDbHostApplicationServices&) = delete;
    virtual ~AcDbHostApplicationServices() = default;

    /// The current document's database; null when no drawing is open.
    virtual AcDbDatabase* workingDatabase() const { return nullptr; }

    /// Whether a database may be changed now: it belongs to no document, or its document is locked.
    virtual bool isWriteAllowed(const AcDbDatabase*) const { return true; }
    virtual bool refusesOpenForWrite(AcDbObjectId) { return false; }
    virtual bool refusesAppend() { return false; }

    /// Where damaged values are noted; null when nobody asks for them.
    virtual host::DamageLog* damageLog() { return nullptr; }

    /// The content of a symbol drawing, found and read. Throws an exception derived from std::exception that says why
    /// it cannot be had.
    virtual DrawingStore readSymbolDrawing(std::u16string_view path);
    /// A symbol drawing could not be read, or not be made a block, and why.
    virtual void symbolUnreadable(std::u16string_view, std::string) {}
    /// A symbol drawing became a block without some of its entities; how many of each kind.
    virtual void symbolIncomplete(std::u16string_view, CountsByKind) {}
};

/// The application that runs on this thread, or one that offers nothing; never null.
AcDbHostApplicationServices* acdbHostApplicationServices();

/// Makes `services` the application that runs on this thread; null: none. Answers the one before.
AcDbHostApplicationServices* acdbSetHostApplicationServices(AcDbHostApplicationServices* services);
