#pragma once

#include "host/db/object_id.h"
#include "resources/control_ids.h"
#include "settings/general_page.h"
#include "settings/table_pages.h"

#include <string>
#include <utility>
#include <vector>

/// The settings of the drawing on cross-sections: a modal dialog for one alignment and some of its sections, with the
/// tables and the general settings as tab pages. It decides when the pages are applied and what is stored where; it
/// lives for one run. The opener sets the alignment and the sections before.
class MainConfigDlg : public CDialog, private LibraryFiles
{
public:
    MainConfigDlg();

    std::string_view className() const override { return "MainConfigDlg"; }
    CSize minimumSize() const override { return {630, 303}; }

    std::u16string m_strAlignmentName;
    AcDbObjectId m_idAlignmentObject; ///< null: nothing is kept in the drawing
    /// Positions of the chosen sections in the alignment.
    std::vector<size_t> m_arrSectionIndices;

protected:
    void OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    void OnSize(int width, int height) override;

private:
    void SaveLibraryFile() override;
    void OpenLibraryFile() override;
    void LoadDrawingSettings();
    void SaveDrawingSettings();
    void ApplyPages();
    LibraryLines CollectTables() const;
    void LoadTables(const LibraryLines& lines);
    void OnHelp() {}

    CButton& m_btnOk = control<CButton>(IDOK);
    CButton& m_btnCancel = control<CButton>(IDCANCEL);
    CButton& m_btnHelp = control<CButton>(control_ids::settings::kHelp);
    CTabCtrlSSL& m_tab = control<CTabCtrlSSL>(control_ids::settings::kPages);

    SymbolSettingDlg m_symbolPage{*this};
    LineSettingDlg m_sectionFcodePage{*this};
    LineSettingDlg1 m_planFcodePage{*this};
    GeneralSettingDlg m_generalPage;
    std::array<TableSettingPage*, kLibraryTableCount> m_tables{&m_symbolPage, &m_sectionFcodePage, &m_planFcodePage};
};
