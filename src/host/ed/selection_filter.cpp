#include "host/ed/selection_filter.h"

#include "host/db/resbuf.h"
#include "host/view/entity_text.h"
#include "store/text/text.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace
{

constexpr int kOperator = -4;
constexpr int kExtendedData = -3;
constexpr int kObjectType = 0;
constexpr int kLayer = 8;
constexpr int kApplication = 1001;
constexpr int kDeepest = 100;

using Truth = std::optional<bool>;

bool holdsName(const std::vector<std::u16string>& names, std::u16string_view name)
{
    return std::any_of(names.begin(), names.end(), [name](const auto& each) { return equalNoCase(each, name); });
}

std::vector<std::u16string> namesIn(std::u16string_view list)
{
    std::vector<std::u16string> names;
    for (;;)
    {
        const size_t comma = list.find(u',');
        names.emplace_back(list.substr(0, comma));
        if (comma == std::u16string_view::npos)
            return names;
        list.remove_prefix(comma + 1);
    }
}

} // namespace

struct SelectionFilter::Node
{
    enum class Kind
    {
        And,
        Or,
        Not,
        Xor,
        Type,
        Layer,
        Application
    };

    Kind kind = Kind::And;
    std::vector<std::unique_ptr<Node>> parts;
    std::vector<std::u16string> names;

    /// Without an entity only what its kind decides is known.
    Truth test(std::u16string_view type, const ObjectRecord* entity) const;

private:
    Truth decisive(std::u16string_view type, const ObjectRecord* entity, bool deciding) const;
    Truth oneOf(std::u16string_view type, const ObjectRecord* entity) const;
};

Truth SelectionFilter::Node::test(std::u16string_view type, const ObjectRecord* entity) const
{
    switch (kind)
    {
    case Kind::And:
        return decisive(type, entity, false);
    case Kind::Or:
        return decisive(type, entity, true);
    case Kind::Not:
    {
        const Truth inner = decisive(type, entity, false);
        return inner ? Truth{!*inner} : Truth{};
    }
    case Kind::Xor:
        return oneOf(type, entity);
    case Kind::Type:
        return holdsName(names, type);
    case Kind::Layer:
        return entity != nullptr ? Truth{holdsName(names, layerOf(*entity))} : Truth{};
    case Kind::Application:
        return entity != nullptr ? Truth{hasApplication(*entity, names)} : Truth{};
    }
    return {};
}

/// And and or alike: one part that answers `deciding` decides; otherwise all must be known.
Truth SelectionFilter::Node::decisive(std::u16string_view type, const ObjectRecord* entity, bool deciding) const
{
    bool allKnown = true;
    for (const auto& part : parts)
    {
        const Truth truth = part->test(type, entity);
        if (truth == deciding)
            return deciding;
        allKnown = allKnown && truth.has_value();
    }
    return allKnown ? Truth{!deciding} : Truth{};
}

Truth SelectionFilter::Node::oneOf(std::u16string_view type, const ObjectRecord* entity) const
{
    size_t holding = 0;
    for (const auto& part : parts)
    {
        const Truth truth = part->test(type, entity);
        if (!truth)
            return {};
        holding += *truth ? 1 : 0;
    }
    return holding == 1;
}

namespace
{

using Node = SelectionFilter::Node;

struct Operator
{
    std::u16string_view opening;
    std::u16string_view closing;
    Node::Kind kind;
};

constexpr std::array<Operator, 4> kOperators{{{u"<and", u"and>", Node::Kind::And},
                                              {u"<or", u"or>", Node::Kind::Or},
                                              {u"<not", u"not>", Node::Kind::Not},
                                              {u"<xor", u"xor>", Node::Kind::Xor}}};

/// Reads a chain by descending into its operators.
class FilterReader
{
public:
    explicit FilterReader(const resbuf* chain) : m_at{chain} {}

    /// Parts up to `closing` (to the end of the chain when it is empty); false when the chain is not well formed.
    bool readParts(Node& parent, std::u16string_view closing, int depth)
    {
        for (; m_at != nullptr; m_at = m_at->rbnext)
        {
            if (isClosing(closing))
                return true;
            if (m_at->restype != kExtendedData && !readPart(parent, depth))
                return false;
        }
        return closing.empty();
    }

private:
    std::u16string_view text() const
    {
        return m_at->resval.rstring != nullptr ? std::u16string_view{m_at->resval.rstring} : std::u16string_view{};
    }

    bool isClosing(std::u16string_view closing) const
    {
        return m_at->restype == kOperator && !closing.empty() && equalNoCase(text(), closing);
    }

    bool readPart(Node& parent, int depth)
    {
        auto node = std::make_unique<Node>();
        switch (m_at->restype)
        {
        case kOperator:
            if (!readOperator(*node, depth))
                return false;
            break;
        case kObjectType:
            node->kind = Node::Kind::Type;
            break;
        case kLayer:
            node->kind = Node::Kind::Layer;
            break;
        case kApplication:
            node->kind = Node::Kind::Application;
            break;
        default:
            return false;
        }
        if (m_at->restype != kOperator)
            node->names = namesIn(text());
        parent.parts.push_back(std::move(node));
        return true;
    }

    bool readOperator(Node& node, int depth)
    {
        const std::u16string_view opening = text();
        const auto found = std::find_if(kOperators.begin(), kOperators.end(),
                                        [opening](const Operator& each) { return equalNoCase(each.opening, opening); });
        if (found == kOperators.end() || depth == kDeepest)
            return false;
        node.kind = found->kind;
        m_at = m_at->rbnext;
        return readParts(node, found->closing, depth + 1);
    }

    const resbuf* m_at;
};

} // namespace

SelectionFilter::SelectionFilter(std::unique_ptr<Node> root) : m_root{std::move(root)} {}
SelectionFilter::SelectionFilter(SelectionFilter&&) noexcept = default;
SelectionFilter& SelectionFilter::operator=(SelectionFilter&&) noexcept = default;
SelectionFilter::~SelectionFilter() = default;

std::optional<SelectionFilter> SelectionFilter::read(const resbuf* chain)
{
    auto root = std::make_unique<Node>();
    if (!FilterReader{chain}.readParts(*root, {}, 0))
        return std::nullopt;
    return SelectionFilter{std::move(root)};
}

std::optional<bool> SelectionFilter::passes(std::u16string_view kind) const
{
    return m_root->test(kind, nullptr);
}

bool SelectionFilter::passes(std::u16string_view kind, const ObjectRecord& entity) const
{
    return m_root->test(kind, &entity).value_or(false);
}
