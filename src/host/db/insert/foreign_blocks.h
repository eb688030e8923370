#pragma once

#include "host/db/database.h"

#include <string_view>
#include <unordered_map>
#include <vector>

/// Which blocks of a drawing its model space draws, directly or through others. Blocks are known by their container.
/// Walks without recursion: blocks may be nested to any depth.
class ForeignBlocks
{
public:
    explicit ForeignBlocks(AcDbDatabase& source);

    /// Whether blocks contain each other, or themselves, in a circle.
    bool isCircular() const { return m_circular; }
    /// The container of the model space; npos when the drawing has none.
    uint32_t modelSpace() const { return m_modelSpace; }
    /// Every block that is used, each behind those it uses, the model space last.
    const std::vector<uint32_t>& all() const { return m_order; }
    /// The blocks that are needed when nothing is taken from the blocks for which `isKept` answers true, each once
    /// and before those it uses, the model space not among them.
    template <class IsKept>
    std::vector<uint32_t> needed(const IsKept& isKept) const
    {
        std::unordered_map<uint32_t, bool> wanted{{m_modelSpace, true}};
        std::vector<uint32_t> blocks;
        // Behind every block stand the ones that use it, so from the end each is reached after its users.
        for (size_t i = m_order.size(); i-- > 0;)
        {
            const uint32_t block = m_order[i];
            if (!wanted[block] || (block != m_modelSpace && isKept(block)))
                continue;
            if (block != m_modelSpace)
                blocks.push_back(block);
            for (const uint32_t used : m_uses.at(block))
                wanted[used] = true;
        }
        return blocks;
    }
    /// The block that an entity of the source draws; npos when it draws none, or one that cannot be carried.
    uint32_t blockOf(const ObjectRecord& entity) const;

private:
    std::vector<uint32_t> usesOf(uint32_t block) const;
    void walk();

    AcDbDatabase& m_source;
    uint32_t m_modelSpace;
    bool m_circular = false;
    std::vector<uint32_t> m_order; ///< a block behind all that it uses
    std::unordered_map<uint32_t, std::vector<uint32_t>> m_uses;
};
