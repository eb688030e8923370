#include "host/db/table/dictionary.h"

#include "host/db/database.h"
#include "host/db/entity/extended_data.h"
#include "store/pair_edit.h"
#include "store/text/text.h"

#include <algorithm>

ACRX_DEFINE_MEMBERS(AcDbDictionary, AcDbObject, u"DICTIONARY")
ACRX_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, u"XRECORD")

namespace
{

constexpr int kEntryName = 3;
constexpr int kSoftOwner = 350;
constexpr int kHardOwner = 360;

bool isEntryHandle(int code)
{
    return code == kSoftOwner || code == kHardOwner;
}

} // namespace

/// The entry of a name as it is spelled, else of one that differs in case and composition only; the number of entries
/// when there is none.
template <class Counts>
size_t AcDbDictionary::indexOf(std::u16string_view name, Counts counts) const
{
    const auto first = [&](auto isNamed)
    {
        const auto at = std::find_if(m_entries.begin(), m_entries.end(),
                                     [&](const auto& entry) { return isNamed(entry.first) && counts(entry.second); });
        return static_cast<size_t>(at - m_entries.begin());
    };
    const size_t exact = first([&](const std::u16string& entry) { return entry == name; });
    return exact < m_entries.size() ? exact
                                    : first([&](const std::u16string& entry) { return equalNoCase(entry, name); });
}

Acad::ErrorStatus AcDbDictionary::getAt(const std::u16string& name, AcDbObjectId& id) const
{
    const size_t index = indexOf(name, [](const AcDbObjectId& object) { return !object.isErased(); });
    if (index == m_entries.size())
        return Acad::eKeyNotFound;
    id = m_entries[index].second;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::setAt(const std::u16string& name, AcDbObject* object, AcDbObjectId& id)
{
    if (object == nullptr)
        return Acad::eNullObjectPointer;
    if (!isWriteEnabled())
    {
        assertWriteEnabled();
        return Acad::eNotOpenForWrite;
    }
    if (!object->objectId().isNull() || object->isA()->dxfName() == nullptr)
        return Acad::eAlreadyInDb;
    const size_t index = indexOf(name, [](const AcDbObjectId&) { return true; });
    database()->take(*object, objectId().record()->container, objectId().handle().value());
    id = object->objectId();
    if (index < m_entries.size())
        return replaceEntry(index, id);
    appendEntry(name, id);
    return Acad::eOk;
}

/// What stood there is erased; its name stays where it was.
Acad::ErrorStatus AcDbDictionary::replaceEntry(size_t index, AcDbObjectId id)
{
    const AcDbObjectId earlier = m_entries[index].second;
    m_entries[index].second = id;
    {
        const AcDbObjectPointer<AcDbObject> replaced{earlier, AcDb::kForWrite};
        if (replaced)
            replaced->erase();
    }
    if (isFresh())
        return Acad::eOk;
    PairEdit edit{pairs()};
    OwnPairs own{pairs()};
    size_t names = 0;
    for (Tag tag; own.next(tag);)
    {
        if (tag.code == kEntryName)
            ++names;
        if (!isEntryHandle(tag.code) || names != index + 1)
            continue;
        TagWriter pair;
        pair.handle(tag.code, id.handle().value());
        edit.replace(tag, pair.view());
        break;
    }
    setPairs(edit.take());
    return Acad::eOk;
}

void AcDbDictionary::appendEntry(const std::u16string& name, AcDbObjectId id)
{
    m_entries.emplace_back(name, id);
    if (isFresh())
        return;
    OwnPairs own{pairs()};
    int owner = kSoftOwner;
    for (Tag tag; own.next(tag);)
        if (isEntryHandle(tag.code))
            owner = tag.code;
    TagWriter entry;
    entry.text(kEntryName, encodeText(name));
    entry.handle(owner, id.handle().value());
    PairEdit edit{pairs()};
    edit.insert(own.position(), entry.view());
    setPairs(edit.take());
}

void AcDbDictionary::decode(TagReader& pairs)
{
    OwnPairs own{pairs};
    for (Tag tag; own.next(tag);)
        if (tag.code == kEntryName)
            m_entries.emplace_back(decodeText(tag.value), AcDbObjectId{});
        else if (isEntryHandle(tag.code) && !m_entries.empty())
            database()->getAcDbObjectId(m_entries.back().second, true, AcDbHandle{tag.handle()});
}

void AcDbDictionary::encode(TagWriter& out) const
{
    out.text(100, "AcDbDictionary");
    out.integer(281, 1);
    for (const auto& [name, id] : m_entries)
    {
        out.text(kEntryName, encodeText(name));
        out.handle(kSoftOwner, id.handle().value());
    }
}

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain) const
{
    if (database() == nullptr)
        return Acad::eNotInDatabase;
    *chain = chainFromPairs(m_values, database()->encoding());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain)
{
    if (database() == nullptr)
        return Acad::eNotInDatabase;
    if (!isFresh())
        return Acad::eNotImplementedYet;
    m_values = pairsFromChain(&chain, database()->encoding());
    return Acad::eOk;
}

/// The values stand behind the class marker and the flag for copying; they may have any code, also those of groups and
/// extended data.
void AcDbXrecord::decode(TagReader& pairs)
{
    const std::string_view text = this->pairs();
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 100 && tag.word() == "AcDbXrecord")
            break;
    const char* begin = pairs.position();
    if (Tag tag; pairs.next(tag) && tag.code == 280)
        begin = tag.end;
    m_values.assign(begin, text.data() + text.size());
}

void AcDbXrecord::encode(TagWriter& out) const
{
    out.text(100, "AcDbXrecord");
    out.integer(280, 1);
    out.raw(m_values);
}
