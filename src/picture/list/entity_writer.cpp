#include "picture/list/entity_writer.h"

#include "host/companion/alignment.h"
#include "host/companion/measure_point.h"
#include "host/db/curve/entity_curves.h"
#include "host/db/curve/insert_placement.h"
#include "host/db/database.h"
#include "host/view/entity_shapes.h"
#include "picture/list/mesh.h"
#include "picture/list/wide_path.h"
#include "store/block_index.h"
#include "store/pair_edit.h"

#include <algorithm>
#include <array>

namespace picture
{

namespace
{

constexpr size_t kMostTilted = 100'000;
constexpr size_t kDeepestTilt = 50;

/// Heights of what has none of its own: the code of a survey point, the name of a section, drawing units.
constexpr double kCodeHeight = 0.5;
constexpr double kNameShare = 0.03;

/// What is there to organise or to limit and has no look of its own.
constexpr std::array<std::string_view, 2> kSilent{"SEQEND", "LIGHT"};

/// Whether heights do not show in the plan of what the map places.
bool keepsPlan(const AcGeMatrix3d& map)
{
    constexpr double kLevel = 1e-9;
    const double size = Map2d::planOf(map).stretch();
    return std::hypot(map.entry[0][2], map.entry[1][2]) <= kLevel * size;
}

bool isIdentity(const AcGeMatrix3d& map)
{
    return map.entry == AcGeMatrix3d::kIdentity.entry;
}

} // namespace

void EntityWriter::setToList(const AcGeMatrix3d& toList)
{
    m_toList = toList;
    m_isPlain = isIdentity(toList);
}

Vertex EntityWriter::place(const AcGePoint3d& world) const
{
    if (m_isPlain)
        return {world.x, world.y};
    const AcGePoint3d placed = m_toList * world;
    return {placed.x, placed.y};
}

bool EntityWriter::isUsable(const Vertex& vertex)
{
    const bool usable = std::fabs(vertex.x) < kLargestCoordinate && std::fabs(vertex.y) < kLargestCoordinate;
    if (!usable)
        m_lists.notes().texts.insert("coordinates beyond all use are left out");
    return usable;
}

void EntityWriter::write(ObjectRecord& entity, const AcGeMatrix3d& toList)
{
    const std::string_view kind = entity.database->dxfNameOf(entity);
    setToList(toList);
    try
    {
        bool isInvisible = false;
        m_look = m_lists.looks().lookOf(entity.view(), isInvisible);
        if (!isInvisible)
            writeKind(kind, entity);
    }
    catch (const DamagedValue&)
    {
        ++m_lists.notes().undrawn[std::string{kind} + ", damaged"];
    }
}

void EntityWriter::writeKind(std::string_view kind, ObjectRecord& entity)
{
    const std::string_view pairs = entity.view();
    if (kind == "INSERT")
        return writeReference(entity);
    if (kind == "TEXT" || kind == "ATTDEF")
        return writeText(pairs);
    if (kind == "MTEXT")
        return writeMText(pairs);
    if (kind == "LWPOLYLINE")
        return writeLightweight(pairs);
    if (kind == "POLYLINE")
        return writePolyline(entity);
    if (kind == "HATCH")
        return writeHatch(pairs);
    if (kind == "LEADER")
        return writeLeader(pairs);
    if (kind == "MULTILEADER" || kind == "MLEADER")
        return writeMultiLeader(pairs);
    if (kind == "MLINE")
        return writeMline(pairs);
    if (kind == "TOLERANCE")
        return writeTolerance(pairs);
    if (kind == "WIPEOUT")
        return writeWipeout(pairs);
    if (kind == "IMAGE")
        return writeImage(pairs);
    if (kind == "VIEWPORT")
        return writeViewport(entity);
    if (kind == "POINT")
    {
        const std::optional<AcGePoint3d> at = readInsertionPoint(pairs);
        if (const Vertex v = at ? place(*at) : Vertex{}; isUsable(v))
            m_list.add(Primitive::kDot, m_look, {&v, 1});
        return;
    }
    if (kind == "SOLID" || kind == "TRACE")
        return writeArea(curvesOfPairs(kind, pairs));
    if (kind == "RAY" || kind == "XLINE")
        return writeStraight(pairs, kind == "RAY" ? Primitive::kRay : Primitive::kInfinite);
    if (kind == "3DFACE")
        return writeEdges(faceEdges(pairs));
    if (kind == "PLXDBMEASUREPOINTOBJ")
        return writeSurveyPoint(entity);
    if (kind == "PLXDBALIGNMENT")
        return writeAlignment(entity);
    if (kind.find("DIMENSION") != std::string_view::npos || kind == "ACAD_TABLE")
        return writeBlockOf(kind, pairs);
    if (std::find(kSilent.begin(), kSilent.end(), kind) != kSilent.end())
        return;
    const std::vector<CurvePath> curves = curvesOfPairs(kind, pairs);
    if (curves.empty())
        ++m_lists.notes().undrawn[std::string{kind}];
    writeCurves(curves);
}

void EntityWriter::writeCurves(const std::vector<CurvePath>& curves)
{
    for (const CurvePath& curve : curves)
        writeCurve(curve);
}

void EntityWriter::writeCurve(const CurvePath& curve)
{
    const CurvePath placed = m_isPlain ? curve : curve.transformed(m_toList);
    const std::vector<PathVertex>& vertices = placed.vertices();
    const bool isPlain = placed.isLevel() || !placed.isPlane();
    if (!isPlain || vertices.size() < 2 || !placed.hasArcs())
    {
        AcGePoint3dArray points;
        if (!isPlain)
            points = placed.flatten();
        else
            for (const PathVertex& vertex : vertices)
                points.push_back({vertex.x, vertex.y, 0.0});
        std::vector<Vertex> path;
        path.reserve(points.size());
        for (const AcGePoint3d& point : points)
            if (const Vertex v{point.x, point.y}; isUsable(v))
                path.push_back(v);
        if (!path.empty())
            m_list.add(Primitive::kPath, m_look, path, isPlain && placed.isClosed());
        return;
    }
    if (std::all_of(vertices.begin(), vertices.end(), [this](const PathVertex& v) { return isUsable({v.x, v.y}); }))
        m_list.addArcs(m_look, vertices, placed.isClosed(), boxInPlan(placed.extents()));
}

void EntityWriter::writePath(const AcGePoint3dArray& points, bool closed)
{
    std::vector<Vertex> path;
    for (const AcGePoint3d& point : points)
        if (const Vertex v = place(point); isUsable(v))
            path.push_back(v);
    if (!path.empty())
        m_list.add(Primitive::kPath, m_look, path, closed);
}

void EntityWriter::writeEdges(const std::vector<AcGePoint3dArray>& edges)
{
    for (const AcGePoint3dArray& edge : edges)
        writePath(edge, false);
}

void EntityWriter::writeLoops(const std::vector<std::vector<Vertex>>& loops, Primitive::Kind kind)
{
    std::vector<Vertex> vertices;
    for (const std::vector<Vertex>& loop : loops)
    {
        if (loop.size() < 2 || !std::all_of(loop.begin(), loop.end(), [this](const Vertex& v) { return isUsable(v); }))
            continue;
        vertices.push_back({static_cast<double>(loop.size()), 0.0});
        vertices.insert(vertices.end(), loop.begin(), loop.end());
    }
    if (!vertices.empty())
        m_list.add(kind, m_look, vertices);
}

void EntityWriter::writeArea(const std::vector<CurvePath>& curves)
{
    std::vector<std::vector<Vertex>> loops;
    for (const CurvePath& curve : curves)
    {
        std::vector<Vertex>& loop = loops.emplace_back();
        for (const AcGePoint3d& point : curve.flatten())
            loop.push_back(place(point));
    }
    writeLoops(loops, Primitive::kArea);
}

void EntityWriter::writeLightweight(std::string_view pairs)
{
    const WidePath wide = readLightweightWidths(pairs);
    if (!wide.hasWidth())
        return writeCurves(curvesOfPairs("LWPOLYLINE", pairs));
    writeWide(wide);
}

void EntityWriter::writeWide(const WidePath& wide)
{
    std::vector<std::vector<Vertex>> loops = wide.outlines();
    for (std::vector<Vertex>& loop : loops)
        for (Vertex& vertex : loop)
            vertex = place(wide.toWorld() * AcGePoint3d{vertex.x, vertex.y, wide.elevation});
    writeLoops(loops, Primitive::kBand);
}

void EntityWriter::writePolyline(ObjectRecord& entity)
{
    if (isMesh(entity.view()))
        return writeEdges(meshEdges(entity));
    const WidePath wide = readPolylineWidths(entity);
    if (wide.hasWidth())
        return writeWide(wide);
    if (const CurvePath shape = readVertexPolyline(entity); !shape.isEmpty())
        writeCurve(shape);
}

void EntityWriter::writeReference(ObjectRecord& entity)
{
    const InsertPlacement insert = readInsertPlacement(entity.view());
    const uint32_t own = m_look;
    writePlaced(insert, entity);
    const AcGeMatrix3d toList = m_toList;
    for (ObjectRecord* part : subEntitiesOf(entity))
        if (part->database->dxfNameOf(*part) == "ATTRIB")
        {
            bool isInvisible = false;
            m_look = m_lists.looks().lookOf(part->view(), isInvisible);
            setToList(toList);
            if (!isInvisible)
                writeText(part->view());
        }
    m_look = own;
}

void EntityWriter::writePlaced(const InsertPlacement& insert, const ObjectRecord& entity)
{
    AcDbDatabase& drawing = *entity.database;
    const Container* contents = drawing.blocks().contents(drawing.encoding().decode(insert.block));
    if (contents == nullptr)
        return m_lists.noteWrittenOut(DrawingLists::kNone, m_list);
    const AcGeMatrix3d toBase = AcGeMatrix3d::translation(AcGePoint3d::kOrigin - basePointOf(*contents));
    const AcGeMatrix3d first = m_toList * insert.toWorld() * toBase;
    if (!keepsPlan(first))
    {
        const size_t copies = std::min(insert.count(), kMostTilted);
        for (size_t i = 0; i < copies; ++i)
            writeTilted(*contents, m_toList * insert.toWorld(i) * toBase);
        return;
    }
    const Vertex origin{first.origin().x, first.origin().y};
    const uint32_t block = isUsable(origin) ? m_lists.blockNamed(insert.block) : DrawingLists::kNone;
    if (block == DrawingLists::kNone)
        return;
    PlacedBlock placed{Map2d::planOf(first), block};
    Grid grid{static_cast<uint32_t>(insert.columns), static_cast<uint32_t>(insert.rows), {}, {}};
    if (insert.count() > 1)
    {
        const auto stepTo = [&](size_t index)
        {
            const AcGePoint3d there = (m_toList * insert.toWorld(index) * toBase).origin();
            return Vertex{there.x - origin.x, there.y - origin.y};
        };
        grid.columnStep = insert.columns > 1 ? stepTo(1) : Vertex{};
        grid.rowStep = insert.rows > 1 ? stepTo(static_cast<size_t>(insert.columns)) : Vertex{};
    }
    m_list.addBlock(m_look, placed, insert.count() > 1 ? &grid : nullptr, m_lists.list(block));
}

/// What a tilted reference shows hangs on the heights in its block: its contents are written out, placed.
void EntityWriter::writeTilted(const Container& contents, const AcGeMatrix3d& placed)
{
    if (m_tilts >= kDeepestTilt)
        return;
    AcDbDatabase& drawing = m_lists.database();
    const auto container = static_cast<uint32_t>(&contents - drawing.store().containers.data());
    const AcGeMatrix3d toList = m_toList;
    const uint32_t own = m_look;
    m_lists.noteWrittenOut(container, m_list);
    m_visited = m_tilts == 0 ? 0 : m_visited;
    ++m_tilts;
    for (const AcDbObjectId id : drawing.blocks().entitiesIn(container, false))
        if (++m_visited < kMostTilted)
            write(*id.record(), placed);
    --m_tilts;
    setToList(toList);
    m_look = own;
}

/// A dimension or table is what its own block shows.
void EntityWriter::writeBlockOf(std::string_view kind, std::string_view text)
{
    AcGeMatrix3d placed = m_toList;
    std::string_view name;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 2 && name.empty())
            name = tag.word();
        else if (tag.code == 10 && kind == "ACAD_TABLE")
            placed = m_toList * AcGeMatrix3d::translation(pairs.pointFrom(tag).asVector());
    const uint32_t block = m_lists.blockNamed(name);
    if (block == DrawingLists::kNone)
        ++m_lists.notes().undrawn[std::string{kind}];
    else
        m_list.addBlock(m_look, {Map2d::planOf(placed), block}, nullptr, m_lists.list(block));
}

