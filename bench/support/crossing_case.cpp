#include "bench/support/crossing_case.h"

#include "bench/support/drawings.h"
#include "bench/support/open_drawing.h"
#include "dbkit/filter_objects.h"
#include "host/companion/alignment.h"
#include "host/db/entity/polyline.h"
#include "kernel/crossing/intersect.h"
#include "kernel/crossing/level_crossing.h"
#include "sections/crossing_search.h"
#include "sections/feature_path.h"
#include "sections/survey_info.h"

#include <algorithm>
#include <map>

namespace bench
{

namespace
{

void addSections(CrossingCase& input)
{
    AcDbObjectIdArray alignments;
    std::vector<std::u16string> names;
    FindAlignments(alignments, names);
    for (const AcDbObjectId id : alignments)
    {
        const AcDbObjectPointer<PlxDbAlignment> alignment(id);
        const double e = alignment->extent1();
        for (const SectionRecord& record : alignment->sections())
        {
            const AcGePoint3d m = record.pointA + (record.pointB - record.pointA) * 0.5;
            const AcGeVector3d u = (record.pointA - record.pointB).normal();
            input.lines.push_back({{m.x + e * u.x, m.y + e * u.y}, {m.x - e * u.x, m.y - e * u.y}});
        }
    }
}

void addPolylines(CrossingCase& input)
{
    FilterObjects filter;
    for (const AcRxClass* kind : {AcDbPolyline::desc(), AcDb2dPolyline::desc(), AcDb3dPolyline::desc()})
        filter.AddClass(kind->dxfName());
    filter.AddXdataApp(kSurveyApplication);
    filter.SelectAll();
    for (const AcDbObjectId id : filter.ids())
        CollectFeaturePath(*AcDbObjectPointer<AcDbObject>(id), input.paths.emplace_back());
}

CrossingRow rowOf(uint32_t path, const AcGePoint3dArray& points)
{
    CrossingRow row{path, {points[0].x, points[0].y}, std::nullopt};
    if (points.size() > 1)
        row.second = AcGePoint2d{points[1].x, points[1].y};
    return row;
}

BoxedSegment segmentOf(const AcGePoint2d& from, const AcGePoint2d& to)
{
    return {PathVertex{from.x, from.y}, PathVertex{to.x, to.y}};
}

bool isSame(const AcGePoint2d& a, const AcGePoint2d& b)
{
    return a.x == b.x && a.y == b.y;
}

Box2d widened(Box2d box)
{
    const double gap = 2.0 * placeTolerance(box.magnitude());
    return {box.minX - gap, box.minY - gap, box.maxX + gap, box.maxY + gap};
}

} // namespace

bool CrossingRow::operator==(const CrossingRow& other) const
{
    return path == other.path && isSame(first, other.first) && second.has_value() == other.second.has_value() &&
           (!second || isSame(*second, *other.second));
}

const CrossingCase& crossingCase(const std::string& name)
{
    static std::map<std::string, CrossingCase> cases;
    const auto [at, isNew] = cases.try_emplace(name);
    if (isNew)
    {
        const OpenDrawing drawing(drawingFile(name));
        addSections(at->second);
        addPolylines(at->second);
    }
    return at->second;
}

CrossingRows indexedRows(const CrossingCase& input)
{
    CrossingRows rows(input.lines.size());
    CrossingSearch search(input.lines);
    for (uint32_t path = 0; path < input.paths.size(); ++path)
        for (const LineCrossing& crossing : search.find(input.paths[path]))
        {
            CrossingRow& row =
                rows[crossing.line].emplace_back(CrossingRow{path, {crossing.first.x, crossing.first.y}, std::nullopt});
            if (crossing.second)
                row.second = AcGePoint2d{crossing.second->x, crossing.second->y};
        }
    return rows;
}

CrossingRows plainRows(const CrossingCase& input, size_t step)
{
    CrossingRows rows(input.lines.size());
    AcGePoint3dArray points;
    for (size_t line = 0; line < input.lines.size(); line += step)
    {
        const SearchLine& search = input.lines[line];
        const CurvePath section = CurvePath::line({search.from.x, search.from.y, 0.0}, {search.to.x, search.to.y, 0.0});
        for (uint32_t path = 0; path < input.paths.size(); ++path)
        {
            CurvePath temporary = CurvePath::plane({});
            temporary.reserve(input.paths[path].size());
            for (const AcGePoint2d& vertex : input.paths[path])
                temporary.addVertex({vertex.x, vertex.y});
            intersect(temporary, section, points);
            if (!points.empty())
                rows[line].push_back(rowOf(path, points));
        }
    }
    return rows;
}

std::optional<CrossingRow> crossSegments(const CrossingCase& input, uint32_t path, size_t line)
{
    const std::vector<AcGePoint2d>& vertices = input.paths[path];
    const BoxedSegment section = segmentOf(input.lines[line].from, input.lines[line].to);
    const bool isRing = isSame(vertices.front(), vertices.back());
    const size_t enough = isRing ? 3 : 2;
    AcGePoint3dArray points;
    CrossingList list{points};
    for (size_t i = 0; i + 1 < vertices.size() && points.size() < enough; ++i)
    {
        const BoxedSegment own = segmentOf(vertices[i], vertices[i + 1]);
        if (addCrossings(own, section, 0.0, list))
            endCrossingsOfSegment(own, list);
    }
    if (isRing)
        list.endClosed({vertices.front().x, vertices.front().y, 0.0});
    if (points.empty())
        return std::nullopt;
    return rowOf(path, points);
}

Box2d boxOf(const std::vector<AcGePoint2d>& path)
{
    Box2d box;
    for (const AcGePoint2d& vertex : path)
        box.add(vertex.x, vertex.y);
    return widened(box);
}

Box2d boxOf(const SearchLine& line)
{
    Box2d box;
    box.add(line.from.x, line.from.y);
    box.add(line.to.x, line.to.y);
    return widened(box);
}

} // namespace bench
