#include "store/object_id.h"

#include "store/record.h"

#include <charconv>

bool AcDbHandle::getIntoAsciiBuffer(char16_t* buffer, size_t size) const
{
    char digits[24];
    const char* end = std::to_chars(digits, digits + sizeof digits, m_value, 16).ptr;
    const auto length = static_cast<size_t>(end - digits);
    if (length + 1 > size)
        return false;
    for (size_t i = 0; i < length; ++i)
        buffer[i] = static_cast<char16_t>(digits[i] >= 'a' ? digits[i] - 'a' + 'A' : digits[i]);
    buffer[length] = u'\0';
    return true;
}

bool AcDbObjectId::isErased() const
{
    return m_record == nullptr || m_record->has(ObjectRecord::kErased) || m_record->has(ObjectRecord::kDangling);
}

AcDbHandle AcDbObjectId::handle() const
{
    return AcDbHandle{m_record == nullptr ? 0 : m_record->handle};
}

AcDbDatabase* AcDbObjectId::database() const
{
    return m_record == nullptr ? nullptr : m_record->database;
}
