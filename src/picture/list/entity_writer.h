#pragma once

#include "kernel/curve/curve_path.h"
#include "picture/list/drawing_lists.h"

struct Container;
struct InsertPlacement;

namespace picture
{

struct WidePath;

/// Puts entities into a display list. Entities whose pairs make no sense draw nothing.
class EntityWriter
{
public:
    EntityWriter(DrawingLists& lists, DisplayList& list) : m_lists{lists}, m_list{list} {}

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
    void writeArrowhead(std::string_view pairs);
    void writeText(std::string_view pairs);
    void writeMText(std::string_view pairs);
    void writeHatch(std::string_view pairs);
    void writeStraight(std::string_view pairs, Primitive::Kind kind);
    void writeSurveyPoint(ObjectRecord& entity);
    void writeAlignment(ObjectRecord& entity);
    /// A line of text in world coordinates: `placed` carries units of the height.
    void writeLine(std::u16string_view text, const Font& font, const AcGeMatrix3d& placed);
    /// Plain points of the world.
    void writePath(const AcGePoint3dArray& points, bool closed);
    Vertex place(const AcGePoint3d& world) const;
    bool isUsable(const Vertex& vertex);

    DrawingLists& m_lists;
    DisplayList& m_list;
    AcGeMatrix3d m_toList;
    uint32_t m_look = 0;
    size_t m_tilts = 0;   ///< tilted references around the entity at hand
    size_t m_visited = 0; ///< entities written for the tilted reference at hand
};

} // namespace picture
