#include "host/drawing/handle_table.h"

#include <bit>

ObjectRecord* HandleTable::find(uint64_t handle)
{
    if (handle == 0)
        return nullptr;
    if (m_indexed < m_pool.size())
        rebuild(m_pool.size());
    if (m_slots.empty())
        return nullptr;
    const size_t mask = m_slots.size() - 1;
    for (size_t slot = slotOf(handle);; slot = (slot + 1) & mask)
    {
        if (m_slots[slot] == 0)
            return nullptr;
        ObjectRecord& record = m_pool[m_slots[slot] - 1];
        if (record.handle == handle)
            return &record;
    }
}

void HandleTable::add(const ObjectRecord& record)
{
    if (m_indexed + 1 != m_pool.size())
        return; // not built yet, or behind: the next look-up catches up
    if ((m_used + 1) * 3 > m_slots.size() * 2)
        rebuild(m_pool.size() * 2);
    else
        insert(record);
    m_indexed = m_pool.size();
}

void HandleTable::insert(const ObjectRecord& record)
{
    if (record.handle == 0)
        return;
    const size_t mask = m_slots.size() - 1;
    size_t slot = slotOf(record.handle);
    for (; m_slots[slot] != 0; slot = (slot + 1) & mask)
        if (m_pool[m_slots[slot] - 1].handle == record.handle)
            return;
    m_slots[slot] = record.order + 1;
    ++m_used;
}

void HandleTable::rebuild(size_t count)
{
    const size_t size = std::bit_ceil(count + count / 2 + 8);
    m_slots.assign(size, 0);
    m_shift = static_cast<unsigned>(64 - std::countr_zero(size));
    m_used = 0;
    for (size_t i = 0; i < m_pool.size(); ++i)
        insert(m_pool[i]);
    m_indexed = m_pool.size();
}
