#include "store/handle_table.h"

#include <bit>

ObjectRecord* HandleTable::find(uint64_t handle)
{
    if (handle == 0)
        return nullptr;
    if (m_indexed < m_pool.size())
        catchUp();
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

void HandleTable::catchUp()
{
    const size_t count = m_pool.size();
    if (count * 3 > m_slots.size() * 2)
    {
        const size_t size = std::bit_ceil(count + count / 2 + 8);
        m_slots.assign(size, 0);
        m_shift = static_cast<unsigned>(64 - std::countr_zero(size));
        m_indexed = 0;
    }
    for (; m_indexed < count; ++m_indexed)
        insert(m_pool[m_indexed]);
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
}
