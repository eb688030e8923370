#include "files/dxf/indexer.h"

#include "files/dxf/count_check.h"
#include "files/dxf/error.h"
#include "store/group_codes.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace files
{

namespace
{

uint64_t parseHandle(std::string_view word)
{
    uint64_t value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, 16);
    return error == std::errc{} && end == word.data() + word.size() ? value : 0;
}

bool isSubEntity(std::string_view kind)
{
    return kind == "VERTEX" || kind == "ATTRIB" || kind == "SEQEND";
}

std::string shown(std::string_view word)
{
    std::string text{"\""};
    for (const char c : word.substr(0, 40))
        text += static_cast<unsigned char>(c) < 0x20 ? '.' : c;
    return text + (word.size() > 40 ? "...\"" : "\"");
}

} // namespace

DxfIndexer::DxfIndexer(std::string path, FileText text) : m_path{std::move(path)}, m_scanner{text.view()}
{
    m_store.file = std::move(text);
    m_store.version = 1009;
}

void DxfIndexer::fail(const std::string& reason) const
{
    throw FileError{m_path, m_scanner.line(), reason};
}

/// Moves to the next pair; false at the end of the text.
bool DxfIndexer::advance()
{
    switch (m_scanner.next())
    {
    case Result::Pair:
        m_atZero = m_scanner.code() == dxf::kType;
        return true;
    case Result::End:
        m_atZero = false;
        return false;
    case Result::BadCode:
        throw FileError{m_path, m_scanner.nextLine(), "expected a group code (a whole number)"};
    case Result::CutShort:
        break;
    }
    throw FileError{m_path, m_scanner.nextLine(), "the file ends in the middle of a pair: it is cut short"};
}

DrawingStore DxfIndexer::run()
{
    bool any = false;
    while (advance())
    {
        if (m_scanner.code() == dxf::kComment)
            continue;
        if (!m_atZero)
            fail(any ? "expected a section or the end of the drawing" : "is not a DXF drawing");
        const std::string_view word = m_scanner.word();
        if (word == "EOF")
        {
            finishStore();
            return std::move(m_store);
        }
        if (word != "SECTION")
            fail(any ? "expected SECTION or EOF, found " + shown(word) : "is not a DXF drawing");
        any = true;
        readSection();
    }
    if (!any)
        throw FileError{m_path, "is empty or not a DXF drawing"};
    throw FileError{m_path, m_scanner.nextLine(), "the drawing has no EOF: it is cut short"};
}

/// Moves to the next pair that is no comment; false at the end of the text.
bool DxfIndexer::advancePastComments()
{
    bool any = advance();
    while (any && m_scanner.code() == dxf::kComment)
        any = advance();
    return any;
}

void DxfIndexer::readSection()
{
    if (!advancePastComments() || m_scanner.code() != 2)
        fail("a section without a name");
    const std::string_view name = m_scanner.word();
    if (std::find(m_sections.begin(), m_sections.end(), name) != m_sections.end())
        fail("a second section " + shown(name));
    if (name == "HEADER")
        readHeader();
    else if (name == "CLASSES")
        readClasses();
    else if (name == "TABLES")
        readTables();
    else if (name == "BLOCKS")
        readBlocks();
    else if (name == "ENTITIES")
        readObjects(Container::kEntities);
    else if (name == "OBJECTS")
        readObjects(Container::kObjects);
    else
        return skipSection();
    m_sections.push_back(name);
}

void DxfIndexer::requireZero(std::string_view word, const char* where)
{
    if (!m_atZero || m_scanner.word() != word)
        fail(std::string{"expected "} + std::string{word} + " in " + where + ", found " + shown(m_scanner.word()));
}

void DxfIndexer::readHeader()
{
    const char* begin = m_scanner.end();
    std::string_view variable;
    while (advance() && !m_atZero)
    {
        if (m_scanner.code() == dxf::kVariable)
            variable = m_scanner.word();
        else if (variable == "$ACADVER" && m_scanner.code() == 1)
        {
            const std::string_view word = m_scanner.word();
            if (!word.starts_with("AC") ||
                std::from_chars(word.data() + 2, word.data() + word.size(), m_store.version).ec != std::errc{})
                fail("an unknown drawing version " + shown(word));
        }
        else if (variable == "$DWGCODEPAGE" && m_scanner.code() == 3)
            m_store.codePage = m_scanner.word();
    }
    requireZero("ENDSEC", "the HEADER section");
    m_store.header = {begin, static_cast<size_t>(m_scanner.begin() - begin)};
}

void DxfIndexer::readClasses()
{
    const char* begin = m_scanner.end();
    skipSection();
    m_store.classes = {begin, static_cast<size_t>(m_scanner.begin() - begin)};
}

void DxfIndexer::skipSection()
{
    while (advance())
        if (m_atZero && m_scanner.word() == "ENDSEC")
            return;
    fail("a section has no end: the file is cut short");
}

size_t DxfIndexer::beginContainer(Container::Kind kind)
{
    Container& container = m_store.containers.emplace_back();
    container.kind = kind;
    container.first = m_store.records.size();
    return m_store.containers.size() - 1;
}

