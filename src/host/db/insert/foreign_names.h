#pragma once

#include "host/db/insert/foreign_pairs.h"

#include <set>
#include <string>

/// Sees to it that what entities from another drawing name exists in the drawing they go to: layers, linetypes, text
/// styles, dimension styles, applications. What the target has under a name is kept; what the source lacks too is made
/// plain.
class ForeignNames
{
public:
    /// On trial nothing is brought along, only read as if it were.
    ForeignNames(AcDbDatabase& source, AcDbDatabase& target, bool onTrial = false)
        : m_source{source}, m_target{target}, m_onTrial{onTrial}
    {
    }

    /// `table` as in drawing files: LAYER, LTYPE, STYLE, DIMSTYLE or APPID. Answers the name as the target spells it.
    /// DamagedValue when a number in the source's record is none: on trial, or half-way.
    std::string use(std::string_view table, const std::u16string& name);

private:
    void make(std::string_view table, const std::u16string& name, uint32_t container);
    void write(TagWriter& out, std::string_view table, std::string_view pairs);
    void writeLayer(TagWriter& out, std::string_view pairs);
    void writeLinetype(TagWriter& out, std::string_view pairs) const;
    void writeStyle(TagWriter& out, std::string_view pairs);
    void writeDimensionStyle(TagWriter& out, std::string_view pairs);

    AcDbDatabase& m_source;
    AcDbDatabase& m_target;
    bool m_onTrial;
    std::set<std::pair<std::string, std::u16string>> m_tried;
};
