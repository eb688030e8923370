#pragma once

#include "kernel/point3d.h"
#include "store/drawing_store.h"
#include "store/object_id.h"
#include "store/record.h"
#include "store/text/name_map.h"

#include <string>
#include <unordered_map>
#include <vector>

class TableIndex;

/// The point of a block that references put in place. DamagedValue when it cannot be read.
AcGePoint3d basePointOf(const Container& block);

/// Which entities stand in which block: the two sides of a block in a drawing file (its record in the table, its
/// contents among the blocks or in the ENTITIES section) brought together.
class BlockIndex
{
public:
    BlockIndex(DrawingStore& drawing, TableIndex& tables) : m_drawing{drawing}, m_tables{tables} {}

    /// The block's record by name; null when there is none (or only an erased one).
    ObjectRecord* record(std::u16string_view name);
    /// The block record an entity stands in; null when the drawing has none (older than R2000).
    ObjectRecord* ownerOf(const ObjectRecord& entity);
    /// Index of the container that new entities of the block go to; npos when the block has no contents.
    uint32_t containerOf(const ObjectRecord& blockRecord);
    /// The block's entities in drawing order: live ones, without vertices and attributes.
    AcDbObjectIdArray entities(const ObjectRecord& blockRecord);
    /// The same by the contents' container (a block of a drawing older than R2000 has no record).
    AcDbObjectIdArray entitiesIn(uint32_t container, bool paperSpace);
    /// The block's contents (kBlock) by name; null when there is none.
    Container* contents(std::u16string_view name);
    /// Makes a block that was just added known.
    void add(const std::u16string& name, ObjectRecord& blockRecord, uint32_t container);

    bool isModelSpace(const ObjectRecord& blockRecord);
    bool isPaperSpace(const ObjectRecord& blockRecord);

    static constexpr uint32_t npos = 0xFFFFFFFF;

private:
    void load();

    DrawingStore& m_drawing;
    TableIndex& m_tables;
    bool m_loaded = false;
    uint32_t m_entities = npos;
    ObjectRecord* m_modelSpace = nullptr;
    ObjectRecord* m_paperSpace = nullptr;
    NameMap<uint32_t> m_contents;
    std::unordered_map<uint32_t, ObjectRecord*> m_recordOf;
    std::unordered_map<const ObjectRecord*, uint32_t> m_containerOf;
};