/// A record for the object whose code 0 is at hand.
ObjectRecord& DxfIndexer::beginRecord(uint32_t container)
{
    const std::string_view kind = m_scanner.word();
    if (m_store.kinds.empty() || m_store.kinds[m_lastKind] != kind)
    {
        if (m_store.kinds.size() >= std::numeric_limits<uint16_t>::max())
            fail("too many kinds of objects");
        m_lastKind = m_store.kindOf(kind);
    }
    ObjectRecord& record = m_store.records.add();
    record.kind = m_lastKind;
    record.container = container;
    record.text = m_scanner.begin();
    record.set(ObjectRecord::kSubEntity, isSubEntity(kind));
    return record;
}

/// Reads to the next object's code 0.
void DxfIndexer::readRecord(ObjectRecord& record, bool dimensionStyle)
{
    const int handleCode = dimensionStyle ? dxf::kHandleOfDimStyle : dxf::kHandle;
    const uint64_t line = m_scanner.line();
    const bool counted = hasCounts(m_store.kinds[record.kind]);
    while (advance() && !m_atZero)
    {
        const int code = m_scanner.code();
        if (code == handleCode && record.handle == 0)
            record.handle = parseHandle(m_scanner.word());
        else if (code == dxf::kPaperSpace && m_scanner.word() == "1")
            record.set(ObjectRecord::kPaperSpace, true);
    }
    if (!m_atZero)
        fail("the file ends within an object: it is cut short");
    const auto length = static_cast<uint64_t>(m_scanner.begin() - record.text);
    if (length > std::numeric_limits<uint32_t>::max())
        fail("an object of more than 4 GB");
    record.length = static_cast<uint32_t>(length);
    if (counted)
        if (const std::string wrong = checkCounts(m_store.kinds[record.kind], record.view()); !wrong.empty())
            throw FileError{m_path, line, wrong};
}

void DxfIndexer::readTables()
{
    if (!advancePastComments())
        fail("the TABLES section has no end: the file is cut short");
    while (m_atZero && m_scanner.word() == "TABLE")
        readTable();
    requireZero("ENDSEC", "the TABLES section");
}

/// A container whose first object, at hand, says its name.
uint32_t DxfIndexer::beginNamed(Container::Kind kind)
{
    const auto index = static_cast<uint32_t>(beginContainer(kind));
    ObjectRecord& head = beginRecord(index);
    readRecord(head, false);
    Container& container = m_store.containers[index];
    PairScanner pairs{head.view()};
    while (container.name.empty() && pairs.next() == Result::Pair)
        if (pairs.code() == 2)
            container.name = pairs.word();
    container.head = &head;
    container.first = m_store.records.size();
    return index;
}

void DxfIndexer::readTable()
{
    const uint32_t index = beginNamed(Container::kTable);
    const bool dimensionStyles = m_store.containers[index].name == "DIMSTYLE";
    while (m_scanner.word() != "ENDTAB")
    {
        if (m_scanner.word() == "ENDSEC" || m_scanner.word() == "EOF" || m_scanner.word() == "TABLE")
            fail("the table " + m_store.containers[index].name + " has no end");
        readRecord(beginRecord(index), dimensionStyles);
    }
    m_store.containers[index].last = m_store.records.size();
    m_store.containers[index].end = m_scanner.begin();
    while (advance() && !m_atZero)
    {
    }
}

void DxfIndexer::readBlocks()
{
    const size_t index = beginContainer(Container::kBlocks);
    if (!advancePastComments())
        fail("the BLOCKS section has no end: the file is cut short");
    while (m_atZero && m_scanner.word() == "BLOCK")
        readBlock();
    requireZero("ENDSEC", "the BLOCKS section");
    m_store.containers[index].last = m_store.records.size();
    m_store.containers[index].end = m_scanner.begin();
}

void DxfIndexer::readBlock()
{
    const uint32_t index = beginNamed(Container::kBlock);
    while (m_scanner.word() != "ENDBLK")
    {
        if (m_scanner.word() == "ENDSEC" || m_scanner.word() == "EOF" || m_scanner.word() == "BLOCK")
            fail("the block " + shown(m_store.containers[index].name) + " has no end");
        readRecord(beginRecord(index), false);
    }
    m_store.containers[index].last = m_store.records.size();
    m_store.containers[index].end = m_scanner.begin();
    ObjectRecord& tail = beginRecord(index);
    readRecord(tail, false);
    m_store.containers[index].tail = &tail;
}

void DxfIndexer::readObjects(Container::Kind kind)
{
    const auto index = static_cast<uint32_t>(beginContainer(kind));
    if (!advancePastComments())
        fail("a section has no end: the file is cut short");
    while (m_atZero && m_scanner.word() != "ENDSEC")
    {
        if (m_scanner.word() == "EOF" || m_scanner.word() == "SECTION")
            fail("a section has no end");
        readRecord(beginRecord(index), false);
    }
    requireZero("ENDSEC", "a section");
    m_store.containers[index].last = m_store.records.size();
    m_store.containers[index].end = m_scanner.begin();
}

void DxfIndexer::finishStore()
{
    m_store.encoding = makeTextEncoding(m_store.version, m_store.codePage);
}

} // namespace files
