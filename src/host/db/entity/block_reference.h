#pragma once

#include "host/db/curve/insert_placement.h"
#include "host/db/entity/entity.h"

struct AcGeScale3d
{
    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;
    AcGeScale3d() = default;
    explicit AcGeScale3d(double all) : sx{all}, sy{all}, sz{all} {}
    AcGeScale3d(double x, double y, double z) : sx{x}, sy{y}, sz{z} {}
};

/// A block placed in the drawing. Its setters change a fresh reference; a loaded one answers `eNotImplementedYet`.
class AcDbBlockReference : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS()
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block);

    /// In the world.
    AcGePoint3d position() const;
    AcDbObjectId blockTableRecord() const { return m_block; }
    AcGeScale3d scaleFactors() const { return {m_placement.scaleX, m_placement.scaleY, m_placement.scaleZ}; }
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    /// Radians, counter-clockwise in the reference's own plane.
    double rotation() const { return m_placement.rotation; }
    Acad::ErrorStatus setRotation(double radians);
    /// Carries the block's coordinates into the world.
    AcGeMatrix3d blockTransform() const;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;

protected:
    void decode(TagReader& pairs) override;
    void encode(TagWriter& out) const override;

private:
    AcDbObjectId m_block;
    InsertPlacement m_placement; ///< its block name stays empty
};
