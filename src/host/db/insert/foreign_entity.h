#pragma once

#include "host/db/insert/foreign_pairs.h"

/// Whether an entity of this kind can stand in another drawing by its own pairs alone.
bool isCarriedKind(std::string_view kind);

/// Writes entities of one drawing as pairs for another one, of whatever versions: texts in the target's encoding, class
/// markers added, handles and references to other objects left behind, nothing that the target's version lacks. What
/// the entity names (layers and the like) is brought along.
class ForeignEntity
{
public:
    explicit ForeignEntity(const ForeignPairs& values) : m_values{values} {}

    /// `block` is the target's name for the block that the entity draws; `followed` says that sub-entities follow.
    std::string write(std::string_view kind, std::string_view pairs, uint64_t handle, uint64_t owner,
                      std::string_view block, bool followed);
    /// A reference to `block`, placed where it stands by itself, with the layer and colour of the entity.
    std::string writePicture(std::string_view pairs, uint64_t handle, uint64_t owner, std::string_view block);
    /// The end of a sequence of sub-entities.
    std::string writeSequenceEnd(uint64_t handle, uint64_t owner) const;

private:
    void carryOwn(std::string_view pairs);
    void carryHatch(std::string_view pairs);
    void carry(const Tag& tag);
    std::string_view tableOf(int code) const;
    bool isLeftOut(int code) const;
    std::string valueFor(const Tag& tag) const;

    const ForeignPairs& m_values;
    std::string_view m_kind;
    std::string_view m_block;
    std::string_view m_part; ///< the class marker that the pair at hand stands behind
    bool m_followed = false;
    std::vector<CarriedPair> m_pairs;
};
