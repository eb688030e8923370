#pragma once

#include "host/db/error_status.h"
#include "host/db/resbuf.h"
#include "host/db/rx.h"
#include "store/object_id.h"
#include "store/tags.h"

#include <memory>
#include <string>
#include <string_view>

class AcDbDatabase;

namespace AcDb
{
enum OpenMode
{
    kForRead,
    kForWrite,
    kForNotify
};
enum Intersect
{
    kOnBothOperands,
    kExtendThis,
    kExtendArg,
    kExtendBoth
};
enum TextHorzMode
{
    kTextLeft,
    kTextCenter,
    kTextRight,
    kTextAlign,
    kTextMid,
    kTextFit
};
enum TextVertMode
{
    kTextBase,
    kTextBottom,
    kTextVertMid,
    kTextTop
};
enum Poly3dType
{
    k3dSimplePoly
};
enum Vertex2dType
{
    k2dVertex,
    k2dSplineCtlVertex,
    k2dSplineFitVertex,
    k2dCurveFitVertex
};
} // namespace AcDb

/// Anything that lives in a drawing database. Made by the caller (then owned by the caller until it is appended) or
/// opened with `acdbOpenObject` (then it belongs to the database and must be closed; prefer `AcDbObjectPointer`).
///
/// Its truth is text: a loaded object keeps its own pairs and edits them in place, so that what the program does not
/// understand survives; an object made here is encoded to pairs when it is closed.
class AcDbObject : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS()
    AcDbObject() = default;
    AcDbObject(const AcDbObject&) = delete;
    AcDbObject& operator=(const AcDbObject&) = delete;
    ~AcDbObject() override;

    AcDbObjectId objectId() const { return AcDbObjectId{m_record}; }
    AcDbDatabase* database() const;
    bool isErased() const;
    bool isReadEnabled() const { return m_readers > 0 || m_writing; }
    bool isWriteEnabled() const { return m_writing; }
    /// Declares that a change follows. On an object that is not open for write nothing changes and the session's
    /// ledger notes the fault.
    void assertWriteEnabled();

    Acad::ErrorStatus close();
    /// From read to write; refused while someone else reads, on a locked layer, or when the session says so.
    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();
    /// Erases (or with false brings back) an object open for write, with its vertices or attributes.
    virtual Acad::ErrorStatus erase(bool erasing = true);

    /// Extended data of one application, or of all when `application` is null; null when there is none. The caller
    /// releases the chain.
    resbuf* xData(const char16_t* application = nullptr) const;
    /// Replaces the extended data of the application that `chain` starts with (1001). The application must be
    /// registered.
    Acad::ErrorStatus setXData(const resbuf* chain);

protected:
    friend class AcDbDatabase;
    friend Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*&, AcDbObjectId, AcDb::OpenMode, const AcRxClass*, bool);

    /// Fills the fields from the object's own pairs. A loaded object only; called once after it was made.
    virtual void decode(TagReader& pairs);
    /// Writes the pairs of an object made here, from behind its handle and owner (the base writes 0, 5, 330).
    virtual void encode(TagWriter& out) const;

    /// Says that the pairs contradict themselves; from within `decode`. The object is then not opened.
    void damaged() { m_damaged = true; }

    /// Called when an object that was open for write is closed, before its text counts: the place to write what was
    /// gathered meanwhile.
    virtual void beforeClose() {}

    /// The object's own pairs as they are now; empty for an object made here and not closed yet.
    std::string_view pairs() const;
    /// Replaces the whole text of a loaded object (its changed pairs); noted as changed in the database.
    void setPairs(std::string_view text);
    bool isFresh() const { return m_fresh; }
    std::u16string decodeText(std::string_view bytes) const;
    std::string encodeText(std::u16string_view text) const;

private:
    friend class ResidentCache;

    bool isOpen() const { return m_readers > 0 || m_writing; }
    void encodeRecord();

    ObjectRecord* m_record = nullptr;
    uint64_t m_owner = 0; ///< handle of the owner of a fresh object
    uint32_t m_readers = 0;
    bool m_writing = false;
    bool m_fresh = true; ///< made here: the fields are the truth, encoded at close
    bool m_damaged = false;
    bool m_kept = false;      ///< stands in the cache of objects closed last
    std::string m_freshXData; ///< extended data given to a fresh object, as pairs
};

/// Opens an object as `T`. `openErased` opens erased ones too. On failure `object` is null.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, const AcRxClass* kind,
                                     bool openErased);

template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false)
{
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, mode, T::desc(), openErased);
    object = static_cast<T*>(opened);
    return status;
}

/// An opened object that closes itself.
template <class T>
class AcDbObjectPointer
{
public:
    explicit AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false)
        : m_status{acdbOpenObject(m_object, id, mode, openErased)}
    {
    }
    AcDbObjectPointer(const AcDbObjectPointer&) = delete;
    AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;
    ~AcDbObjectPointer() { close(); }

    Acad::ErrorStatus openStatus() const { return m_status; }
    T* object() const { return m_object; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    Acad::ErrorStatus close()
    {
        if (m_object == nullptr)
            return Acad::eOk;
        T* object = m_object;
        m_object = nullptr;
        return object->close();
    }

private:
    T* m_object = nullptr;
    Acad::ErrorStatus m_status;
};

/// Registers an application name for extended data in the working database; harmless when it exists already.
/// True when the name is registered afterwards.
bool acdbRegApp(const char16_t* name);
