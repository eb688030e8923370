#pragma once

#include "disk/read.h"
#include "survey/read/line_index.h"

#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace survey
{

/// An XML file, read where it lies in memory, that can tell of every element its line.
class XmlDocument
{
public:
    /// `bytes` are UTF-8 and taken over.
    explicit XmlDocument(disk::OwnBytes bytes);

    /// What ended the reading too early; what stands before it can be used. Empty when nothing did.
    const std::string& error() const { return m_error; }
    uint32_t errorLine() const { return m_errorLine; }

    pugi::xml_node root() const { return m_document.document_element(); }
    /// The line on which the document declares entities of its own, which are not expanded; 0 when it does not.
    uint32_t entityLine() const { return m_entityLine; }

    uint32_t lineOf(const pugi::xml_node& element) const;
    /// The last line of an element's contents.
    uint32_t lastLineOf(const pugi::xml_node& element) const;

private:
    void tellError(const pugi::xml_parse_result& result);

    disk::OwnBytes m_bytes;
    LineIndex m_lines;
    pugi::xml_document m_document;
    std::string m_error;
    uint32_t m_errorLine = 0;
    uint32_t m_entityLine = 0;
};

/// What the beginning of an XML file says its encoding is; empty when it does not.
std::string declaredEncoding(std::string_view bytes);

/// Whether a text begins as XML does: with "<", behind a byte order mark and blanks.
bool isXml(std::string_view bytes);

/// The name of an element or attribute without the prefix of its namespace.
inline std::string_view localName(std::string_view name)
{
    const size_t colon = name.rfind(':');
    return colon == name.npos ? name : name.substr(colon + 1);
}
inline bool isNamed(const pugi::xml_node& node, std::string_view name)
{
    return localName(node.name()) == name;
}

/// The first child of a name; none when there is none.
pugi::xml_node childOf(const pugi::xml_node& node, std::string_view name);

/// The value of an attribute; empty when it is missing.
std::string_view attributeOf(const pugi::xml_node& node, const char* name);

/// About how many children an element has, from the length of the first and of all: to make room beforehand.
size_t likelyChildren(const pugi::xml_node& node);

/// The text of an element, without that of its children.
std::string textOf(const pugi::xml_node& node);

} // namespace survey
