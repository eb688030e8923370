// A symbol drawing of any version and form, made a block of the drawing that is worked on.
#include "fuzz/support/check.h"
#include "fuzz/support/desk.h"
#include "fuzz/support/mutator.h"
#include "fuzz/support/pairs.h"
#include "host/app/document.h"
#include "host/db/database.h"
#include "store/block_index.h"

namespace
{

/// Inserts a symbol file as the block "NEW"; the status of the whole.
Acad::ErrorStatus insertFile(Desk& desk, const std::string& name)
{
    AcDbDatabase symbol{false};
    const std::u16string path = Desk::modulePath(name);
    if (const Acad::ErrorStatus status = symbol.readDwgFile(path.c_str()); status != Acad::eOk)
        return status;
    AcApDocument* document = acDocManagerPtr()->curDocument();
    acDocManagerPtr()->lockDocument(document);
    AcDbObjectId block;
    const Acad::ErrorStatus status = desk.drawing().insert(block, u"NEW", &symbol);
    acDocManagerPtr()->unlockDocument(document);
    return status;
}

/// The contents of the block "NEW" by kind.
std::string contentsOf(AcDbDatabase& drawing)
{
    const ObjectRecord* block = drawing.blocks().record(u"NEW");
    mustHold(block != nullptr, "the block is there");
    std::string kinds;
    for (const AcDbObjectId id : drawing.blocks().entities(*block))
        kinds.append(drawing.dxfNameOf(*id.record())).push_back('\n');
    return kinds;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const std::string target = emptyDrawing();
    Desk desk;
    mustHold(desk.open(target), "the drawing to work on is sound");
    Desk::write("symbol.dxf", {reinterpret_cast<const char*>(data), size});
    if (insertFile(desk, "symbol.dxf") != Acad::eOk)
    {
        mustHold(!desk.session().unreadableFiles().empty(), "a refused symbol has a reason");
        mustHold(savedAs(desk.drawing()) == target, "a refused symbol leaves no trace");
        return 0;
    }
    const std::string bytes = savedAs(desk.drawing());
    const std::unique_ptr<AcDbDatabase> saved = readDrawing(bytes, DrawingReader::Purpose::Drawing);
    mustHold(saved != nullptr, "a drawing with the symbol can be read");
    mustHold(contentsOf(*saved) == contentsOf(desk.drawing()), "the block is saved whole");
    return 0;
}

std::string changedInput(std::string_view input, unsigned seed)
{
    return changedText(input, seed);
}
