#include "store/pair_edit.h"

#include "store/group_codes.h"

PairEdit::PairEdit(std::string_view text) : m_text{text}, m_at{text.data()}
{
    const size_t lineEnd = text.find('\n');
    m_carriageReturns = lineEnd != std::string_view::npos && lineEnd > 0 && text[lineEnd - 1] == '\r';
    m_result.reserve(text.size() + 64);
}

void PairEdit::replace(const char* begin, const char* end, std::string_view pairs)
{
    m_result.append(m_at, begin);
    m_at = end;
    if (!m_carriageReturns)
    {
        m_result.append(pairs);
        return;
    }
    for (const char c : pairs)
    {
        if (c == '\n')
            m_result += '\r';
        m_result += c;
    }
}

std::string PairEdit::take()
{
    m_result.append(m_at, m_text.data() + m_text.size());
    return std::move(m_result);
}

bool OwnPairs::next(Tag& tag)
{
    while (m_reader.next(tag))
    {
        if (tag.code == dxf::kEmbeddedObject || tag.code == dxf::kXApplication)
            return false;
        m_at = tag.end;
        if (tag.code != dxf::kControl)
            return true;
        if (tag.word().starts_with('{'))
            skipGroup();
    }
    return false;
}

void OwnPairs::skipGroup()
{
    Tag tag;
    while (m_reader.next(tag))
    {
        m_at = tag.end;
        if (tag.code == dxf::kControl && tag.word() == "}")
            return;
    }
}
