#pragma once

#include "sections/database_cs.h"
#include "settings/main_config_dlg.h"
#include "support/test_session.h"

#include <functional>
#include <string>
#include <vector>

/// A session with shared settings of its own and an alignment "T1" of three sections to be filled.
class SettingsSession : public TestSession
{
public:
    SettingsSession()
    {
        g_DatabaseCS = DatabaseCS{};
        ItemReferenceLine& line = g_DatabaseCS.m_listReferenceLines.append();
        line.m_strName = u"T1";
        for (const char16_t* name : {u"C1", u"C2", u"C3"})
            line.m_listCrossSections.append().m_strName = name;
    }
    ~SettingsSession() { g_DatabaseCS = DatabaseCS{}; }

    CrossSectionXdata& section(size_t index) { return g_DatabaseCS.m_listReferenceLines[0].m_listCrossSections[index]; }
    static BlockData& addSymbol(ListBlockData& list, const std::u16string& name, const std::u16string& file = {})
    {
        BlockData& row = list.append();
        row.m_strName = name;
        row.m_strFile = file;
        return row;
    }
    static BlockFcode& addFcode(ListBlockFcode& list, const std::u16string& code, const std::u16string& file = {})
    {
        BlockFcode& row = list.append();
        row.m_strFcode = code;
        row.m_strFile = file;
        return row;
    }

    /// Runs the settings dialog for the sections at `indices`; `play` is the user.
    int run(std::vector<size_t> indices, const std::function<void(CDialog&)>& play)
    {
        frontEnd.plays.push_back(play);
        MainConfigDlg dialog;
        dialog.m_strAlignmentName = u"t1";
        dialog.m_idAlignmentObject = alignment;
        dialog.m_arrSectionIndices = std::move(indices);
        return dialog.DoModal();
    }

    std::string settingsFile() const { return folder().read("settings/iniSymbol.cfg"); }

    AcDbObjectId alignment; ///< whose settings the drawing keeps
};

/// The shown page's grid as texts, a line a row, cells joined by "|".
inline std::vector<std::u16string> shownTable(const CDialog& dialog)
{
    std::vector<std::u16string> rows;
    for (const auto& child : dialog.tabControl()->currentPage()->controls())
    {
        const auto* grid = dynamic_cast<const CGridCtrl*>(child.get());
        for (int row = 0; grid != nullptr && row < grid->GetRowCount(); ++row)
        {
            rows.emplace_back();
            for (int column = 0; column < grid->GetColumnCount(); ++column)
                rows.back() += (column == 0 ? u"" : u"|") + grid->GetItemText(row, column);
        }
    }
    return rows;
}
