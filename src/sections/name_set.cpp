#include "sections/name_set.h"

namespace
{

/// What rows and records have in common.
template <class From, class To>
void copySettings(const From& from, To& to)
{
    to.m_strFile = from.m_strFile;
    to.m_dScaleX = from.m_dScaleX;
    to.m_dScaleY = from.m_dScaleY;
    to.m_dRotation = from.m_dRotation;
}

} // namespace

SetName_Index::SetName_Index(const BlockData& row) : m_strName(row.m_strName)
{
    copySettings(row, *this);
}

SetName_Index::SetName_Index(const BlockFcode& row) : m_strName(row.m_strFcode)
{
    copySettings(row, *this);
}

void SetName_Index::applyTo(BlockData& row) const
{
    copySettings(*this, row);
}

void SetName_Index::applyTo(BlockFcode& row) const
{
    copySettings(*this, row);
}

const SetName_Index* NameSet::find(std::u16string_view name) const
{
    const auto at = m_records.find(name);
    return at == m_records.end() ? nullptr : &*at;
}
