#pragma once

#include "host/ui/tab_ctrl.h"
#include "resources/control_ids.h"
#include "settings/library_lines.h"

#include <vector>

/// The page of the search distances, the label texts, and what is drawn on which layer in which colour. It shows the
/// shared settings; what the user changes reaches them when the page is applied, and what is no number counts as 0
/// then.
class GeneralSettingDlg : public CTabPageSSL
{
public:
    GeneralSettingDlg();

    std::string_view className() const override { return "GeneralSettingDlg"; }

    /// Writes the page into the shared settings. Changed search distances rebuild the rows of all sections.
    void ApplySettings();
    /// Shows the stored drawing options, and forgets that a distance was changed.
    void FillOptionGrid();
    /// The line that a drawing keeps of the page: four numbers as they are typed, or what stands for an empty one.
    TextLines CollectGeneralLine() const;
    /// Shows the numbers of the first line if it holds exactly four.
    void LoadGeneralLine(const TextLines& lines);
    /// Fits the page into a settings dialog of that client size, in pixels.
    void LayOutPage(int width, int height);

protected:
    void OnInitDialog() override;
    void OnLeaveTab() override { ApplySettings(); }

private:
    void AnchorTextControls();
    void BuildOptionGrid();
    void BuildOptionRow(int row, const std::vector<std::u16string>& layers);
    void ShowNumbers();
    void FillTextStyles();
    void ApplyDistances();
    void ApplyOptions();

    CEdit& m_editForward = control<CEdit>(control_ids::general::kForward);
    CEdit& m_editBackward = control<CEdit>(control_ids::general::kBackward);
    CEdit& m_editTextHeight = control<CEdit>(control_ids::general::kTextHeight);
    CEdit& m_editDeltaY = control<CEdit>(control_ids::general::kDeltaY);
    CComboBox& m_comboTextStyle = control<CComboBox>(control_ids::general::kTextStyle);
    CButton& m_groupSearch = control<CButton>(control_ids::general::kSearchGroup);
    CButton& m_groupText = control<CButton>(kNoControlId);
    CButton& m_groupOptions = control<CButton>(control_ids::general::kOptionsGroup);
    CGridCtrl& m_grid = control<CGridCtrl>(control_ids::general::kOptions);

    /// A control of the text parameters, and how far it begins from the right end of the search zone.
    struct Anchored
    {
        CWnd* control;
        int fromEnd;
    };
    std::vector<Anchored> m_textControls;
};
