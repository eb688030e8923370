#pragma once

#include "host/db/object.h"
#include "kernel/point3d.h"
#include "store/drawing_store.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class AcDbBlockTable;
class AcDbDatabaseReactor;
class AcDbDictionary;
class AcDbDimStyleTable;
class AcDbEntity;
class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbRegAppTable;
class AcDbSymbolTable;
class AcDbTextStyleTable;
class AcDbUCSTable;
class AcDbViewTable;
class AcDbViewportTable;
class BlockIndex;
class HandleTable;
class HeaderVariables;
struct HostClass;
class ResidentCache;
class TableIndex;
class UndoStep;

enum class DwgShareMode
{
    kForReadAndReadShare
};
constexpr DwgShareMode kForReadAndReadShare = DwgShareMode::kForReadAndReadShare;

/// A drawing: the text of its file, an index over it, and what was changed since. Owns every object in it.
/// Not copyable; ids and records stay valid until it is destroyed. One thread.
class AcDbDatabase
{
public:
    /// `buildDefaultDrawing` must be false: a drawing comes from a file. `noDocument` has no effect.
    explicit AcDbDatabase(bool buildDefaultDrawing = false, bool noDocument = false);
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;
    ~AcDbDatabase();

    /// Reads a symbol drawing as the running application finds and reads it. `eFilerError` when that fails, which the
    /// application is told with the reason.
    Acad::ErrorStatus readDwgFile(const char16_t* path, DwgShareMode mode = kForReadAndReadShare,
                                  bool allowCodePageConversion = false, const char16_t* password = nullptr);
    /// Makes the model space of `source` a block definition `name` of this drawing, with everything it uses; what this
    /// drawing has under a name already is kept. `eInvalidInput` for an invalid name, `eDuplicateRecordName` for one
    /// that is taken, `eSelfReference` when blocks of the source contain each other in a circle, `eFilerError` when an
    /// entity of the source is damaged, `eBadDxfSequence` when this drawing has no place for blocks.
    Acad::ErrorStatus insert(AcDbObjectId& blockId, const char16_t* name, AcDbDatabase* source,
                             bool preserveSourceDatabase = true);

    template <class Table>
    Acad::ErrorStatus getSymbolTable(Table*& table, AcDb::OpenMode mode = AcDb::kForRead)
    {
        return acdbOpenObject(table, tableId(Table::desc()), mode);
    }
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
    /// The table whose objects are of class `tableClass`; null when the drawing has none.
    AcDbObjectId tableId(const AcRxClass* tableClass);

    AcDbObjectId clayer();
    bool tilemode();
    AcGePoint3d ucsorg();
    AcGeVector3d ucsxdir();
    AcGeVector3d ucsydir();
    AcGePoint3d pucsorg();
    AcGeVector3d pucsxdir();
    AcGeVector3d pucsydir();

    /// The id of a handle; with `createIfNotFound` an id that cannot be opened stands for a handle of nothing.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle);

    void addReactor(AcDbDatabaseReactor* reactor);
    void removeReactor(AcDbDatabaseReactor* reactor);
    const std::vector<AcDbDatabaseReactor*>& reactors() const { return m_reactors; }

    /// Takes over what a reader found. Only on an empty database.
    void adopt(DrawingStore store);
    const DrawingStore& store() const { return m_store; }
    DrawingStore& store() { return m_store; }
    int version() const { return m_store.version; }
    const TextEncoding& encoding() const { return *m_store.encoding; }

    HeaderVariables& header() { return *m_header; }
    BlockIndex& blocks() { return *m_blocks; }
    TableIndex& tables() { return *m_tables; }
    ResidentCache& residents() { return *m_residents; }
    HandleTable& handles() { return *m_handles; }

