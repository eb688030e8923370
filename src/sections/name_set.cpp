#include "sections/name_set.h"

const SetName_Index* NameSet::find(std::u16string_view name) const
{
    const auto at = m_records.find(name);
    return at == m_records.end() ? nullptr : &*at;
}
