#pragma once

#include "host/drawing/entity.h"

struct AcGeScale3d
{
    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;
    AcGeScale3d() = default;
    explicit AcGeScale3d(double all) : sx{all}, sy{all}, sz{all} {}
    AcGeScale3d(double x, double y, double z) : sx{x}, sy{y}, sz{z} {}
};

/// A block placed in the drawing.
class AcDbBlockReference : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS()
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block) : m_position{position}, m_block{block} {}

    AcGePoint3d position() const;
    AcDbObjectId blockTableRecord() const { return m_block; }
    AcGeScale3d scaleFactors() const { return m_scale; }
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    double rotation() const { return m_rotation; }
    Acad::ErrorStatus setRotation(double radians);
    AcGeMatrix3d blockTransform() const;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
    std::vector<CurvePath> curves() const override;
    void addExtents(AcGeExtents& extents) const override;

protected:
    void decode(TagReader& pairs) override;
    void encode(TagWriter& out) const override;

private:
    AcGePoint3d m_position; ///< in the reference's own plane
    AcDbObjectId m_block;
    AcGeScale3d m_scale;
    double m_rotation = 0.0;
    AcGeVector3d m_normal{0.0, 0.0, 1.0};
    int m_columns = 1;
    int m_rows = 1;
    double m_columnSpacing = 0.0;
    double m_rowSpacing = 0.0;
};
