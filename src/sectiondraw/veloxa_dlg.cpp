#include "sectiondraw/veloxa_dlg.h"

#include "dbkit/symbol_tables.h"
#include "host/db/host_services.h"
#include "host/text.h"
#include "host/ui/host_window.h"
#include "resources/control_ids.h"
#include "resources/dialog_templates.h"
#include "resources/string_table.h"
#include "sectiondraw/alignment_drawing.h"
#include "sectiondraw/draw_style.h"
#include "sectiondraw/largest_scales.h"
#include "sectiondraw/main_window.h"
#include "sections/database_cs.h"
#include "sections/ownership.h"
#include "settings/main_config_dlg.h"
#include "util/dialog_help.h"
#include "util/document_lock.h"
#include "util/tcvn3.h"

namespace
{

using namespace control_ids::sections;

constexpr size_t kLongestTitle = 64;
constexpr unsigned kChooseAlignment = 16;
constexpr const char16_t* kZoomExtents = u"Zoom e\n";
constexpr int kAllTicked = 0;
constexpr int kNoneTicked = 1;

/// The style of the labels; the one that the settings keep may be none, or another drawing's.
AcDbObjectId labelStyle(AcDbObjectId kept)
{
    const bool usable = !kept.isNull() && kept.database() == acdbHostApplicationServices()->workingDatabase();
    return usable ? kept : GetTextStyleId(kLabelTextStyle);
}

/// The alignments of the current drawing among those that were scanned.
std::vector<ItemReferenceLine*> currentAlignments()
{
    std::vector<ItemReferenceLine*> current;
    for (ItemReferenceLine& line : g_DatabaseCS.m_listReferenceLines)
        if (BelongsToDrawing(line))
            current.push_back(&line);
    return current;
}

ItemReferenceLine* findAlignment(const std::u16string& name)
{
    for (ItemReferenceLine* line : currentAlignments())
        if (equalNoCase(line->m_strName, name))
            return line;
    return nullptr;
}

} // namespace

std::unique_ptr<VeloxaDlg> g_pVeloxaDlg;

VeloxaDlg::VeloxaDlg(CWnd* parent)
    : CDialog(*FindDialogTemplate(kSectionsDialog), parent), m_comboAlignment(control<CComboBox>(kAlignments)),
      m_btnSettings(control<CButton>(kSettings)), m_btnDeselect(control<CButton>(kDeselect)),
      m_btnSelectAll(control<CButton>(kSelectAll)), m_listSections(control<CCheckListBox>(kSections))
{
    onMessage(kAlignments, Notification::kSelectionChanged, &VeloxaDlg::OnAlignmentChanged);
    onMessage(kSelectAll, Notification::kClicked, &VeloxaDlg::OnSelectAll);
    onMessage(kDeselect, Notification::kClicked, &VeloxaDlg::OnDeselect);
    onMessage(kDraw, Notification::kClicked, &VeloxaDlg::OnDraw);
    onMessage(kUndo, Notification::kClicked, &VeloxaDlg::OnUndo);
    onMessage(kSettings, Notification::kClicked, &VeloxaDlg::OnSettings);
}

void VeloxaDlg::OnInitDialog()
{
    ApplyDialogFont(*this);
    ConvertControlCaptions(*this);
    SetWindowText(DecodeStoredText(GetWindowText(), kLongestTitle));
    FillAlignments();
    const bool allTicked = g_DatabaseCS.m_nCheckSelect == kAllTicked;
    m_btnSelectAll.SetCheck(allTicked);
    m_btnDeselect.SetCheck(!allTicked);
}

void VeloxaDlg::FillAlignments()
{
    const std::vector<ItemReferenceLine*> alignments = currentAlignments();
    size_t chosen = 0;
    for (size_t i = 0; i < alignments.size(); ++i)
    {
        m_comboAlignment.AddString(alignments[i]->m_strName);
        if (equalNoCase(alignments[i]->m_strName, g_DatabaseCS.m_strAlignment))
            chosen = i;
    }
    if (alignments.empty())
        return;
    m_comboAlignment.SetCurSel(static_cast<int>(chosen));
    FillSectionList(alignments[chosen]);
}

