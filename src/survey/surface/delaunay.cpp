#include "survey/surface/delaunay.h"

#include "survey/surface/held_edges.h"
#include "survey/surface/spatial_order.h"

#include <algorithm>

namespace survey
{

namespace
{

/// Brings three points that do not lie on a line to the front. Whether there are any.
bool startWithTriangle(std::span<const GridPoint> points, std::vector<uint32_t>& order)
{
    if (order.size() < 3)
        return false;
    const auto third = std::find_if(order.begin() + 2, order.end(),
                                    [&](uint32_t point)
                                    { return doubleArea(points[order[0]], points[order[1]], points[point]) != 0; });
    if (third == order.end())
        return false;
    std::iter_swap(order.begin() + 2, third);
    return true;
}

} // namespace

std::vector<Surface::Face> delaunay(std::span<const GridPoint> points, std::span<const Chord> chords)
{
    std::vector<uint32_t> order = spatialOrder(points);
    if (!startWithTriangle(points, order))
        return {};
    TriangleMesh mesh{points, {order[0], order[1], order[2]}};
    for (size_t i = 3; i < order.size(); ++i)
        mesh.insert(order[i]);
    HeldEdges held{mesh};
    for (const Chord& chord : chords)
        held.hold(chord.from, chord.to);

    std::vector<Surface::Face> faces;
    faces.reserve(mesh.triangles().size());
    for (uint32_t triangle = 0; triangle < mesh.triangles().size(); ++triangle)
        if (!mesh.isOutside(triangle))
            faces.push_back(mesh.triangles()[triangle].corners);
    return faces;
}

} // namespace survey
