#pragma once

#include "kernel/curve/curve_path.h"
#include "picture/list/drawing_lists.h"
#include "picture/text/mtext.h"

struct Container;
struct InsertPlacement;

namespace picture
{

struct WidePath;

/// What a multi-line text says.
struct MTextValues
{
    std::string bytes;
    std::string_view style = "Standard";
    AcGePoint3d at;
    AcGeVector3d along{1.0, 0.0, 0.0}; ///< the world's
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    bool hasDirection = false; ///< `along` counts, not the rotation
    double rotation = 0.0;     ///< in the text's plane
    MTextFrame frame;
};

/// Puts entities into a display list. Entities whose pairs make no sense draw nothing.
class EntityWriter
{
public:
    /// `isBlock` says that the list is a block's, not a space's.
    EntityWriter(DrawingLists& lists, DisplayList& list, bool isBlock)
        : m_lists{lists}, m_list{list}, m_isBlock{isBlock}
    {
    }

    /// Everything the entity draws, its attributes included. `toList` carries the entity's world into the list's: the
    /// identity, or the tilt of a block reference.
    void write(ObjectRecord& entity, const AcGeMatrix3d& toList = AcGeMatrix3d::kIdentity);

private:
    void writeKind(std::string_view kind, ObjectRecord& entity);
    void writeCurves(const std::vector<CurvePath>& curves);
    void writeCurve(const CurvePath& curve);
    void writeArea(const std::vector<CurvePath>& loops);
    void writePolyline(ObjectRecord& entity);
    void writeLightweight(std::string_view pairs);
    void writeReference(ObjectRecord& entity);
    void writePlaced(const InsertPlacement& insert, const ObjectRecord& entity);
    void writeTilted(const Container& contents, const AcGeMatrix3d& placed);
    void writeBlockOf(std::string_view kind, std::string_view pairs);
    void writeEdges(const std::vector<AcGePoint3dArray>& edges);
    void writeLoops(const std::vector<std::vector<Vertex>>& loops, Primitive::Kind kind);
    void writeWide(const WidePath& wide);
    void writeLeader(std::string_view pairs);
    void writeMultiLeader(std::string_view pairs);
    void writeArrowhead(const AcGePoint3d& tip, const AcGePoint3d& towards, double length);
    void writeMline(std::string_view pairs);
    std::vector<uint32_t> looksOfMlineStyle(uint64_t handle, int64_t& flags);
    void writeTolerance(std::string_view pairs);
    void writeWipeout(std::string_view pairs);
    void writeImage(std::string_view pairs);
    void writeViewport(ObjectRecord& entity);
    void writeText(std::string_view pairs);
    void writeMText(std::string_view pairs);
    void writeMTextValues(const MTextValues& values);
    void writeHatch(std::string_view pairs);
    void writeStraight(std::string_view pairs, Primitive::Kind kind);
    void writeSurveyPoint(ObjectRecord& entity);
    void writeAlignment(ObjectRecord& entity);
    /// A line of text; `placed` carries units of its height into the list.
    void writeLine(std::u16string_view text, const Font& font, const TextExtent& extent, const Map2d& placed);
    void writeRule(const Map2d& placed, const Vertex& from, const Vertex& to);
    /// Carries a plane of the world, moved to a point given in it, into the list.
    Map2d planeAt(const AcGePoint3d& at, const AcGeVector3d& normal) const;
    Map2d worldAt(const AcGePoint3d& at) const;
    /// Plain points of the world.
    void writePath(const AcGePoint3dArray& points, bool closed);
    void setToList(const AcGeMatrix3d& toList);
    Vertex place(const AcGePoint3d& world) const;
    bool isUsable(const Vertex& vertex);

    DrawingLists& m_lists;
    DisplayList& m_list;
    bool m_isBlock;
    AcGeMatrix3d m_toList;
    bool m_isPlain = true; ///< `m_toList` changes nothing
    uint32_t m_look = 0;
    size_t m_tilts = 0;   ///< tilted references around the entity at hand
    size_t m_visited = 0; ///< entities written for the tilted reference at hand
};

} // namespace picture