void VeloxaDlg::FillSectionList(const ItemReferenceLine* alignment)
{
    m_listSections.ResetContent();
    m_arrSectionIndex.clear();
    if (alignment == nullptr)
        return;
    for (const CrossSectionXdata& section : alignment->m_listCrossSections)
    {
        const int row = m_listSections.AddString(section.m_strName);
        m_listSections.SetCheck(row, g_DatabaseCS.m_nCheckSelect == kAllTicked);
        m_arrSectionIndex.push_back(m_arrSectionIndex.size());
    }
}

void VeloxaDlg::OnAlignmentChanged()
{
    const std::u16string name = m_comboAlignment.GetWindowText();
    if (name.empty())
        return;
    g_DatabaseCS.m_nCheckSelect = m_btnSelectAll.GetCheck() ? kAllTicked : kNoneTicked;
    FillSectionList(findAlignment(name));
}

void VeloxaDlg::OnSelectAll()
{
    SelectSections(m_btnSelectAll.GetCheck());
}

void VeloxaDlg::OnDeselect()
{
    SelectSections(!m_btnDeselect.GetCheck());
}

void VeloxaDlg::SelectSections(bool all)
{
    m_btnSelectAll.SetCheck(all);
    m_btnDeselect.SetCheck(!all);
    for (int row = 0; row < m_listSections.GetCount(); ++row)
        m_listSections.SetCheck(row, all);
    g_DatabaseCS.m_nCheckSelect = all ? kAllTicked : kNoneTicked;
    g_DatabaseCS.SaveSettings();
    FocusMainWindow();
}

std::vector<size_t> VeloxaDlg::TickedSections() const
{
    std::vector<size_t> positions;
    for (int row = 0; row < m_listSections.GetCount(); ++row)
        if (m_listSections.GetCheck(row))
            positions.push_back(m_arrSectionIndex[static_cast<size_t>(row)]);
    return positions;
}

void VeloxaDlg::ActOnAlignment(const std::function<bool(ItemReferenceLine&)>& act)
{
    const std::u16string name = m_comboAlignment.GetWindowText();
    if (m_listSections.GetCount() == 0 || name.empty())
        return;
    const OpenForWrite lock;
    ItemReferenceLine* alignment = findAlignment(name);
    if (alignment == nullptr || act(*alignment))
        FocusMainWindow();
}

void VeloxaDlg::OnDraw()
{
    ActOnAlignment(
        [this](ItemReferenceLine& alignment)
        {
            g_DatabaseCS.m_idTextStyle = labelStyle(g_DatabaseCS.m_idTextStyle);
            return DrawSections(alignment, TickedSections(), MakeDrawStyle(g_DatabaseCS));
        });
}

void VeloxaDlg::OnUndo()
{
    ActOnAlignment(EraseSections);
}

void VeloxaDlg::OnSettings()
{
    if (m_listSections.GetCount() == 0 || m_comboAlignment.GetCurSel() < 0)
        return;
    const std::u16string name = m_comboAlignment.GetWindowText();
    if (name.empty())
        return AfxMessageBox(LoadText(kChooseAlignment));
    const ItemReferenceLine* alignment = findAlignment(name);
    g_DatabaseCS.LoadSettings();
    MainConfigDlg settings;
    settings.m_strAlignmentName = name;
    settings.m_idAlignmentObject = alignment == nullptr ? AcDbObjectId::kNull : alignment->m_idAlignment;
    settings.m_arrSectionIndices = TickedSections();
    settings.DoModal();
}

bool VeloxaDlg::PreTranslateMessage(const UserMessage& message)
{
    if (message.kind == UserMessage::kLeftButtonDown && message.target == &m_btnSettings)
    {
        SendCommandString(kZoomExtents);
        m_btnSettings.SetFocus();
    }
    return CDialog::PreTranslateMessage(message);
}

void VeloxaDlg::OnOK()
{
    if (m_listSections.GetCount() > 0)
    {
        StoreChoices();
        g_DatabaseCS.SaveSettings();
    }
    CDialog::OnOK();
}

void VeloxaDlg::StoreChoices()
{
    g_DatabaseCS.m_nCheckSelect = m_btnSelectAll.GetCheck() ? kAllTicked : kNoneTicked;
    g_DatabaseCS.m_strAlignment = m_comboAlignment.GetWindowText();
    if (g_DatabaseCS.m_strAlignment.empty())
        StorePlainScales(g_DatabaseCS);
    else
        StoreLargestScales(g_DatabaseCS);
}
