#include "settings/table_pages.h"

#include "resources/dialog_templates.h"
#include "sections/database_cs.h"

namespace
{

constexpr unsigned kNameHeader = 4;
constexpr unsigned kFcodeHeader = 9;

void collectSymbols(NameSet& rows, const CrossSectionXdata& section)
{
    for (const ListBlockData* list : {&section.m_listBlockData1, &section.m_listBlockData2})
    {
        for (const BlockData& symbol : *list)
            rows.insert(symbol);
    }
}

template <ListBlockFcode CrossSectionXdata::*list>
void collectFcodes(NameSet& rows, const CrossSectionXdata& section)
{
    for (const BlockFcode& point : section.*list)
    {
        if (!point.m_strFcode.empty())
            rows.insert(point);
    }
}

void applySymbols(const NameSet& rows, CrossSectionXdata& section)
{
    for (ListBlockData* list : {&section.m_listBlockData1, &section.m_listBlockData2})
    {
        for (BlockData& symbol : *list)
        {
            if (const SetName_Index* record = rows.find(symbol.m_strName))
                symbol.look() = record->look();
        }
    }
}

template <ListBlockFcode CrossSectionXdata::*list>
void applyFcodes(const NameSet& rows, CrossSectionXdata& section)
{
    for (BlockFcode& point : section.*list)
    {
        if (const SetName_Index* record = rows.find(point.m_strFcode))
            point.look() = record->look();
    }
}

constexpr TablePageKind kSymbols{.className = "SymbolSettingDlg",
                                 .dialogTemplate = kSymbolPage,
                                 .groupBox = control_ids::table::kSymbolGroup,
                                 .keyHeader = kNameHeader,
                                 .disabledWithoutRows = false,
                                 .lastFile = &DatabaseCS::m_strFileSymbolLastSelect,
                                 .collect = collectSymbols,
                                 .apply = applySymbols};

/// The pages of feature codes differ in the list of rows that they are about.
template <ListBlockFcode CrossSectionXdata::*list>
constexpr TablePageKind fcodePage(std::string_view className, int dialogTemplate)
{
    return {.className = className,
            .dialogTemplate = dialogTemplate,
            .groupBox = control_ids::table::kFcodeGroup,
            .keyHeader = kFcodeHeader,
            .disabledWithoutRows = true,
            .lastFile = &DatabaseCS::m_strFileLineLastSelect,
            .collect = collectFcodes<list>,
            .apply = applyFcodes<list>};
}

constexpr TablePageKind kSectionFcodes =
    fcodePage<&CrossSectionXdata::m_listBlockFcode1>("LineSettingDlg", kSectionFcodePage);
constexpr TablePageKind kPlanFcodes =
    fcodePage<&CrossSectionXdata::m_listBlockFcode2>("LineSettingDlg1", kPlanFcodePage);

} // namespace

SymbolSettingDlg::SymbolSettingDlg(LibraryFiles& library) : TableSettingPage{library, kSymbols} {}

LineSettingDlg::LineSettingDlg(LibraryFiles& library) : TableSettingPage{library, kSectionFcodes} {}

LineSettingDlg1::LineSettingDlg1(LibraryFiles& library) : TableSettingPage{library, kPlanFcodes} {}
