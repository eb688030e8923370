#pragma once

#include "host/db/object.h"
#include "kernel/crossing/indexed_path.h"
#include "kernel/matrix3d.h"
#include "kernel/point3d.h"

#include <vector>

/// An object that is drawn. Kinds that the host has no class for are opened as plain `AcDbEntity`: they keep their
/// pairs, and have layer, colour, extended data and curves like any other.
class AcDbEntity : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS()

    std::u16string layer() const;
    AcDbObjectId layerId() const;
    /// `eKeyNotFound` when the drawing has no such layer; then nothing changes. Hidden layers are not allowed by
    /// default.
    Acad::ErrorStatus setLayer(const char16_t* name, bool doSubents = true, bool allowHiddenLayer = false);
    Acad::ErrorStatus setLayer(const std::u16string& name) { return setLayer(name.c_str()); }
    /// 0 by block, 1 to 255 the palette, 256 by layer.
    int colorIndex() const;
    Acad::ErrorStatus setColorIndex(int index, bool doSubents = true);

    /// Moves a fresh entity; `eNotImplementedYet` for a loaded one and for kinds that are never made here.
    virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix);
    /// Points on both entities, in order along this one, appended to `points`. Both are bounded: `eNotImplementedYet`
    /// for any other `type`.
    Acad::ErrorStatus intersectWith(const AcDbEntity* other, AcDb::Intersect type, AcGePoint3dArray& points) const;
    /// Everything the entity draws as curves in world coordinates; nothing for texts and kinds without curves. The
    /// contents of a block reference count, placed.
    virtual std::vector<CurvePath> curves() const;
    /// Adds what the entity covers in plan to `extents` (curves, else its insertion point).
    virtual void addExtents(AcGeExtents& extents) const;

protected:
    void encode(TagWriter& out) const override;
    /// Makes the records that follow the entity's own one; called when it is appended. They are written when it is
    /// closed.
    virtual void addParts() {}
    /// The one path of a curve, or null. Kept with the object while it is in memory.
    virtual const CurvePath* shape() const { return nullptr; }
    /// The same made ready to be asked often; null for what is not worth it, too.
    virtual const IndexedPath* path() const { return nullptr; }
    /// Whether the fields may change now: a loaded object must be open for write (else the ledger notes a fault).
    bool mayChange();
    /// `eOk` for a fresh object, whose fields are the truth and may change; else why not.
    Acad::ErrorStatus mayChangeFresh() { return isFresh() && objectId().isNull() ? Acad::eOk : mayChangeAppended(); }

private:
    friend class AcDbBlockTableRecord;
    Acad::ErrorStatus mayChangeAppended();
    void addIntersections(const AcDbEntity& other, AcGePoint3dArray& points) const;

    std::u16string m_layer; ///< of a fresh entity; empty until set or appended
    int m_color = 256;
};

/// An entity that runs from a start to an end.
class AcDbCurve : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS()
    virtual bool isClosed() const { return false; }
    /// Distance along the curve from its start to `point`; `eInvalidInput` when the point is not on it.
    Acad::ErrorStatus getDistAtPoint(const AcGePoint3d& point, double& distance) const;
};
