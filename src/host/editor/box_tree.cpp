#include "host/editor/box_tree.h"

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
    for (uint32_t item = 0; item < m_boxes.size(); ++item)
        if (!m_boxes[item].isEmpty())
            m_sorted.push_back(item);
    if (!m_sorted.empty())
        split(0, static_cast<uint32_t>(m_sorted.size()));
}

void BoxTree::split(uint32_t begin, uint32_t end)
{
    const size_t at = m_nodes.size();
    m_nodes.emplace_back();
    Box2d box;
    for (uint32_t i = begin; i < end; ++i)
        box.add(m_boxes[m_sorted[i]]);
    m_nodes[at].box = box;
    if (end - begin <= kLeafSize)
    {
        m_nodes[at].begin = begin;
        m_nodes[at].end = end;
    }
    else
    {
        const bool alongX = box.maxX - box.minX > box.maxY - box.minY;
        const auto middle = [&](uint32_t item)
        {
            const Box2d& each = m_boxes[item];
            return alongX ? each.minX / 2 + each.maxX / 2 : each.minY / 2 + each.maxY / 2;
        };
        const uint32_t half = begin + (end - begin) / 2;
        std::nth_element(m_sorted.begin() + begin, m_sorted.begin() + half, m_sorted.begin() + end,
                         [&](uint32_t a, uint32_t b) { return middle(a) < middle(b); });
        split(begin, half);
        split(half, end);
    }
    m_nodes[at].skip = static_cast<uint32_t>(m_nodes.size());
}
