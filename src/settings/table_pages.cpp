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

constexpr TablePageKind kSymbols{"SymbolSettingDlg", kSymbolPage, 1111,
                                 kNameHeader,        false,       &DatabaseCS::m_strFileSymbolLastSelect,
                                 collectSymbols,     applySymbols};

constexpr TablePageKind kSectionFcodes{"LineSettingDlg",
                                       kSectionFcodePage,
                                       1112,
                                       kFcodeHeader,
                                       true,
                                       &DatabaseCS::m_strFileLineLastSelect,
                                       collectFcodes<&CrossSectionXdata::m_listBlockFcode1>,
                                       applyFcodes<&CrossSectionXdata::m_listBlockFcode1>};

constexpr TablePageKind kPlanFcodes{"LineSettingDlg1",
                                    kPlanFcodePage,
                                    1112,
                                    kFcodeHeader,
                                    true,
                                    &DatabaseCS::m_strFileLineLastSelect,
                                    collectFcodes<&CrossSectionXdata::m_listBlockFcode2>,
                                    applyFcodes<&CrossSectionXdata::m_listBlockFcode2>};

} // namespace

SymbolSettingDlg::SymbolSettingDlg(LibraryFiles& library) : TableSettingPage{library, kSymbols} {}

LineSettingDlg::LineSettingDlg(LibraryFiles& library) : TableSettingPage{library, kSectionFcodes} {}

LineSettingDlg1::LineSettingDlg1(LibraryFiles& library) : TableSettingPage{library, kPlanFcodes} {}
