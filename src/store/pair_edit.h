#pragma once

#include "store/tags.h"

#include <string>
#include <string_view>

/// Changes some pairs of a piece of drawing text and keeps every byte between them. Changes are given in text order and
/// do not overlap; new pairs take on the line ends of the text.
class PairEdit
{
public:
    explicit PairEdit(std::string_view text);

    void replace(const char* begin, const char* end, std::string_view pairs);
    void replace(const Tag& tag, std::string_view pairs) { replace(tag.begin, tag.end, pairs); }
    void insert(const char* at, std::string_view pairs) { replace(at, at, pairs); }
    /// The text with the changes; the edit is over.
    std::string take();

private:
    std::string_view m_text;
    const char* m_at;
    bool m_carriageReturns;
    std::string m_result;
};

/// Walks an object's own pairs: groups in braces that applications hang on it (102) are passed over, and the walk ends
/// before embedded objects (101) and extended data (1001).
class OwnPairs
{
public:
    explicit OwnPairs(std::string_view text) : m_reader{text} {}
    explicit OwnPairs(const TagReader& reader) : m_reader{reader} {}

    bool next(Tag& tag);
    /// See `TagReader::pointFrom`.
    AcGePoint3d pointFrom(const Tag& x) { return m_reader.pointFrom(x); }
    /// Behind the pair given last; at the end of the walk, behind the last own pair.
    const char* position() const { return m_at; }

private:
    void skipGroup();

    TagReader m_reader;
    const char* m_at = m_reader.position();
};
