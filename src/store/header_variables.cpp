#include "store/header_variables.h"

#include "store/tags.h"

#include <optional>

namespace
{

std::optional<Tag> firstTag(std::string_view pairs)
{
    Tag tag;
    TagReader reader{pairs};
    return reader.next(tag) ? std::optional{tag} : std::nullopt;
}

} // namespace

void HeaderVariables::index()
{
    m_indexed = true;
    TagReader reader{m_section};
    Tag tag;
    std::string name;
    const char* begin = nullptr;
    const auto finish = [&](const char* end)
    {
        if (begin != nullptr)
            m_variables.emplace(name, std::string_view{begin, static_cast<size_t>(end - begin)});
    };
    while (reader.next(tag))
        if (tag.code == 9)
        {
            finish(tag.begin);
            name = tag.word();
            begin = tag.end;
        }
    finish(m_section.data() + m_section.size());
}

std::string_view HeaderVariables::pairs(const std::string& name)
{
    if (!m_indexed)
        index();
    if (const auto changed = m_changed.find(name); changed != m_changed.end())
        return changed->second;
    const auto found = m_variables.find(name);
    return found != m_variables.end() ? found->second : std::string_view{};
}

std::string_view HeaderVariables::word(const std::string& name, std::string_view fallback)
{
    const auto tag = firstTag(pairs(name));
    return tag ? tag->word() : fallback;
}

int64_t HeaderVariables::integerOr(const std::string& name, int64_t fallback)
{
    const auto tag = firstTag(pairs(name));
    return tag ? tag->integerOr(fallback) : fallback;
}

AcGePoint3d HeaderVariables::point(const std::string& name, const AcGePoint3d& fallback)
{
    TagReader reader{pairs(name)};
    Tag tag;
    return reader.next(tag) ? reader.pointFrom(tag) : fallback;
}

void HeaderVariables::set(const std::string& name, std::string pairs)
{
    if (!m_indexed)
        index();
    m_changed[name] = std::move(pairs);
}

std::vector<HeaderVariables::Edit> HeaderVariables::edits() const
{
    std::vector<Edit> edits;
    const char* end = m_section.data() + m_section.size();
    for (const auto& [name, text] : m_changed)
    {
        const auto found = m_variables.find(name);
        if (found != m_variables.end())
            edits.push_back({found->second.data(), found->second.data() + found->second.size(), text});
        else
            edits.push_back({end, end, "  9\n" + name + "\n" + text});
    }
    return edits;
}
