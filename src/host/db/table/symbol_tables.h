#pragma once

#include "host/db/entity/entity.h"
#include "host/db/object.h"

#include <string>

/// A named record of one of the drawing's tables. A record made here can be changed until it is closed; a loaded one
/// answers `eNotImplementedYet`.
class AcDbSymbolTableRecord : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS()
    std::u16string getName() const { return m_name; }
    Acad::ErrorStatus getName(std::u16string& name) const;
    Acad::ErrorStatus setName(const std::u16string& name);

protected:
    void decode(TagReader& pairs) override;
    void encode(TagWriter& out) const override;
    /// `eOk` while the record is fresh; else why it may not be changed.
    Acad::ErrorStatus mayChangeFresh();

private:
    std::u16string m_name;
};

/// Walks the records of a table in table order, erased ones skipped. Belongs to the caller.
class AcDbSymbolTableIterator
{
public:
    explicit AcDbSymbolTableIterator(AcDbObjectIdArray ids) : m_ids{std::move(ids)} {}
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const { return m_at >= m_ids.size(); }
    void step(bool forward = true, bool skipDeleted = true);
    AcDbObjectId getRecordId() const { return m_ids[m_at]; }
    /// Opens the record at hand.
    template <class Record>
    Acad::ErrorStatus getRecord(Record*& record, AcDb::OpenMode mode = AcDb::kForRead)
    {
        return acdbOpenObject(record, getRecordId(), mode);
    }

private:
    AcDbObjectIdArray m_ids;
    size_t m_at = 0;
};

/// One of the eight tables of named records. Names are compared without regard to case; look-ups cost a hash.
class AcDbSymbolTable : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS()
    /// `eKeyNotFound` when there is no such record; an erased one counts only when asked for.
    Acad::ErrorStatus getAt(const std::u16string& name, AcDbObjectId& id, bool getErased = false) const;
    Acad::ErrorStatus getIdAt(const std::u16string& name, AcDbObjectId& id, bool getErased = false) const
    {
        return getAt(name, id, getErased);
    }
    template <class Record>
    Acad::ErrorStatus getAt(const std::u16string& name, Record*& record, AcDb::OpenMode mode) const
    {
        AcDbObjectId id;
        const Acad::ErrorStatus status = getAt(name, id);
        return status == Acad::eOk ? acdbOpenObject(record, id, mode) : status;
    }
    bool has(const std::u16string& name) const;
    /// Takes the record into the drawing: on success it belongs to the database, stays open, and must be closed.
    /// `eDuplicateRecordName` when the name is taken, `eInvalidInput` when it is no valid symbol name,
    /// `eNotImplementedYet` for kinds of records that are never made here (linetypes, dimension styles, views ...).
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    std::unique_ptr<AcDbSymbolTableIterator> newIterator() const;
};

/// Whether `name` may name a record: 1 to 255 characters, none of < > / \ " : ; ? * | , = ` and no control characters
/// (a leading * marks the drawing's own blocks and is refused too).
bool isValidSymbolName(std::u16string_view name);

class AcDbTextStyleTable : public AcDbSymbolTable
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbLayerTable : public AcDbSymbolTable
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbLinetypeTable : public AcDbSymbolTable
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbDimStyleTable : public AcDbSymbolTable
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbViewTable : public AcDbSymbolTable
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbUCSTable : public AcDbSymbolTable
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbViewportTable : public AcDbSymbolTable
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbBlockTable : public AcDbSymbolTable
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbRegAppTable : public AcDbSymbolTable
{
public:
    ACRX_DECLARE_MEMBERS()
};

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS()
    std::u16string fileName() const { return m_file; }
    Acad::ErrorStatus setFileName(const std::u16string& file);
    double textSize() const { return m_height; }
    Acad::ErrorStatus setTextSize(double height);

protected:
    void decode(TagReader& pairs) override;
    void encode(TagWriter& out) const override;

private:
    std::u16string m_file;
    double m_height = 0.0;
};

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbRegAppTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS()

protected:
    void encode(TagWriter& out) const override;
};
class AcDbDimStyleTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbViewTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbUCSTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS()
};
class AcDbViewportTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS()
};

/// A colour by its index in the palette.
class AcCmColor
{
public:
    int colorIndex() const { return m_index; }
    void setColorIndex(int index) { m_index = index; }

private:
    int m_index = 7;
};

/// A layer. One that is loaded can be changed too while it is open for write, but for its linetype: its state reaches
/// its pairs when it is closed.
class AcDbLayerTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS()
    bool isFrozen() const { return (m_flags & 1) != 0; }
    bool isLocked() const { return (m_flags & 4) != 0; }
    bool VPDFLT() const { return (m_flags & 2) == 0; }
    bool isOff() const { return m_off; }
    AcCmColor color() const { return m_color; }
    AcDbObjectId linetypeObjectId() const { return m_linetype; }
    Acad::ErrorStatus setIsFrozen(bool on) { return setFlag(1, on); }
    Acad::ErrorStatus setIsLocked(bool on) { return setFlag(4, on); }
    Acad::ErrorStatus setVPDFLT(bool on) { return setFlag(2, !on); }
    Acad::ErrorStatus setIsOff(bool off);
    Acad::ErrorStatus setColor(const AcCmColor& color);
    Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId id);

protected:
    void decode(TagReader& pairs) override;
    void encode(TagWriter& out) const override;
    void beforeClose() override;

private:
    Acad::ErrorStatus mayChange();
    Acad::ErrorStatus setFlag(int bit, bool on);
    int signedColor() const { return m_off ? -m_color.colorIndex() : m_color.colorIndex(); }

    int m_flags = 0;
    bool m_isStateChanged = false; ///< of a loaded layer, waiting for the close
    bool m_isColorChanged = false;
    bool m_off = false;
    AcCmColor m_color;
    AcDbObjectId m_linetype; ///< null: continuous
};

/// A block definition, or one of the spaces.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS()
    /// Takes a fresh entity into the block (at its end): it belongs to the database from then on, stays open for write,
    /// and must be closed. An entity without a layer of its own gets the current one.
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    /// The entities in the block, in drawing order, erased ones left out, vertices and attributes not among them.
    AcDbObjectIdArray entityIds() const;
    /// Base point.
    AcGePoint3d origin() const;

protected:
    void encode(TagWriter& out) const override;
};
