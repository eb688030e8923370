#include "fuzz/support/mutator.h"

#include <algorithm>

/// libFuzzer's own mutation of bytes.
extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

namespace
{

constexpr unsigned kBytesOnly = 16; ///< one input in so many is changed without knowing what it means

} // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed)
{
    std::string changed;
    if (seed % kBytesOnly != 0)
        changed = changedInput({reinterpret_cast<const char*>(data), size}, seed);
    if (changed.empty() || changed.size() > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::copy(changed.begin(), changed.end(), data);
    return changed.size();
}
