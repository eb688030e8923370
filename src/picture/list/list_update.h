#pragma once

#include "picture/list/drawing_lists.h"

#include <optional>
#include <set>
#include <span>
#include <unordered_set>
#include <vector>

namespace picture
{

/// Brings display lists up to date with what changed in their drawing.
class ListUpdate
{
public:
    explicit ListUpdate(DrawingLists& lists) : m_lists{lists} {}

    /// `touched` are the records that changed. Answers as `DrawingLists::update`.
    std::optional<Box2d> run(std::span<ObjectRecord* const> touched);

private:
    using Entities = std::unordered_set<const ObjectRecord*>;

    void sort(ObjectRecord& record);
    void sortTableRecord(const ObjectRecord& record, std::string_view kind);
    ObjectRecord& headOf(ObjectRecord& part) const;
    void spreadFromBlocks();
    void addUsersOf(const std::set<uint32_t>& blocks);
    void remakeBlocks();
    void rewrite(uint32_t list, const Entities& entities);
    void remakeAll();

    DrawingLists& m_lists;
    std::vector<Entities> m_changed; ///< by list: entities to be written anew, or for the first time
    std::set<uint32_t> m_blocks;     ///< lists of blocks to be made anew
    std::set<uint32_t> m_containers; ///< whose contents changed
    bool m_hasNewBlocks = false;
    bool m_hasNewLooks = false;
    bool m_isAll = false; ///< fonts or the order changed
    Box2d m_box;
};

} // namespace picture
