#pragma once

#include "host/ui/dialog.h"
#include "sections/records.h"

#include <functional>
#include <memory>

/// Draws features onto the cross-sections: the user chooses an alignment and ticks sections of it, then draws, erases
/// or opens the settings. Modeless: it stays open beside the drawing, and shows what the last scan found for as long as
/// it is open. Works on `g_DatabaseCS`; takes the document lock for whatever changes the drawing. Alignments count only
/// while their drawing is the current one.
class VeloxaDlg : public CDialog
{
public:
    explicit VeloxaDlg(CWnd* parent);

    std::string_view className() const override { return "VeloxaDlg"; }

protected:
    void OnInitDialog() override;
    void OnOK() override;
    bool PreTranslateMessage(const UserMessage& message) override;

private:
    void OnAlignmentChanged();
    void OnSelectAll();
    void OnDeselect();
    void OnDraw();
    void OnUndo();
    void OnSettings();

    void FillAlignments();
    void FillSectionList(const ItemReferenceLine* alignment);
    void SelectSections(bool all);
    void ActOnAlignment(const std::function<bool(ItemReferenceLine&)>& act);
    std::vector<size_t> TickedSections() const;
    void StoreChoices();

    CComboBox& m_comboAlignment;
    CButton& m_btnSettings;
    CButton& m_btnDeselect;
    CButton& m_btnSelectAll;
    CCheckListBox& m_listSections;
    std::vector<size_t> m_arrSectionIndex; ///< by row: the position of its section in the alignment
};

/// The one dialog; null while there is none. A new run of the command puts another in its place.
extern std::unique_ptr<VeloxaDlg> g_pVeloxaDlg;
