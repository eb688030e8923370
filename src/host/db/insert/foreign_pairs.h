#pragma once

#include "host/db/database.h"

#include <string>
#include <string_view>
#include <vector>

class ForeignNames;

/// A pair that was carried over: its value is in the encoding of the drawing it goes to.
struct CarriedPair
{
    int code = 0;
    std::string value;
};

/// Carries single values from one drawing to another: texts are encoded anew, numbers written so that every
/// reader takes them; a DamagedValue is thrown where one is none.
class ForeignPairs
{
public:
    ForeignPairs(const AcDbDatabase& source, const AcDbDatabase& target, ForeignNames& names)
        : m_source{source}, m_target{target}, m_names{names}
    {
    }

    std::string value(const Tag& tag) const;
    /// The extended data at the end of an object's pairs. References to other objects become none; of the application
    /// `without` nothing is taken.
    std::string extendedData(std::string_view pairs, std::string_view without = {}) const;
    const AcDbDatabase& target() const { return m_target; }
    ForeignNames& names() const { return m_names; }
    std::u16string decoded(const Tag& tag) const { return m_source.encoding().decode(tag.word()); }

private:
    const AcDbDatabase& m_source;
    const AcDbDatabase& m_target;
    ForeignNames& m_names;
};
