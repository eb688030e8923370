#pragma once

#include "store/text/text.h"

#include <string>
#include <unordered_map>
#include <utility>

/// Values by name. A name is looked up as it is spelled first, then without regard to case and composition, so that
/// each of several names that differ in no more than that is found by its own spelling.
template <class Value>
class NameMap
{
public:
    /// Keeps `value` unless the very same spelling is there already.
    void add(const std::u16string& name, Value value)
    {
        if (const auto [first, isNew] = m_first.emplace(name, value); !isNew && first->first != name)
            m_further.emplace(name, std::move(value));
    }

    /// Keeps `value` in place of what the name, in whatever spelling, led to.
    void replace(const std::u16string& name, Value value)
    {
        m_further.erase(name);
        m_first.erase(name);
        m_first.emplace(name, std::move(value));
    }

    /// What a name leads to; null when it is not there.
    const Value* find(std::u16string_view name) const
    {
        if (!m_further.empty())
            if (const auto exact = m_further.find(std::u16string{name}); exact != m_further.end())
                return &exact->second;
        const auto found = m_first.find(name);
        return found != m_first.end() ? &found->second : nullptr;
    }

private:
    std::unordered_map<std::u16string, Value, HashNoCase, EqualNoCase> m_first;
    std::unordered_map<std::u16string, Value> m_further; ///< the other spellings of names in `m_first`
};
