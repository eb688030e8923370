#pragma once

#include "store/line_end.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace files
{

/// Walks the lines of a DXF text two by two, for the indexing pass: no value is decoded.
class PairScanner
{
public:
    explicit PairScanner(std::string_view text) : m_at{text.data()}, m_end{text.data() + text.size()} {}

    enum class Result
    {
        Pair,
        End,
        BadCode,
        CutShort
    };

    /// Moves to the next pair.
    Result next()
    {
        m_begin = m_at;
        if (m_at >= m_end)
            return Result::End;
        const char* lineEnd = findLineEnd(m_at, m_end);
        if (!parseCode(lineEnd))
            return m_blank && lineEnd >= m_end - 1 ? Result::End : Result::BadCode;
        if (lineEnd == m_end)
            return Result::CutShort;
        m_value = lineEnd + 1;
        const char* valueEnd = findLineEnd(m_value, m_end);
        m_at = valueEnd == m_end ? m_end : valueEnd + 1;
        m_valueEnd = valueEnd;
        ++m_pairs;
        return Result::Pair;
    }

    int code() const { return m_code; }
    const char* begin() const { return m_begin; }
    const char* end() const { return m_at; }
    /// The value without blanks at both ends.
    std::string_view word() const
    {
        const char* from = m_value;
        const char* to = m_valueEnd;
        while (from < to && (*from == ' ' || *from == '\t'))
            ++from;
        while (to > from && (to[-1] == '\r' || to[-1] == ' ' || to[-1] == '\t'))
            --to;
        return {from, static_cast<size_t>(to - from)};
    }
    /// Line number (from 1) of the pair at hand, or of the line that could not be read.
    uint64_t line() const { return m_pairs == 0 ? 1 : 2 * m_pairs - 1; }
    uint64_t nextLine() const { return 2 * m_pairs + 1; }

private:
    /// A whole number between blanks; false when the line is anything else.
    bool parseCode(const char* lineEnd)
    {
        const char* at = m_at;
        while (at < lineEnd && (*at == ' ' || *at == '\t'))
            ++at;
        const bool negative = at < lineEnd && *at == '-';
        if (negative)
            ++at;
        const char* digits = at;
        int value = 0;
        while (at < lineEnd && *at >= '0' && *at <= '9' && at - digits < 6)
            value = value * 10 + (*at++ - '0');
        const bool any = at > digits;
        while (at < lineEnd && (*at == ' ' || *at == '\t' || *at == '\r'))
            ++at;
        m_blank = !any && !negative && at == lineEnd;
        m_code = negative ? -value : value;
        return any && at == lineEnd;
    }

    const char* m_at;
    const char* m_end;
    const char* m_begin = nullptr;
    const char* m_value = nullptr;
    const char* m_valueEnd = nullptr;
    uint64_t m_pairs = 0;
    int m_code = 0;
    bool m_blank = false;
};

} // namespace files
