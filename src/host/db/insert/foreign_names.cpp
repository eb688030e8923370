#include "host/db/insert/foreign_names.h"

#include "host/db/table/new_block.h"
#include "store/pair_edit.h"
#include "store/table_index.h"

#include <algorithm>

namespace
{

constexpr int kR2004 = 1018;

/// The value of `code` among an object's own pairs, as a tag; the fallback's text when there is none.
Tag valueOf(std::string_view pairs, int code, std::string_view fallback)
{
    OwnPairs own{pairs};
    for (Tag tag; own.next(tag);)
        if (tag.code == code)
            return tag;
    Tag none;
    none.code = code;
    none.value = fallback;
    return none;
}

std::string_view markerOf(std::string_view table)
{
    if (table == "LAYER")
        return "AcDbLayerTableRecord";
    if (table == "LTYPE")
        return "AcDbLinetypeTableRecord";
    if (table == "STYLE")
        return "AcDbTextStyleTableRecord";
    return table == "DIMSTYLE" ? "AcDbDimStyleTableRecord" : "AcDbRegAppTableRecord";
}

} // namespace

std::string ForeignNames::use(std::string_view table, const std::u16string& name)
{
    const uint32_t container = m_target.tables().container(table);
    if (!name.empty() && container != TableIndex::npos && m_target.tables().find(table, name) == nullptr)
        make(table, name, container);
    return m_target.tables().spelling(table, name);
}

void ForeignNames::make(std::string_view table, const std::u16string& name, uint32_t container)
{
    const ObjectRecord* original = m_source.tables().find(table, name);
    const std::string_view pairs = original != nullptr ? original->view() : std::string_view{};
    TagWriter out;
    if (m_onTrial)
    {
        if (m_tried.emplace(table, name).second)
            write(out, table, pairs);
        return;
    }
    ObjectRecord& record = m_target.addRecord(container, table);
    m_target.tables().add(table, name, record);
    out.text(0, table);
    out.handle(table == "DIMSTYLE" ? 105 : 5, record.handle);
    out.handle(330, m_target.tables().table(table)->handle);
    out.text(100, "AcDbSymbolTableRecord");
    out.text(100, markerOf(table));
    out.text(2, m_target.encoding().encode(name));
    write(out, table, pairs);
    m_target.setRecordText(record, out.view());
}

void ForeignNames::write(TagWriter& out, std::string_view table, std::string_view pairs)
{
    if (table == "LAYER")
        writeLayer(out, pairs);
    else if (table == "LTYPE")
        writeLinetype(out, pairs);
    else if (table == "STYLE")
        writeStyle(out, pairs);
    else if (table == "DIMSTYLE")
        writeDimensionStyle(out, pairs);
    else
        out.integer(70, 0);
}

void ForeignNames::writeLayer(TagWriter& out, std::string_view pairs)
{
    constexpr int kFrozenOrLocked = 1 | 2 | 4;
    constexpr int64_t kDefaultLineWeight = -3;
    const std::u16string linetype = m_source.encoding().decode(valueOf(pairs, 6, "Continuous").word());
    const std::string linetypeName = use("LTYPE", linetype);
    out.integer(70, valueOf(pairs, 70, "0").integer() & kFrozenOrLocked);
    out.integer(62, std::clamp<int64_t>(valueOf(pairs, 62, "7").integer(), -255, 255));
    out.text(6, linetypeName);
    if (const Tag color = valueOf(pairs, 420, {}); !color.value.empty() && m_target.version() >= kR2004)
        out.integer(420, color.integer());
    out.integer(290, valueOf(pairs, 290, "1").integer() != 0 ? 1 : 0);
    out.integer(370, valueOf(pairs, 370, std::to_string(kDefaultLineWeight)).integer());
    if (const uint64_t plotStyle = plotStyleOfLayers(m_target); plotStyle != 0)
        out.handle(390, plotStyle);
}

/// Dashes and gaps; shapes and texts along the line are left out.
void ForeignNames::writeLinetype(TagWriter& out, std::string_view pairs) const
{
    std::vector<double> dashes;
    OwnPairs own{pairs};
    for (Tag tag; own.next(tag);)
        if (tag.code == 49)
            dashes.push_back(tag.real());
    out.integer(70, 0);
    out.text(3, m_target.encoding().encode(m_source.encoding().decode(valueOf(pairs, 3, {}).value)));
    out.integer(72, 'A');
    out.integer(73, static_cast<int64_t>(dashes.size()));
    out.real(40, valueOf(pairs, 40, "0").real());
    for (const double dash : dashes)
    {
        out.real(49, dash);
        out.integer(74, 0);
    }
}

void ForeignNames::writeStyle(TagWriter& out, std::string_view pairs)
{
    constexpr int kVertical = 4;
    const ForeignPairs values{m_source, m_target, *this};
    out.integer(70, valueOf(pairs, 70, "0").integer() & kVertical);
    out.real(40, valueOf(pairs, 40, "0").real());
    out.real(41, valueOf(pairs, 41, "1").real());
    out.real(50, valueOf(pairs, 50, "0").real());
    out.integer(71, valueOf(pairs, 71, "0").integer());
    out.real(42, valueOf(pairs, 42, "2.5").real());
    out.text(3, values.value(valueOf(pairs, 3, "txt")));
    out.text(4, values.value(valueOf(pairs, 4, {})));
    out.raw(values.extendedData(pairs));
}

/// The measures of the style; the blocks, styles and linetypes it names are left to the target's defaults.
void ForeignNames::writeDimensionStyle(TagWriter& out, std::string_view pairs)
{
    const auto isMeasure = [](int code)
    {
        return (code >= 40 && code <= 48) || (code >= 71 && code <= 78) || (code >= 140 && code <= 148) ||
               (code >= 170 && code <= 179) || (code >= 271 && code <= 289) || code == 371 || code == 372;
    };
    const ForeignPairs values{m_source, m_target, *this};
    out.integer(70, 0);
    OwnPairs own{pairs};
    for (Tag tag; own.next(tag);)
        if (isMeasure(tag.code))
            out.text(tag.code, values.value(tag));
}
