#include "host/db/object.h"

#include "host/db/database.h"
#include "host/db/ledger.h"
#include "host/db/resident_cache.h"

ACRX_DEFINE_MEMBERS(AcDbObject, AcRxObject, nullptr)

const AcRxClass* AcRxObject::desc()
{
    static const AcRxClass descriptor{u"AcRxObject", nullptr, nullptr};
    return &descriptor;
}

AcDbObject::~AcDbObject() = default;

void AcDbObject::decode(TagReader&) {}

void AcDbObject::encode(TagWriter&) const {}

AcDbDatabase* AcDbObject::database() const
{
    return m_record != nullptr ? m_record->database : nullptr;
}

bool AcDbObject::isErased() const
{
    return m_record != nullptr && m_record->has(ObjectRecord::kErased);
}

void AcDbObject::assertWriteEnabled()
{
    if (m_record != nullptr && !m_writing)
        ledger().faults.push_back("an object was changed that is not open for write");
}

Acad::ErrorStatus AcDbObject::close()
{
    if (m_record == nullptr)
        return Acad::eNotInDatabase;
    if (m_writing)
    {
        beforeClose();
        if (m_fresh)
            encodeRecord();
        m_writing = false;
    }
    else if (m_readers > 0)
        --m_readers;
    else
        return Acad::eNotOpenForRead;
    --ledger().openObjects;
    if (!isOpen())
        m_record->database->residents().keep(*m_record);
    return Acad::eOk;
}

void AcDbObject::encodeRecord()
{
    static thread_local TagWriter out;
    out.clear();
    out.text(0, m_record->database->store().kinds[m_record->kind]);
    out.handle(5, m_record->handle);
    if (m_owner != 0)
        out.handle(330, m_owner);
    encode(out);
    out.raw(m_freshXData);
    m_record->database->setRecordText(*m_record, out.view());
    m_fresh = false;
    m_freshXData.clear();
}

Acad::ErrorStatus AcDbObject::upgradeOpen()
{
    if (m_record == nullptr)
        return Acad::eNotInDatabase;
    if (m_writing)
        return Acad::eWasOpenForWrite;
    if (m_readers != 1)
        return m_readers == 0 ? Acad::eNotOpenForRead : Acad::eWasOpenForRead;
    if (const Acad::ErrorStatus refused = m_record->database->refuseWrite(*m_record); refused != Acad::eOk)
        return refused;
    m_readers = 0;
    m_writing = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen()
{
    if (!m_writing)
        return Acad::eNotOpenForWrite;
    beforeClose();
    if (m_fresh)
        encodeRecord();
    m_writing = false;
    m_readers = 1;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::erase(bool erasing)
{
    if (m_record == nullptr)
        return Acad::eNotInDatabase;
    if (!m_writing)
        return Acad::eNotOpenForWrite;
    if (m_record->database->isEnd(*m_record))
        return Acad::eInvalidInput;
    m_record->database->setErased(*m_record, erasing);
    return Acad::eOk;
}

std::string_view AcDbObject::pairs() const
{
    return m_record != nullptr && !m_fresh ? m_record->view() : std::string_view{};
}

void AcDbObject::setPairs(std::string_view text)
{
    m_record->database->setRecordText(*m_record, text);
}

std::u16string AcDbObject::decodeText(std::string_view bytes) const
{
    return m_record->database->encoding().decode(bytes);
}

std::string AcDbObject::encodeText(std::u16string_view text) const
{
    return m_record->database->encoding().encode(text);
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, const AcRxClass* kind,
                                     bool openErased)
{
    object = nullptr;
    ObjectRecord* record = id.record();
    if (record == nullptr)
        return Acad::eNullObjectId;
    if ((record->flags & (ObjectRecord::kDangling | ObjectRecord::kErased)) != 0)
    {
        if (record->has(ObjectRecord::kDangling))
            return Acad::eUnknownHandle;
        if (!openErased)
            return Acad::eWasErased;
    }
    AcDbDatabase& database = *record->database;
    AcDbObject* const resident = record->resident;
    const AcRxClass* const own = resident != nullptr ? resident->isA() : database.classOf(*record);
    if (own != kind && !own->isDerivedFrom(kind))
        return Acad::eNotThatKindOfClass;
    if (resident != nullptr && resident->m_writing)
    {
        if (mode == AcDb::kForWrite)
            ledger().faults.push_back("an object was opened for write that is open for write already");
        return Acad::eWasOpenForWrite;
    }
    if (mode == AcDb::kForWrite)
    {
        if (resident != nullptr && resident->isOpen())
        {
            ledger().faults.push_back("an object was opened for write that is open for read elsewhere");
            return Acad::eWasOpenForRead;
        }
        if (const Acad::ErrorStatus refused = database.refuseWrite(*record); refused != Acad::eOk)
            return refused;
    }
    if (record->resident == nullptr)
    {
        record->resident = database.load(*record).release();
        if (record->resident == nullptr)
            return Acad::eBadDxfSequence;
    }
    object = record->resident;
    if (mode == AcDb::kForWrite)
        object->m_writing = true;
    else
        ++object->m_readers;
    ++ledger().openObjects;
    return Acad::eOk;
}
