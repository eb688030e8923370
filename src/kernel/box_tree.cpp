#include "kernel/box_tree.h"

#include <algorithm>

void BoxTree::set(uint32_t item, const Box2d& box)
{
    if (item >= m_boxes.size())
    {
        m_boxes.resize(item + 1);
        m_isLoose.resize(item + 1, false);
    }
    m_boxes[item] = box;
    if (!m_isLoose[item])
        m_loose.push_back(item);
    m_isLoose[item] = true;
}

void BoxTree::build()
{
    m_loose.clear();
    m_isLoose.assign(m_boxes.size(), false);
    m_nodes.clear();
    m_sorted.clear();
    std::vector<Middle> middles;
    for (uint32_t item = 0; item < m_boxes.size(); ++item)
        if (const Box2d& box = m_boxes[item]; !box.isEmpty())
            middles.push_back({box.minX / 2 + box.maxX / 2, box.minY / 2 + box.maxY / 2, item});
    m_sorted.reserve(middles.size());
    if (!middles.empty())
        split(middles);
}

/// Makes the node of the items and, before its box is known, the nodes below it.
void BoxTree::split(std::span<Middle> items)
{
    const size_t at = m_nodes.size();
    m_nodes.emplace_back();
    m_nodes[at].begin = static_cast<uint32_t>(m_sorted.size());
    if (items.size() <= kLeafSize)
    {
        for (const Middle& each : items)
        {
            m_sorted.push_back(each.item);
            m_nodes[at].box.add(m_boxes[each.item]);
        }
    }
    else
    {
        const auto half = items.begin() + static_cast<ptrdiff_t>(items.size() / 2);
        Box2d spread;
        for (const Middle& each : items)
            spread.add(each.x, each.y);
        if (spread.maxX - spread.minX > spread.maxY - spread.minY)
            std::nth_element(items.begin(), half, items.end(),
                             [](const Middle& a, const Middle& b) { return a.x < b.x; });
        else
            std::nth_element(items.begin(), half, items.end(),
                             [](const Middle& a, const Middle& b) { return a.y < b.y; });
        split(items.first(items.size() / 2));
        const size_t second = m_nodes.size();
        split(items.subspan(items.size() / 2));
        m_nodes[at].box = m_nodes[at + 1].box;
        m_nodes[at].box.add(m_nodes[second].box);
    }
    m_nodes[at].end = static_cast<uint32_t>(m_sorted.size());
    m_nodes[at].skip = static_cast<uint32_t>(m_nodes.size());
}
