#pragma once

#include "host/db/entity/entity.h"
#include "kernel/point2d.h"

/// A lightweight polyline: plane, of straight and arc segments.
class AcDbPolyline : public AcDbCurve
{
public:
    ACRX_DECLARE_MEMBERS()
    AcDbPolyline() = default;
    explicit AcDbPolyline(unsigned int vertices) { m_shape.reserve(vertices); }

    unsigned int numVerts() const { return static_cast<unsigned int>(m_shape.vertices().size()); }
    /// The vertex in world coordinates.
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& point) const;
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& point) const;
    double bulgeAt(unsigned int index) const { return m_shape.vertices()[index].bulge; }
    /// Inserts a vertex before `index`. Widths below zero mean the default width. Like every change of shape, of a
    /// fresh polyline only.
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& point, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0);
    /// Moves a vertex, in the polyline's own plane.
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& point);
    bool isClosed() const override { return m_shape.isClosed(); }
    void setClosed(bool closed);
    double elevation() const { return m_shape.elevation(); }
    void setElevation(double elevation);
    AcGeVector3d normal() const { return m_shape.normal(); }
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
    std::vector<CurvePath> curves() const override;

    /// Takes the shape of a 2-D polyline. `eNotThatKindOfClass` for anything else, `eInvalidInput` for a splined or
    /// curve-fitted one, `eNotImplementedYet` for `transferId`.
    Acad::ErrorStatus convertFrom(AcDbEntity*& entity, bool transferId = true);

protected:
    void decode(TagReader& pairs) override;
    void encode(TagWriter& out) const override;
    const CurvePath* shape() const override { return &m_shape; }
    const IndexedPath* path() const override { return m_path != nullptr ? m_path.get() : makePath(); }

private:
    struct Widths
    {
        double start = 0.0;
        double end = 0.0;
    };

    const IndexedPath* makePath() const;

    CurvePath m_shape;
    std::vector<Widths> m_widths; ///< of the vertices; empty while all have the default width
    mutable std::unique_ptr<IndexedPath> m_path;
};

/// Walks the vertices of a 2-D or 3-D polyline in order. Belongs to the caller.
class AcDbObjectIterator
{
public:
    explicit AcDbObjectIterator(AcDbObjectIdArray ids) : m_ids{std::move(ids)} {}
    void start() { m_at = 0; }
    bool done() const { return m_at >= m_ids.size(); }
    void step() { ++m_at; }
    AcDbObjectId objectId() const { return m_ids[m_at]; }

private:
    AcDbObjectIdArray m_ids;
    size_t m_at = 0;
};

/// A polyline whose vertices are objects of their own; base of the 2-D and 3-D kinds.
class AcDbVertexPolyline : public AcDbCurve
{
public:
    ACRX_DECLARE_MEMBERS()
    AcDbVertexPolyline() = default;
    std::unique_ptr<AcDbObjectIterator> vertexIterator() const;
    std::vector<CurvePath> curves() const override;
    bool isClosed() const override { return (m_flags & 1) != 0; }

protected:
    explicit AcDbVertexPolyline(int flags) : m_flags{flags} {}

    void decode(TagReader& pairs) override;
    int flags() const { return m_flags; }
    const CurvePath* shape() const override;
    const IndexedPath* path() const override;

private:
    int m_flags = 0;
    mutable std::unique_ptr<IndexedPath> m_path;
};

class AcDbVertex : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS()
    AcGePoint3d position() const { return m_position; }
    double bulge() const { return m_bulge; }
    int flags() const { return m_flags; }

protected:
    void decode(TagReader& pairs) override;

private:
    AcGePoint3d m_position;
    double m_bulge = 0.0;
    int m_flags = 0;
};

class AcDb2dVertex : public AcDbVertex
{
public:
    ACRX_DECLARE_MEMBERS()
    AcDb::Vertex2dType vertexType() const;
};

class AcDb3dPolylineVertex : public AcDbVertex
{
public:
    ACRX_DECLARE_MEMBERS()
};

class AcDb2dPolyline : public AcDbVertexPolyline
{
public:
    ACRX_DECLARE_MEMBERS()
    double elevation() const;
    AcGeVector3d normal() const;
    /// Opens one of this polyline's vertices.
    Acad::ErrorStatus openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode) const;
    /// Whether it is splined or curve-fitted: such a polyline has no lightweight form.
    bool isFitted() const { return (flags() & (2 | 4)) != 0; }
};

class AcDb3dPolyline : public AcDbVertexPolyline
{
public:
    ACRX_DECLARE_MEMBERS()
    AcDb3dPolyline() = default;
    /// A fresh one; its vertices get the layer it has when it is closed, and cannot be changed.
    AcDb3dPolyline(AcDb::Poly3dType type, const AcGePoint3dArray& vertices, bool closed = false);

protected:
    void encode(TagWriter& out) const override;
    void addParts() override;
    void beforeClose() override;

private:
    AcGePoint3dArray m_vertices;        ///< of a fresh one
    std::vector<ObjectRecord*> m_parts; ///< its vertices and the end of the sequence
};
