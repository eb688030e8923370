#pragma once

#include "host/ui/dialog.h"
#include "plan/feature_table.h"

#include <string>
#include <vector>

/// The table of the plan's feature codes: for each code of the drawing, what symbol it gets and how. Modal. The caller
/// fills `codes` and runs it; after OK the other lists hold an element for each code (none when there are no codes).
/// The table starts as the user left it last, and what OK confirms is kept for the next time.
class DlgDrawFCode : public CDialog
{
public:
    DlgDrawFCode();

    std::string_view className() const override { return "DlgDrawFCode"; }

    std::vector<std::u16string> codes;
    std::vector<std::u16string> files; ///< of symbol drawings; may be empty
    std::vector<double> scaleX;
    std::vector<double> scaleY;
    std::vector<double> rotation; ///< radians
    std::vector<int> atVertex;    ///< 1: only where a point is a vertex of a survey polyline

    /// After OK: what a code, by its place in the list, is shown with.
    SymbolLook lookOf(size_t code) const { return {files[code], scaleX[code], scaleY[code], rotation[code]}; }

protected:
    void OnInitDialog() override;
    void OnOK() override;

private:
    void OnGridClicked(const GridClick& click);
    void OnClear();
    void OnOpenFile();
    void OnSaveFile();

    void MakeGrid();
    void MakeDataRow(int row);
    void ShowRow(int row, const FeatureRow& values);
    FeatureRow ShownRow(int row);
    void TakeResults(const FeatureRow& row);

    CGridCtrl& m_grid;
};
