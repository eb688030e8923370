#include "bench/support/crossing_case.h"

#include <algorithm>
#include <geos_c.h>
#include <memory>
#include <stdexcept>

namespace bench
{

namespace
{

constexpr size_t kNodeCapacity = 10;

using Context = std::unique_ptr<GEOSContextHandle_HS, void (*)(GEOSContextHandle_t)>;

/// A tree of the polylines' boxes. GEOS keeps pointers to the items: the numbers of the polylines.
class StrTree
{
public:
    explicit StrTree(const CrossingCase& input)
        : m_context(GEOS_init_r(), GEOS_finish_r), m_tree(GEOSSTRtree_create_r(m_context.get(), kNodeCapacity)),
          m_numbers(input.paths.size())
    {
        for (uint32_t path = 0; path < input.paths.size(); ++path)
        {
            m_numbers[path] = path;
            GEOSGeometry* box = boxed(boxOf(input.paths[path]));
            GEOSSTRtree_insert_r(m_context.get(), m_tree, box, &m_numbers[path]);
            GEOSGeom_destroy_r(m_context.get(), box);
        }
    }
    StrTree(const StrTree&) = delete;
    StrTree& operator=(const StrTree&) = delete;
    ~StrTree() { GEOSSTRtree_destroy_r(m_context.get(), m_tree); }

    void query(const Box2d& box, std::vector<uint32_t>& found)
    {
        GEOSGeometry* asked = boxed(box);
        GEOSSTRtree_query_r(
            m_context.get(), m_tree, asked,
            [](void* item, void* list)
            { static_cast<std::vector<uint32_t>*>(list)->push_back(*static_cast<uint32_t*>(item)); },
            &found);
        GEOSGeom_destroy_r(m_context.get(), asked);
    }

private:
    GEOSGeometry* boxed(const Box2d& box)
    {
        return GEOSGeom_createRectangle_r(m_context.get(), box.minX, box.minY, box.maxX, box.maxY);
    }

    Context m_context;
    GEOSSTRtree* m_tree;
    std::vector<uint32_t> m_numbers;
};

} // namespace

CrossingRows strTreeRows(const CrossingCase& input)
{
    StrTree tree(input);
    CrossingRows rows(input.lines.size());
    std::vector<uint32_t> found;
    for (size_t line = 0; line < input.lines.size(); ++line)
    {
        found.clear();
        tree.query(boxOf(input.lines[line]), found);
        std::sort(found.begin(), found.end());
        for (const uint32_t path : found)
            if (const auto row = crossSegments(input, path, line))
                rows[line].push_back(*row);
    }
    return rows;
}

} // namespace bench
