#include "host/drawing/extended_data.h"

#include "host/app/host_services.h"
#include "host/drawing/database.h"
#include "host/drawing/symbol_tables.h"
#include "host/drawing/table_index.h"
#include "host/drawing/tags.h"
#include "host/text.h"

namespace
{

constexpr int kApplicationName = 1001;
constexpr int kFirstXDataCode = 1000;

bool isXDataCode(int code)
{
    return code >= kFirstXDataCode && code <= 1071;
}

enum class ValueKind
{
    Text,
    Point,
    Real,
    Short,
    Long,
    None
};

/// What a group code's value is (DXF reference, group code ranges).
ValueKind valueKind(int code)
{
    const auto within = [code](int first, int last) { return code >= first && code <= last; };
    if (within(1010, 1013) || within(10, 18) || within(110, 112) || code == 210)
        return ValueKind::Point;
    if (within(38, 59) || within(140, 149) || within(1040, 1042) || within(460, 469))
        return ValueKind::Real;
    if (within(60, 79) || within(170, 179) || within(270, 299) || within(370, 389) || within(400, 409) || code == 1070)
        return ValueKind::Short;
    if (within(90, 99) || within(420, 429) || within(440, 459) || code == 1071)
        return ValueKind::Long;
    return isStringCode(code) || within(310, 369) || within(390, 399) || within(410, 419) || within(430, 439) ||
                   within(470, 481)
               ? ValueKind::Text
               : ValueKind::None;
}

} // namespace

std::string_view findXData(std::string_view pairs, std::u16string_view application, const TextEncoding& encoding)
{
    TagReader reader{pairs};
    Tag tag;
    const char* begin = nullptr;
    while (reader.next(tag))
    {
        if (tag.code != kApplicationName)
            continue;
        if (begin != nullptr)
            return {begin, static_cast<size_t>(tag.begin - begin)};
        if (application.empty())
            return {tag.begin, static_cast<size_t>(pairs.data() + pairs.size() - tag.begin)};
        if (equalNoCase(encoding.decode(tag.word()), application))
            begin = tag.begin;
    }
    return begin != nullptr ? std::string_view{begin, static_cast<size_t>(pairs.data() + pairs.size() - begin)}
                            : std::string_view{};
}

std::string withoutXData(std::string_view pairs, std::u16string_view application, const TextEncoding& encoding)
{
    const std::string_view found = findXData(pairs, application, encoding);
    std::string rest{pairs};
    if (!found.empty())
        rest.erase(static_cast<size_t>(found.data() - pairs.data()), found.size());
    if (!rest.empty() && rest.back() != '\n')
        rest += '\n';
    return rest;
}

resbuf* chainFromPairs(std::string_view pairs, const TextEncoding& encoding)
{
    resbuf* head = nullptr;
    resbuf** link = &head;
    TagReader reader{pairs};
    Tag tag;
    while (reader.next(tag))
    {
        const ValueKind kind = valueKind(tag.code);
        if (kind == ValueKind::None)
            continue;
        resbuf* node = acutNewRb(tag.code);
        if (node == nullptr)
            continue;
        if (kind == ValueKind::Point)
        {
            const AcGePoint3d point = reader.pointFrom(tag);
            node->resval.rpoint[0] = point.x;
            node->resval.rpoint[1] = point.y;
            node->resval.rpoint[2] = point.z;
        }
        else if (kind == ValueKind::Real)
            node->resval.rreal = tag.real();
        else if (kind == ValueKind::Short)
            node->resval.rint = static_cast<int16_t>(tag.integer());
        else if (kind == ValueKind::Long)
            node->resval.rlong = static_cast<int32_t>(tag.integer());
        else if (isStringCode(tag.code))
            node->resval.rstring = acutNewString(encoding.decode(tag.value).c_str());
        *link = node;
        link = &node->rbnext;
    }
    return head;
}

std::string pairsFromChain(const resbuf* chain, const TextEncoding& encoding)
{
    TagWriter out;
    for (const resbuf* node = chain; node != nullptr; node = node->rbnext)
    {
        const int code = node->restype;
        switch (valueKind(code))
        {
        case ValueKind::Point:
            out.point(code, {node->resval.rpoint[0], node->resval.rpoint[1], node->resval.rpoint[2]});
            break;
        case ValueKind::Real:
            out.real(code, node->resval.rreal);
            break;
        case ValueKind::Short:
            out.integer(code, node->resval.rint);
            break;
        case ValueKind::Long:
            out.integer(code, node->resval.rlong);
            break;
        case ValueKind::Text:
            if (isStringCode(code))
                out.text(code, encoding.encode(node->resval.rstring != nullptr ? node->resval.rstring : u""));
            break;
        case ValueKind::None:
            break;
        }
    }
    return out.take();
}

resbuf* AcDbObject::xData(const char16_t* application) const
{
    const TextEncoding& encoding = m_record->database->encoding();
    const std::string_view own = m_fresh ? std::string_view{m_freshXData} : pairs();
    return chainFromPairs(findXData(own, application != nullptr ? application : u"", encoding), encoding);
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain)
{
    if (m_record == nullptr)
        return Acad::eNotInDatabase;
    if (!m_writing)
        return Acad::eNotOpenForWrite;
    if (chain == nullptr || chain->restype != kApplicationName || chain->resval.rstring == nullptr)
        return Acad::eInvalidInput;
    for (const resbuf* node = chain; node != nullptr; node = node->rbnext)
        if (!isXDataCode(node->restype))
            return Acad::eInvalidInput;
    const std::u16string_view application = chain->resval.rstring;
    AcDbDatabase& database = *m_record->database;
    if (database.tables().find("APPID", application) == nullptr)
        return Acad::eRegappIdNotFound;
    const TextEncoding& encoding = database.encoding();
    std::string text = withoutXData(m_fresh ? std::string_view{m_freshXData} : pairs(), application, encoding) +
                       pairsFromChain(chain, encoding);
    if (m_fresh)
        m_freshXData = std::move(text);
    else
        setPairs(text);
    return Acad::eOk;
}

bool acdbRegApp(const char16_t* name)
{
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (database == nullptr)
        return false;
    if (database->tables().find("APPID", name) != nullptr)
        return true;
    AcDbRegAppTable* table = nullptr;
    if (database->getSymbolTable(table, AcDb::kForWrite) != Acad::eOk)
        return false;
    auto record = std::make_unique<AcDbRegAppTableRecord>();
    record->setName(name);
    const bool added = table->add(record.get()) == Acad::eOk;
    if (added)
        record.release()->close();
    table->close();
    return added;
}
