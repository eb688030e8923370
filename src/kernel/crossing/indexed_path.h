#pragma once

#include "kernel/crossing/intersect.h"

#include <cstdint>

class CrossingList;
struct BoxedSegment;

/// A path that is asked many times where others meet it. Owns the path and beside it an index made at the first
/// question: a level path of straight segments that never turns back in x is looked up in a table over x, any other
/// level path is searched by boxes around 16 segments each; what is not level is asked plainly. Answers exactly what
/// `intersect` answers. Not for use by several threads at once, since the first question writes.
class IndexedPath
{
public:
    IndexedPath() = default;
    explicit IndexedPath(CurvePath path) : m_path(std::move(path)) {}

    const CurvePath& path() const { return m_path; }

    /// The same as `::intersect(path(), other, points)`.
    void intersect(const CurvePath& other, AcGePoint3dArray& points) const;
    /// Where the straight way between two points at the path's own elevation meets it, without a path made for that
    /// way. No points unless the path is level.
    void intersectLine(const AcGePoint2d& from, const AcGePoint2d& to, AcGePoint3dArray& points) const;

private:
    enum class Order
    {
        Unknown,
        RisingX,
        FallingX,
        Boxes
    };
    static constexpr std::size_t kChunk = 16;

    struct Reach;

    template <typename Other>
    void search(const Other& other, const Box2d& otherBox, double magnitude, AcGePoint3dArray& points) const;
    template <typename Other>
    void searchOrdered(const Other& other, const Reach& reach, CrossingList& list) const;
    void addSegment(std::size_t segment, const BoxedSegment& other, double gap, CrossingList& list) const;
    void addByCloserLook(std::size_t segment, const BoxedSegment& other, CrossingList& list) const;
    void addSegment(std::size_t segment, const CurvePath& other, double gap, CrossingList& list) const;
    template <typename Other>
    void searchBoxes(const Other& other, const Reach& reach, CrossingList& list) const;
    void prepare() const;
    void fillTable() const;
    void fillBoxes() const;
    std::size_t cellOf(double signedX) const;
    std::size_t firstReaching(double sought) const;

    CurvePath m_path;
    mutable Order m_order = Order::Unknown;
    mutable std::vector<Box2d> m_boxes;
    /// For each cell of x, in the path's direction, the first segment whose far end is in it or beyond; and the end.
    mutable std::vector<std::uint32_t> m_table;
    mutable double m_sign = 1.0;   ///< of x, so that it rises along the path
    mutable double m_origin = 0.0; ///< the first x, with the sign
    mutable double m_lastCell = 0.0;
    mutable double m_cellsPerUnit = 0.0;
};
