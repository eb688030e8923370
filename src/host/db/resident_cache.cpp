#include "host/db/resident_cache.h"

#include "host/db/object.h"

void ResidentCache::keep(ObjectRecord& record)
{
    if (record.resident->m_kept)
        return;
    ObjectRecord*& slot = m_ring[m_next];
    m_next = (m_next + 1) % kSize;
    if (slot != nullptr && slot->resident != nullptr)
    {
        slot->resident->m_kept = false;
        if (!slot->resident->isOpen())
            std::unique_ptr<AcDbObject>{slot->resident}, slot->resident = nullptr;
    }
    slot = &record;
    record.resident->m_kept = true;
}
