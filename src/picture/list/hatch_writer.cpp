#include "picture/list/entity_writer.h"

#include "host/db/curve/curve_readers.h"
#include "picture/list/hatch_pattern.h"

#include <algorithm>

namespace picture
{

namespace
{

constexpr size_t kMostPoints = 200'000;

double squared(const AcGePoint3d& a, const AcGePoint3d& b)
{
    return (a - b).lengthSqrd();
}

/// The points of a loop, its edges joined: each edge is turned so that it begins where the last one ended.
AcGePoint3dArray pointsOf(const HatchLoop& loop)
{
    AcGePoint3dArray points;
    for (size_t i = 0; i < loop.edges.size(); ++i)
    {
        AcGePoint3dArray edge = loop.edges[i].flatten();
        if (edge.empty())
            continue;
        bool turned = false;
        if (!points.empty())
            turned = squared(points.back(), edge.back()) < squared(points.back(), edge.front());
        else if (i + 1 < loop.edges.size())
            if (const AcGePoint3dArray next = loop.edges[i + 1].flatten(); !next.empty())
                turned = std::min(squared(edge.front(), next.front()), squared(edge.front(), next.back())) <
                         std::min(squared(edge.back(), next.front()), squared(edge.back(), next.back()));
        if (turned)
            std::reverse(edge.begin(), edge.end());
        points.insert(points.end(), edge.begin(), edge.end());
    }
    return points;
}

/// Whether a loop counts under the hatch's rule for islands.
bool counts(const HatchLoop& loop, int style)
{
    constexpr int kExternal = 1;
    constexpr int kOutermost = 16;
    if (style == 1)
        return (loop.kind & (kExternal | kOutermost)) != 0;
    return style != 2 || (loop.kind & kExternal) != 0;
}

} // namespace

void EntityWriter::writeHatch(std::string_view pairs)
{
    const HatchFill fill = readHatchFill(pairs);
    const std::vector<HatchLoop> loops = readHatchLoops(pairs);
    const bool anyCounts =
        std::any_of(loops.begin(), loops.end(), [&](const auto& l) { return counts(l, fill.style); });
    // The pattern lies in the hatch's own plane.
    const AcGeMatrix3d toPlane = AcGeMatrix3d::worldToPlane(fill.normal);
    const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(fill.normal);
    Loops outlines;
    double elevation = 0.0;
    size_t points = 0;
    for (const HatchLoop& loop : loops)
    {
        if (anyCounts && !counts(loop, fill.style))
            continue;
        std::vector<Vertex>& outline = outlines.emplace_back();
        for (const AcGePoint3d& point : pointsOf(loop))
        {
            const AcGePoint3d inPlane = toPlane * point;
            outline.push_back({inPlane.x, inPlane.y});
            elevation = inPlane.z;
        }
        points += outline.size();
    }
    const auto placed = [&](const Vertex& v) { return place(toWorld * AcGePoint3d{v.x, v.y, elevation}); };
    if (fill.isSolid || fill.lines.empty())
    {
        for (std::vector<Vertex>& outline : outlines)
            std::transform(outline.begin(), outline.end(), outline.begin(), placed);
        return writeLoops(outlines, Primitive::kArea);
    }
    if (points > kMostPoints)
    {
        m_lists.notes().texts.insert("hatch patterns within very long boundaries are left out");
        return;
    }
    bool tooMany = false;
    std::vector<Vertex> ends;
    for (const HatchStroke& stroke : hatchStrokes(fill, outlines, tooMany))
        if (const Vertex from = placed(stroke.from), to = placed(stroke.to); isUsable(from) && isUsable(to))
            ends.insert(ends.end(), {from, to});
    if (!ends.empty())
        m_list.add(Primitive::kStrokes, m_look, ends);
    if (tooMany)
        m_lists.notes().texts.insert("hatch patterns of many thousand lines are thinned out");
}

} // namespace picture
