#pragma once

#include <cstddef>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// The next line feed at or behind `at`; `end` when there is none. Lines of drawings are short: the first 16 bytes are
/// looked at in one step.
inline const char* findLineEnd(const char* at, const char* end)
{
#if defined(__SSE2__)
    if (end - at >= 16)
    {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        const int found = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n')));
        if (found != 0)
            return at + __builtin_ctz(static_cast<unsigned>(found));
        at += 16;
    }
#endif
    if (at >= end)
        return end;
    const auto* found = static_cast<const char*>(std::memchr(at, '\n', static_cast<size_t>(end - at)));
    return found != nullptr ? found : end;
}
