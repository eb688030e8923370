#pragma once

#include "store/numbers.h"

#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

/// Numbers between blanks and line ends, as LandXML lists them.

namespace survey
{

inline bool isNumberBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// Takes the numbers of a text one after the other.
class NumberText
{
public:
    explicit NumberText(std::string_view text) : m_rest{text} { skipBlanks(); }

    /// The next number; nothing at the end, or when what comes next is none.
    std::optional<double> next()
    {
        const dxf::LeadingReal found = dxf::leadingReal(m_rest);
        if (found.length == 0 || !std::isfinite(found.value) || !endsAt(found.length))
            return std::nullopt;
        m_rest.remove_prefix(found.length);
        skipBlanks();
        return found.value;
    }

    std::optional<int64_t> nextInteger()
    {
        const dxf::LeadingInteger found = dxf::leadingInteger(m_rest);
        if (found.length == 0 || !endsAt(found.length))
            return std::nullopt;
        m_rest.remove_prefix(found.length);
        skipBlanks();
        return found.value;
    }

    /// What is left. Empty when every number was taken.
    std::string_view rest() const { return m_rest; }

private:
    bool endsAt(size_t length) const { return length == m_rest.size() || isNumberBlank(m_rest[length]); }
    void skipBlanks()
    {
        while (!m_rest.empty() && isNumberBlank(m_rest.front()))
            m_rest.remove_prefix(1);
    }

    std::string_view m_rest;
};

/// All numbers of a text; nothing when something in it is none.
inline std::optional<std::vector<double>> numbersOf(std::string_view text)
{
    NumberText numbers{text};
    std::vector<double> list;
    while (const auto number = numbers.next())
        list.push_back(*number);
    return numbers.rest().empty() ? std::optional{std::move(list)} : std::nullopt;
}

} // namespace survey
