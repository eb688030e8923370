#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// libFuzzer's own mutation of bytes.
extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

/// Copies `bytes` back into the fuzzer's buffer; what is too long falls back on the fuzzer's own mutation.
inline size_t giveBack(const std::string& bytes, uint8_t* data, size_t size, size_t maxSize)
{
    if (bytes.empty() || bytes.size() > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::copy(bytes.begin(), bytes.end(), data);
    return bytes.size();
}