    /// A record for something new at the end of a container, with a fresh handle. Its text follows.
    ObjectRecord& addRecord(uint32_t container, std::string_view dxfName);
    /// Makes an empty block `name` (no check of the name, it must be free): its record in the table, its begin and end
    /// among the blocks. Answers the record; its contents go to `blocks().containerOf(record)`. Null when the drawing
    /// has no table of blocks.
    ObjectRecord* addBlock(const std::u16string& name, const AcGePoint3d& origin);
    /// Takes a fresh object into a container, owned by the object with handle `owner`: it belongs to the database from
    /// then on, is open for write, and is encoded when it is closed.
    ObjectRecord& take(AcDbObject& object, uint32_t container, uint64_t owner);
    /// Gives a record text of its own (counted as a change).
    void setRecordText(ObjectRecord& record, std::string_view text);
    /// Whether a record is the end of a block or of a sequence: it goes with what it ends, never by itself.
    bool isEnd(const ObjectRecord& record) const;
    /// Erases a record or brings it back, with the sub-entities that follow it.
    void setErased(ObjectRecord& record, bool erased);
    /// A handle that nothing in the drawing has. Of a drawing without handles left (`hasHandlesLeft`) it is one that
    /// cannot be saved.
    uint64_t takeHandle();
    uint64_t nextHandle() const { return m_nextHandle; }
    /// Whether all handles that were taken lie below one that is free, as a saved drawing has to say.
    bool hasHandlesLeft() const { return m_spareHandle == 0; }

    /// A record that was changed, erased or added since the file was read, and where it stood in the file's text (empty
    /// for an added one).
    struct Change
    {
        ObjectRecord* record;
        std::string_view original;
    };
    const std::vector<Change>& changes() const { return m_changes; }
    /// Grows with every change of a record, so that what was worked out from the drawing can be told to be stale.
    uint64_t changeCount() const { return m_touched.size(); }
    /// The records of all changes in their order, `changeCount` of them: those that were changed again stand in it
    /// again.
    const std::vector<ObjectRecord*>& touched() const { return m_touched; }
    bool isModified() const;
    const AcRxClass* classOf(const ObjectRecord& record);
    std::string_view dxfNameOf(const ObjectRecord& record) const;
    /// Why a record may not be opened for write now (locked layer, a refusal of the session); `eOk` when it may. A
    /// write outside the document's lock is let through and noted in the ledger.
    Acad::ErrorStatus refuseWrite(const ObjectRecord& record);

private:
    friend class UndoStep;
    friend Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*&, AcDbObjectId, AcDb::OpenMode, const AcRxClass*, bool);

    Acad::ErrorStatus insertModelSpace(AcDbObjectId& blockId, const char16_t* name, AcDbDatabase* source,
                                       std::string& damage);
    void noteChange(ObjectRecord& record);
    /// The step that hears of every change before it is made; null: none.
    void listen(UndoStep* step);
    void forgetResident(ObjectRecord& record);
    void setFileText(ObjectRecord& record, std::string_view text);
    void setOnlyErased(ObjectRecord& record, bool erased);
    ObjectRecord& makeRecord(uint32_t container, std::string_view dxfName);
    std::unique_ptr<AcDbObject> load(ObjectRecord& record);
    const ObjectRecord& headOf(const ObjectRecord& part);
    bool isOnLockedLayer(const ObjectRecord& record);
    AcGePoint3d headerPoint(const std::string& name, const AcGePoint3d& fallback);

    DrawingStore m_store;
    std::u16string m_symbolPath; ///< what `readDwgFile` was asked for
    std::vector<Change> m_changes;
    UndoStep* m_step = nullptr;
    std::vector<ObjectRecord*> m_touched;
    std::vector<const HostClass*> m_classes; ///< by `ObjectRecord::kind`, filled as asked for
    std::unique_ptr<HeaderVariables> m_header;
    std::unique_ptr<TableIndex> m_tables;
    std::unique_ptr<BlockIndex> m_blocks;
    std::unique_ptr<ResidentCache> m_residents;
    std::unique_ptr<HandleTable> m_handles;
    std::vector<AcDbDatabaseReactor*> m_reactors;
    RecordPool m_danglingPool;
    std::unordered_map<uint64_t, ObjectRecord*> m_dangling;
    uint32_t m_lastPart = UINT32_MAX; ///< the sub-entity whose head was asked for last
    uint32_t m_lastHead = 0;
    static constexpr uint64_t kNoHandleLeft = UINT64_MAX;
    uint64_t m_nextHandle = 1;
    uint64_t m_spareHandle = 0; ///< the last handle taken from below, once there was none above
};

/// The records that belong to an entity and follow it: vertices, attributes, the end of their sequence; live ones.
std::vector<ObjectRecord*> subEntitiesOf(const ObjectRecord& record);

/// The name (code 2) of a table record, decoded.
std::u16string nameOfRecord(const ObjectRecord& record);

/// Hears what happens to a database. Every notification does nothing unless overridden.
class AcDbDatabaseReactor
{
public:
    virtual ~AcDbDatabaseReactor() = default;
    virtual void goodbye(const AcDbDatabase*) {}
};