void EntityWriter::writeStraight(std::string_view text, Primitive::Kind kind)
{
    AcGePoint3d base;
    AcGeVector3d direction;
    OwnPairs pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 10)
            base = pairs.pointFrom(tag);
        else if (tag.code == 11)
            direction = pairs.pointFrom(tag).asVector();
    const AcGeVector3d placed = (m_toList * direction).normal();
    const std::array<Vertex, 2> vertices{place(base), Vertex{placed.x, placed.y}};
    if (isUsable(vertices[0]) && isUsable(vertices[1]))
        m_list.add(kind, m_look, vertices);
}

void EntityWriter::writeSurveyPoint(ObjectRecord& entity)
{
    const AcDbObjectPointer<PlxDbPointObj> point{AcDbObjectId{&entity}};
    if (!point)
        return;
    const Vertex at = place(point->GetPoint());
    if (!isUsable(at))
        return;
    m_list.add(Primitive::kSurvey, m_look, {&at, 1});
    const TextStyle& style = m_lists.styles().style("Standard");
    const std::u16string code = m_lists.styles().read(point->Get(1), {style.face.font, Reading::kVietnamese});
    const double height = kCodeHeight * m_lists.metre();
    const AcGePoint3d corner = point->GetPoint() + AcGeVector3d{height / 2, height / 2, 0.0};
    const Font& font = m_lists.styles().fontFor(style.face, code);
    writeLine(code, font, extentOf(font, code), worldAt(corner) * Map2d::scaling(height, height));
}

