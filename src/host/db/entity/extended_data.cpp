#include "host/db/entity/extended_data.h"

#include "host/db/database.h"
#include "host/db/entity/survey_codes.h"
#include "store/group_codes.h"
#include "store/numbers.h"
#include "store/table_index.h"
#include "store/tags.h"
#include "store/text/text.h"

namespace
{

bool isXDataCode(int code)
{
    return code >= dxf::kXString && code <= dxf::kLastCode;
}

/// What a node of a chain holds.
enum class NodeKind
{
    Text,
    Point,
    Real,
    Short,
    Long,
    None
};

NodeKind nodeKind(int code)
{
    if (isStringCode(code))
        return NodeKind::Text;
    if (dxf::isFirstCoordinate(code))
        return NodeKind::Point;
    switch (dxf::kindOf(code))
    {
    case dxf::ValueKind::Real:
        return NodeKind::Real;
    case dxf::ValueKind::Int16:
    case dxf::ValueKind::Bool:
        return NodeKind::Short;
    case dxf::ValueKind::Int32:
        return NodeKind::Long;
    case dxf::ValueKind::String:
    case dxf::ValueKind::Handle:
    case dxf::ValueKind::Chunk:
    case dxf::ValueKind::Int64:
    case dxf::ValueKind::None:
        break;
    }
    return NodeKind::None;
}

} // namespace

std::string_view findXData(std::string_view pairs, std::u16string_view application, const TextEncoding& encoding)
{
    TagReader reader{pairs};
    Tag tag;
    const char* begin = nullptr;
    while (reader.next(tag))
    {
        if (tag.code != dxf::kXApplication)
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

namespace
{

AcGePoint3d pointOrOrigin(TagReader& reader, const Tag& x)
{
    try
    {
        return reader.pointFrom(x);
    }
    catch (const DamagedValue&)
    {
        return {};
    }
}

} // namespace

resbuf* chainFromPairs(std::string_view pairs, const TextEncoding& encoding)
{
    resbuf* head = nullptr;
    resbuf** link = &head;
    TagReader reader{pairs};
    Tag tag;
    while (reader.next(tag))
    {
        const NodeKind kind = nodeKind(tag.code);
        if (kind == NodeKind::None)
            continue;
        resbuf* node = acutNewRb(tag.code);
        if (node == nullptr)
            continue;
        if (kind == NodeKind::Point)
        {
            const AcGePoint3d point = pointOrOrigin(reader, tag);
            node->resval.rpoint[0] = point.x;
            node->resval.rpoint[1] = point.y;
            node->resval.rpoint[2] = point.z;
        }
        else if (kind == NodeKind::Real)
            node->resval.rreal = dxf::readReal(tag.value).value_or(0.0);
        else if (kind == NodeKind::Short)
            node->resval.rint = static_cast<int16_t>(tag.integerOr(0));
        else if (kind == NodeKind::Long)
            node->resval.rlong = static_cast<int32_t>(tag.integerOr(0));
        else
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
        switch (nodeKind(code))
        {
        case NodeKind::Point:
            out.point(code, {node->resval.rpoint[0], node->resval.rpoint[1], node->resval.rpoint[2]});
            break;
        case NodeKind::Real:
            out.real(code, node->resval.rreal);
            break;
        case NodeKind::Short:
            out.integer(code, node->resval.rint);
            break;
        case NodeKind::Long:
            out.integer(code, node->resval.rlong);
            break;
        case NodeKind::Text:
            out.text(code, encoding.encode(node->resval.rstring != nullptr ? node->resval.rstring : u""));
            break;
        case NodeKind::None:
            break;
        }
    }
    return out.take();
}

resbuf* AcDbObject::xData(const char16_t* application) const
{
    const TextEncoding& encoding = m_record->database->encoding();
    const std::string_view own = m_fresh ? std::string_view{m_freshXData} : pairs();
    const std::u16string_view name = application != nullptr ? application : u"";
    resbuf* chain = chainFromPairs(findXData(own, name, encoding), encoding);
    if (equalNoCase(name, kSurveyApplication))
        restoreSurveyBytes(chain, encoding);
    return chain;
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain)
{
    if (m_record == nullptr)
        return Acad::eNotInDatabase;
    if (!m_writing)
        return Acad::eNotOpenForWrite;
    if (chain == nullptr || chain->restype != dxf::kXApplication || chain->resval.rstring == nullptr)
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
