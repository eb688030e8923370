// The text drawing a user works on: read, scanned, drawn on, given plan symbols, saved, read back.
#include "fuzz/support/check.h"
#include "fuzz/support/desk.h"
#include "fuzz/support/mutator.h"
#include "fuzz/support/pairs.h"
#include "fuzz/support/road_work.h"
#include "host/db/database.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string_view bytes{reinterpret_cast<const char*>(data), size};
    Desk desk;
    if (!desk.open(bytes))
        return 0;
    mustHold(savedAs(desk.drawing()) == bytes, "an untouched drawing is saved byte for byte");
    workOnRoad(desk);
    return 0;
}

std::string changedInput(std::string_view input, unsigned seed)
{
    return changedText(input, seed);
}

extern "C" size_t LLVMFuzzerCustomCrossOver(const uint8_t* first, size_t firstSize, const uint8_t* second,
                                            size_t secondSize, uint8_t* out, size_t maxSize, unsigned seed)
{
    Pairs pairs = pairsOf({reinterpret_cast<const char*>(first), firstSize});
    mix(pairs, pairsOf({reinterpret_cast<const char*>(second), secondSize}), seed);
    const std::string mixed = textOf(pairs);
    const size_t length = std::min(mixed.size(), maxSize);
    std::copy_n(mixed.begin(), length, out);
    return length;
}
