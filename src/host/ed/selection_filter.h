#pragma once

#include <memory>
#include <optional>
#include <string_view>

struct ObjectRecord;
struct resbuf;

/// The test a selection puts every entity to, read from a filter chain: conditions (0 object type, 8 layer, 1001
/// application of extended data behind -3; each a list of names with "," between them, of which one must be equal
/// without regard to case) under the operators (-4) and, or, not, xor, nested as given. Conditions that stand side by
/// side outside an operator must all hold.
class SelectionFilter
{
public:
    struct Node;

    /// Nothing when the chain is not well formed: an operator that is unknown, not closed or closed by another, a code
    /// that no condition has. A null chain lets everything pass.
    static std::optional<SelectionFilter> read(const resbuf* chain);

    SelectionFilter(SelectionFilter&&) noexcept;
    SelectionFilter& operator=(SelectionFilter&&) noexcept;
    ~SelectionFilter();

    /// What can be said of all entities of a kind (by its name in drawing files): true, false, or nothing.
    std::optional<bool> passes(std::u16string_view kind) const;
    /// Whether the entity passes; looked up in the entity's text, which is not decoded further than needed.
    bool passes(std::u16string_view kind, const ObjectRecord& entity) const;

private:
    explicit SelectionFilter(std::unique_ptr<Node> root);

    std::unique_ptr<Node> m_root;
};
