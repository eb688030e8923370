#include "settings/main_config_dlg.h"

#include "host/app/front_end.h"
#include "host/ui/host_window.h"
#include "resources/dialog_templates.h"
#include "resources/string_table.h"
#include "sections/database_cs.h"
#include "settings/drawing_settings.h"
#include "util/dialog_help.h"
#include "util/tcvn3.h"
#include "util/text_lines.h"

namespace
{

constexpr std::array<unsigned, kLibraryTableCount> kTableTitles{1, 2, 19};
constexpr unsigned kGeneralTitle = 3;
constexpr int kButtonMargin = 10;
constexpr size_t kLongestTitle = 63;

} // namespace

MainConfigDlg::MainConfigDlg() : CDialog{*FindDialogTemplate(kSettingsDialog), adsw_acadMainWnd()}
{
    onMessage(control_ids::settings::kHelp, Notification::kClicked, &MainConfigDlg::OnHelp);
}

void MainConfigDlg::OnInitDialog()
{
    ConvertControlCaptions(*this);
    SetWindowText(DecodeStoredText(GetWindowText(), kLongestTitle));
    ApplyDialogFont(*this);
    for (size_t table = 0; table < kLibraryTableCount; ++table)
    {
        TableSettingPage& page = *m_tables[table];
        page.m_strAlignmentName = m_strAlignmentName;
        page.m_arrSectionIndices = m_arrSectionIndices;
        page.CreatePage(m_tab);
        m_tab.AddPage(LoadText(kTableTitles[table]), page);
    }
    m_generalPage.CreatePage(m_tab);
    m_tab.AddPage(LoadText(kGeneralTitle), m_generalPage);
    m_tab.SetCurSel(0);
    LoadDrawingSettings();
}

void MainConfigDlg::OnOK()
{
    ApplyPages();
    g_DatabaseCS.SaveSettings();
    SaveDrawingSettings();
    EndDialog(IDOK);
}

void MainConfigDlg::OnCancel()
{
    SaveDrawingSettings();
    EndDialog(IDCANCEL);
}

void MainConfigDlg::ApplyPages()
{
    m_generalPage.ApplySettings();
    for (TableSettingPage* page : m_tables)
        page->ApplySettings();
}

LibraryLines MainConfigDlg::CollectTables() const
{
    LibraryLines lines;
    for (size_t table = 0; table < kLibraryTableCount; ++table)
        lines.tables[table] = m_tables[table]->CollectTableRows();
    return lines;
}

void MainConfigDlg::LoadTables(const LibraryLines& lines)
{
    for (size_t table = 0; table < kLibraryTableCount; ++table)
        m_tables[table]->LoadTableRows(lines.tables[table]);
}

void MainConfigDlg::SaveLibraryFile()
{
    FileQuestion question;
    question.saving = true;
    question.defaultExtension = u"dv";
    question.filter = u"File dia vat (*.dv)|*.dv|";
    if (const auto path = askFile(question))
        WriteTextLines(*path, JoinSections(CollectTables()));
}

void MainConfigDlg::OpenLibraryFile()
{
    FileQuestion question;
    question.namesSymbols = true;
    question.defaultExtension = u"dv";
    question.filter = u"File dia vat (*.dv)|*.dv||";
    if (const auto path = askFile(question))
        LoadTables(SplitSections(ReadTextLines(*path), GeneralSection::kNone));
}

/// What the drawing keeps takes effect at once, even if the user cancels.
void MainConfigDlg::LoadDrawingSettings()
{
    const TextLines kept = ReadDrawingSettings(m_idAlignmentObject);
    if (kept.empty())
        return;
    const LibraryLines lines = SplitSections(kept, GeneralSection::kLast);
    LoadTables(lines);
    m_generalPage.LoadGeneralLine(lines.general);
    ApplyPages();
}

void MainConfigDlg::SaveDrawingSettings()
{
    LibraryLines lines = CollectTables();
    lines.general = m_generalPage.CollectGeneralLine();
    WriteDrawingSettings(m_idAlignmentObject, JoinSections(lines));
}

void MainConfigDlg::OnSize(int width, int height)
{
    m_tab.MoveWindow({7, 7, width - 10, height - 40});
    int right = width - kButtonMargin;
    for (CButton* button : {&m_btnHelp, &m_btnCancel, &m_btnOk})
    {
        const CSize size = button->clientSize();
        button->MoveWindow(rectAt(right - size.width, height - kButtonMargin - size.height, size.width, size.height));
        right -= size.width + kButtonMargin;
    }
    for (TableSettingPage* page : m_tables)
        page->LayOutPage(width, height);
    m_generalPage.LayOutPage(width, height);
}
