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

std::string changedInput(std::string_view input, unsigned seed)
{
    try
    {
        const FileText text = files::textOfBinaryDxf(input, "");
        Pairs pairs = pairsOf(text.view());
        mutate(pairs, seed);
        return binaryOf(pairs, seed % 8 == 1);
    }
    catch (const files::FileError&)
    {
        return {};
    }
}
