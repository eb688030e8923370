#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

class AcDbDatabase;
class AcDbObject;

/// What the database keeps of an object that nobody has open: where its text stands, and a few bytes more. An object
/// that was never touched costs this record and its place in the handle table, nothing else.
struct ObjectRecord
{
    enum Flag : uint8_t
    {
        kErased = 1,      ///< left out when the drawing is written
        kOwnText = 2,     ///< `text` is this record's own (new or changed), not a piece of the file
        kAdded = 4,       ///< made after the drawing was read
        kSubEntity = 8,   ///< a vertex, attribute or sequence end: belongs to the entity before it
        kPaperSpace = 16, ///< an entity of the ENTITIES section that lies in paper space (67 = 1)
        kDangling = 32,   ///< stands for a handle that names nothing in the drawing
        kChanged = 64,    ///< stands in the database's list of changes
        kDamaged = 128    ///< a number in it could not be read: meets nothing
    };

    AcDbDatabase* database = nullptr;
    uint64_t handle = 0;
    const char* text = nullptr;     ///< the object's own pairs, from its code 0 to before the next object's
    AcDbObject* resident = nullptr; ///< the object in memory: open, or kept for the next open
    uint32_t length = 0;            ///< bytes of `text`
    uint32_t container = 0;         ///< index of the container that holds it
    uint32_t order = 0;             ///< place in file order; what was added comes behind what was read
    uint16_t kind = 0;              ///< index into the database's list of DXF names
    uint8_t flags = 0;

    bool has(Flag flag) const { return (flags & flag) != 0; }
    void set(Flag flag, bool on) { flags = static_cast<uint8_t>(on ? flags | flag : flags & ~flag); }
    std::string_view view() const { return {text, length}; }
};

/// Records in file order at addresses that never change, in blocks of a fixed size.
class RecordPool
{
public:
    ObjectRecord& add()
    {
        if (m_count % kBlock == 0)
            m_blocks.push_back(std::make_unique<std::array<ObjectRecord, kBlock>>());
        ObjectRecord& record = (*m_blocks.back())[m_count % kBlock];
        record.order = static_cast<uint32_t>(m_count++);
        return record;
    }

    ObjectRecord& operator[](size_t index) { return (*m_blocks[index / kBlock])[index % kBlock]; }
    const ObjectRecord& operator[](size_t index) const { return (*m_blocks[index / kBlock])[index % kBlock]; }
    size_t size() const { return m_count; }

private:
    static constexpr size_t kBlock = 1024;
    std::vector<std::unique_ptr<std::array<ObjectRecord, kBlock>>> m_blocks;
    size_t m_count = 0;
};
