// The binary drawing: saved as it is while untouched, worked on as the text it stands for.
#include "files/dxf/binary.h"
#include "files/dxf/error.h"
#include "fuzz/support/check.h"
#include "fuzz/support/desk.h"
#include "fuzz/support/mutator.h"
#include "fuzz/support/pairs.h"
#include "fuzz/support/road_work.h"
#include "host/db/database.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string_view bytes{reinterpret_cast<const char*>(data), size};
    Desk desk;
    if (!files::isBinaryDxf(bytes) || !desk.open(bytes))
        return 0;
    mustHold(savedAs(desk.drawing()) == bytes, "an untouched drawing keeps its form");
    workOnRoad(desk);
    return 0;
}

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed)
{
    if (seed % 4 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    try
    {
        const FileText text = files::textOfBinaryDxf({reinterpret_cast<const char*>(data), size}, "");
        Pairs pairs = pairsOf(text.view());
        mutate(pairs, seed);
        return giveBack(binaryOf(pairs, seed % 8 == 1), data, size, maxSize);
    }
    catch (const files::FileError&)
    {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
}
