#pragma once

#include "store/record.h"

#include <cstdint>
#include <vector>

/// Finds records by handle. Built over the pool when first asked; what was added since is taken in by the next
/// question, all at once. Four bytes a slot.
class HandleTable
{
public:
    explicit HandleTable(RecordPool& pool) : m_pool{pool} {}

    /// The record of a handle; of two with the same handle the first. Null when there is none.
    ObjectRecord* find(uint64_t handle);

private:
    void catchUp();
    void insert(const ObjectRecord& record);
    size_t slotOf(uint64_t handle) const { return (handle * 0x9E3779B97F4A7C15U) >> m_shift; }

    RecordPool& m_pool;
    std::vector<uint32_t> m_slots; ///< index into the pool plus one; 0 is free
    unsigned m_shift = 64;
    size_t m_indexed = 0; ///< records of the pool that are in the table
};
