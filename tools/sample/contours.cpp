#include "contours.h"

#include "entities.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <vector>

namespace
{
constexpr double kTile = 100;
constexpr double kInterval = 0.5;
constexpr double kCell = 2.5;

/// An edge of the height grid, by the number of its lower node and whether it runs across the road.
using Edge = int;

/// A stretch of road as a grid of heights, and the contours of one level through it.
class Tile
{
public:
    Tile(const RoadDrawing& drawing, double from, double halfWidth)
        : m_drawing(drawing), m_from(from), m_halfWidth(halfWidth),
          m_columns(static_cast<int>(std::min(kTile, drawing.road.Length() - from) / kCell)),
          m_rows(static_cast<int>(2 * halfWidth / kCell))
    {
        for (int row = 0; row <= m_rows; ++row)
            for (int column = 0; column <= m_columns; ++column)
                m_heights.push_back(drawing.terrain.Height(drawing.road, Chainage(column), Offset(row)));
    }

    int LowestLevel() const
    {
        return static_cast<int>(std::ceil(*std::min_element(m_heights.begin(), m_heights.end()) / kInterval));
    }
    int HighestLevel() const
    {
        return static_cast<int>(std::floor(*std::max_element(m_heights.begin(), m_heights.end()) / kInterval));
    }

    void Draw(Entities& entities, int level)
    {
        // A tenth of a millimetre up, so that no node lies exactly on the level.
        m_level = kInterval * level + 1e-4;
        m_links.clear();
        for (int row = 0; row < m_rows; ++row)
            for (int column = 0; column < m_columns; ++column)
                LinkCell(column, row);
        const char* layer = level % 5 == 0 ? "DONG_MUC_CAI" : "DONG_MUC";
        while (!m_links.empty())
            DrawLine(entities, layer);
    }

private:
    struct Links
    {
        std::array<Edge, 2> to{-1, -1};
        int count = 0;
    };

    double Chainage(double column) const { return m_from + kCell * column; }
    double Offset(double row) const { return kCell * row - m_halfWidth; }
    int Node(int column, int row) const { return row * (m_columns + 1) + column; }
    double Height(int node) const { return m_heights[static_cast<std::size_t>(node)]; }
    bool Above(int node) const { return Height(node) > m_level; }

    void LinkCell(int column, int row)
    {
        const std::array<int, 4> nodes{Node(column, row), Node(column + 1, row), Node(column + 1, row + 1),
                                       Node(column, row + 1)};
        const std::array<Edge, 4> edges{2 * nodes[0], 2 * nodes[1] + 1, 2 * nodes[3], 2 * nodes[0] + 1};
        std::array<Edge, 4> crossed{};
        std::size_t count = 0;
        for (std::size_t side = 0; side < 4; ++side)
            if (Above(nodes.at(side)) != Above(nodes.at((side + 1) % 4)))
                crossed.at(count++) = edges.at(side);
        for (std::size_t pair = 0; pair + 1 < count; pair += 2)
        {
            Link(crossed.at(pair), crossed.at(pair + 1));
            Link(crossed.at(pair + 1), crossed.at(pair));
        }
    }

    void Link(Edge from, Edge to)
    {
        Links& links = m_links[from];
        links.to.at(static_cast<std::size_t>(links.count++)) = to;
    }

    Vertex On(Edge edge) const
    {
        const int low = edge / 2;
        const bool across = edge % 2 != 0;
        const int high = across ? low + m_columns + 1 : low + 1;
        const double part = (m_level - Height(low)) / (Height(high) - Height(low));
        const int row = low / (m_columns + 1);
        const int column = low % (m_columns + 1);
        const double chainage = Chainage(column + (across ? 0 : part));
        return {m_drawing.road.At(chainage, Offset(row + (across ? part : 0))), m_level, 0};
    }

    /// An end of a line, or any edge when only closed lines are left.
    Edge AnyEnd() const
    {
        const auto end =
            std::find_if(m_links.begin(), m_links.end(), [](const auto& entry) { return entry.second.count == 1; });
        return end != m_links.end() ? end->first : m_links.begin()->first;
    }

    void DrawLine(Entities& entities, const char* layer)
    {
        const Edge first = AnyEnd();
        const bool closed = m_links.at(first).count == 2;
        std::vector<Vertex> line;
        for (Edge at = first; at >= 0;)
        {
            line.push_back(On(at));
            const Links links = m_links.at(at);
            m_links.erase(at);
            at = -1;
            for (const Edge next : links.to)
                if (m_links.contains(next))
                    at = next;
        }
        entities.LightPolyline(layer, line, closed, {}, m_level);
    }

    const RoadDrawing& m_drawing;
    double m_from;
    double m_halfWidth;
    int m_columns;
    int m_rows;
    double m_level = 0;
    std::vector<double> m_heights;
    std::map<Edge, Links> m_links;
};
} // namespace

void DrawContours(const RoadDrawing& drawing, double halfWidth)
{
    Entities entities(drawing.out);
    for (double from = 0; from + kCell < drawing.road.Length(); from += kTile)
    {
        Tile tile(drawing, from, halfWidth);
        for (int level = tile.LowestLevel(); level <= tile.HighestLevel(); ++level)
            tile.Draw(entities, level);
    }
}
