#pragma once

#include "kernel/segment2d.h"

#include <cstdint>
#include <span>
#include <vector>

/// Finds boxes of the plan by place. Items are numbers; each has one box, or none while it covers nothing. Boxes may
/// be changed at any time: changed ones are looked at one by one until there are enough of them to build anew.
class BoxTree
{
public:
    /// Gives the item a box, in place of what it had.
    void set(uint32_t item, const Box2d& box);

    /// The item's box as it was set last.
    const Box2d& box(uint32_t item) const { return m_boxes[item]; }
    size_t bytes() const
    {
        return m_boxes.capacity() * sizeof(Box2d) + m_isLoose.capacity() / 8 + m_loose.capacity() * sizeof(uint32_t) +
               m_sorted.capacity() * sizeof(uint32_t) + m_nodes.capacity() * sizeof(Node);
    }

    /// Makes what the search goes by, where enough boxes changed. Only this and `set` change the tree: between them it
    /// may be searched from several threads.
    void prepare()
    {
        if (m_loose.size() > kFewest + m_boxes.size() / 8)
            build();
    }

    /// Calls `found` with every item whose box is not apart from what is sought, in no order. What `isApart` says of
    /// a box holds for every box in it.
    template <class IsApart, class Found>
    void visit(const IsApart& isApart, Found&& found)
    {
        prepare();
        search(
            isApart, [](const Box2d&) { return false; }, found);
    }

    /// The same for a tree that is prepared. What is in a box that `holds` says is held is found unseen.
    template <class IsApart, class Holds, class Found>
    void search(const IsApart& isApart, const Holds& holds, Found&& found) const
    {
        for (size_t at = 0; at < m_nodes.size();)
        {
            const Node& node = m_nodes[at];
            const bool isHeld = holds(node.box);
            const bool isOut = !isHeld && isApart(node.box);
            const bool isAll = isHeld || node.skip == at + 1;
            at = isOut || isHeld ? node.skip : at + 1;
            for (uint32_t i = node.begin; isAll && !isOut && i < node.end; ++i)
                if (!m_isLoose[m_sorted[i]] && (isHeld || !isApart(m_boxes[m_sorted[i]])))
                    found(m_sorted[i]);
        }
        for (const uint32_t item : m_loose)
            if (!isApart(m_boxes[item]))
                found(item);
    }

private:
    /// Stands before the nodes below it; `skip` is the first node that is not below it. Its items are those of all
    /// leaves below it.
    struct Node
    {
        Box2d box;
        uint32_t begin = 0;
        uint32_t end = 0;
        uint32_t skip = 0;
    };

    struct Middle
    {
        double x;
        double y;
        uint32_t item;
    };

    static constexpr size_t kFewest = 64;
    static constexpr size_t kLeafSize = 8;

    void build();
    void split(std::span<Middle> items);

    std::vector<Box2d> m_boxes;
    std::vector<bool> m_isLoose;
    std::vector<uint32_t> m_loose; ///< items that are not in the nodes, or not with the box they have now
    std::vector<uint32_t> m_sorted;
    std::vector<Node> m_nodes;
};
