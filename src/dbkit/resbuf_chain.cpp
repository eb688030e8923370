#include "dbkit/resbuf_chain.h"

#include <algorithm>
#include <memory>

namespace
{

char16_t* copyText(const char16_t* text)
{
    if (text == nullptr)
        return nullptr;
    const size_t size = std::char_traits<char16_t>::length(text) + 1;
    auto copy = std::make_unique<char16_t[]>(size);
    std::copy_n(text, size, copy.get());
    return copy.release();
}

} // namespace

CResbuf::CResbuf(const std::u16string& text, int code)
{
    auto node = std::make_unique<resbuf>();
    node->restype = static_cast<int16_t>(code);
    node->resval.rstring = copyText(text.c_str());
    Link(node.release());
}

CResbuf::CResbuf(const CResbuf& first, const CResbuf& second)
{
    Append(first.m_head);
    Append(second.m_head);
}

CResbuf::CResbuf(const CResbuf& other)
{
    Append(other.m_head);
}

CResbuf& CResbuf::operator=(const CResbuf& other)
{
    if (this != &other)
    {
        Free();
        Append(other.m_head);
    }
    return *this;
}

void CResbuf::Append(const resbuf* chain)
{
    for (; chain != nullptr; chain = chain->rbnext)
    {
        auto node = std::make_unique<resbuf>();
        node->restype = chain->restype;
        node->resval = chain->resval;
        if (isStringCode(chain->restype))
            node->resval.rstring = copyText(chain->resval.rstring);
        Link(node.release());
    }
}

void CResbuf::Link(resbuf* node)
{
    (m_tail == nullptr ? m_head : m_tail->rbnext) = node;
    m_tail = node;
}

void CResbuf::Free()
{
    while (m_head != nullptr)
    {
        const std::unique_ptr<resbuf> node(m_head);
        m_head = node->rbnext;
        if (isStringCode(node->restype))
            const std::unique_ptr<char16_t[]> text(node->resval.rstring);
    }
    m_tail = nullptr;
}