void EntityWriter::writeAlignment(ObjectRecord& entity)
{
    const AcDbObjectPointer<PlxDbAlignment> alignment{AcDbObjectId{&entity}};
    if (!alignment)
    {
        ++m_lists.notes().undrawn["PLXDBALIGNMENT"];
        return;
    }
    const TextStyle& style = m_lists.styles().style("Standard");
    for (const SectionRecord& section : alignment->sections())
    {
        writePath({section.pointA, section.pointB}, false);
        AcGeVector3d along = section.pointA - section.pointB;
        const double height = along.length() * kNameShare;
        if (!(height > 0.0))
            continue;
        // Read from below or from the right, the name goes on where the line ends.
        const Font& font = m_lists.styles().fontFor(style.face, section.name);
        const TextExtent extent = extentOf(font, section.name);
        const bool isTurned = along.x < 0.0;
        const AcGePoint3d begin = section.pointA + along.normal() * (height * (isTurned ? extent.advance + 0.5 : 0.5));
        const double angle = std::atan2(isTurned ? -along.y : along.y, isTurned ? -along.x : along.x);
        writeLine(section.name, font, extent,
                  worldAt(begin) * Map2d::rotation(angle) * Map2d::scaling(height, height) *
                      Map2d::translation({0.0, -0.5}));
    }
}

} // namespace picture
