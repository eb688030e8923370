#pragma once

#include "kernel/point3d.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

/// The variables of a drawing's HEADER section, found when first asked for, and the ones that were changed since.
class HeaderVariables
{
public:
    explicit HeaderVariables(std::string_view section) : m_section{section} {}

    /// The pairs of a variable's value ("$CLAYER"), without its name; empty when there is none.
    std::string_view pairs(const std::string& name);
    /// First value of the variable as text, number or point; the fallback when there is none. A number that cannot be
    /// read counts as none, in a point it is a DamagedValue.
    std::string_view word(const std::string& name, std::string_view fallback = {});
    int64_t integerOr(const std::string& name, int64_t fallback);
    AcGePoint3d point(const std::string& name, const AcGePoint3d& fallback);

    /// Gives a variable a new value (whole pairs, without its name).
    void set(const std::string& name, std::string pairs);

    /// A changed piece of the section's text. An empty range is a place where the text is inserted.
    struct Edit
    {
        const char* begin;
        const char* end;
        std::string text;
    };
    std::vector<Edit> edits() const;

private:
    void index();

    std::string_view m_section;
    bool m_indexed = false;
    std::map<std::string, std::string_view, std::less<>> m_variables;
    std::map<std::string, std::string, std::less<>> m_changed;
};
