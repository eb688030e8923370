#include "survey/read/xml_document.h"

#include <algorithm>
#include <cstring>

namespace survey
{

namespace
{

constexpr unsigned kFlags = pugi::parse_cdata | pugi::parse_escapes | pugi::parse_embed_pcdata | pugi::parse_doctype;

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

} // namespace

XmlDocument::XmlDocument(disk::OwnBytes bytes) : m_bytes{std::move(bytes)}, m_lines{m_bytes.view()}
{
    const auto result = m_document.load_buffer_inplace(m_bytes.bytes.get(), m_bytes.size, kFlags, pugi::encoding_utf8);
    if (result.status != pugi::status_ok)
        tellError(result);
    for (const pugi::xml_node& node : m_document)
        if (node.type() == pugi::node_doctype)
            if (const char* const entity = std::strstr(node.value(), "<!ENTITY"); entity != nullptr)
                m_entityLine = m_lines.lineOf(static_cast<size_t>(entity - m_bytes.bytes.get()));
}

void XmlDocument::tellError(const pugi::xml_parse_result& result)
{
    const auto offset = static_cast<size_t>(std::max<ptrdiff_t>(0, result.offset));
    m_errorLine = m_lines.lineOf(std::min(offset, m_bytes.size));
    const std::string_view text = m_bytes.view();
    const bool atEnd =
        offset + 1 >= text.size() || std::all_of(text.begin() + static_cast<ptrdiff_t>(offset), text.end(), isBlank);
    if (result.status == pugi::status_no_document_element)
        m_error = "is not XML: it has no element";
    else if (atEnd && root())
        m_error = "is cut off: the file ends before its elements do";
    else
        m_error = std::string{"is not well-formed XML: "} + result.description();
}

uint32_t XmlDocument::lineOf(const pugi::xml_node& element) const
{
    const ptrdiff_t offset = element.offset_debug();
    return offset < 0 ? 0 : m_lines.lineOf(static_cast<size_t>(offset));
}

uint32_t XmlDocument::lastLineOf(const pugi::xml_node& element) const
{
    pugi::xml_node last = element;
    while (last.last_child())
        last = last.last_child();
    const char* const value = last.value();
    const std::string_view text = m_bytes.view();
    if (*value == '\0' || value < text.data() || value >= text.data() + text.size())
        return std::max(lineOf(element), lineOf(last));
    return m_lines.lineOf(static_cast<size_t>(value - text.data()) + std::strlen(value));
}

std::string declaredEncoding(std::string_view bytes)
{
    constexpr size_t kFarEnough = 400;
    const std::string_view begin = bytes.substr(0, kFarEnough);
    const std::string_view declaration = begin.substr(0, begin.find("?>"));
    const size_t at = declaration.find("encoding");
    if (declaration.find("<?xml") == declaration.npos || at == declaration.npos)
        return {};
    const size_t open = declaration.find_first_of("\"'", at);
    if (open == declaration.npos)
        return {};
    const size_t close = declaration.find(declaration[open], open + 1);
    return std::string{declaration.substr(open + 1, close - open - 1)};
}

bool isXml(std::string_view bytes)
{
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        return bytes.substr(2, 2).find('<') != bytes.npos;
    const auto first = std::find_if_not(bytes.begin(), bytes.end(), isBlank);
    return first != bytes.end() && *first == '<';
}

pugi::xml_node childOf(const pugi::xml_node& node, std::string_view name)
{
    return node.find_child([name](const pugi::xml_node& child) { return isNamed(child, name); });
}

std::string_view attributeOf(const pugi::xml_node& node, const char* name)
{
    return node.attribute(name).value();
}

size_t likelyChildren(const pugi::xml_node& node)
{
    const pugi::xml_node first = node.first_child();
    const ptrdiff_t one = first.next_sibling().offset_debug() - first.offset_debug();
    const ptrdiff_t all = node.last_child().offset_debug() - first.offset_debug();
    return one > 0 && all > 0 ? static_cast<size_t>(all / one) + 2 : 2;
}

std::string textOf(const pugi::xml_node& node)
{
    std::string text = node.value();
    for (const pugi::xml_node& child : node)
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            text += child.value();
    return text;
}

} // namespace survey
