#pragma once

#include "host/ui/tab_ctrl.h"
#include "resources/control_ids.h"
#include "sections/name_set.h"
#include "settings/library_lines.h"

#include <string>
#include <vector>

struct DatabaseCS;

/// Whoever the table pages belong to: library files always carry all tables.
class LibraryFiles
{
public:
    virtual void SaveLibraryFile() = 0;
    virtual void OpenLibraryFile() = 0;

protected:
    ~LibraryFiles() = default;
};

/// What the table pages differ in.
struct TablePageKind
{
    std::string_view className;
    int dialogTemplate;
    int groupBox;
    unsigned keyHeader; ///< string-table id of the first column's header
    bool disabledWithoutRows;
    std::u16string DatabaseCS::*lastFile; ///< remembers the file picked last
    void (*collect)(NameSet& rows, const CrossSectionXdata& section);
    void (*apply)(const NameSet& rows, CrossSectionXdata& section);
};

/// A page with one row for each name or feature code of the chosen cross-sections: its symbol drawing, scales and
/// rotation. Filled from the records; what the user changes reaches them when the page is applied. What is no number
/// counts as 0 then; whether a file exists is not looked at.
class TableSettingPage : public CTabPageSSL
{
public:
    TableSettingPage(LibraryFiles& library, const TablePageKind& kind);

    std::string_view className() const override { return m_kind.className; }

    /// Whose rows the page shows: the alignments of that name, and the positions in them. Set before the page is made.
    std::u16string m_strAlignmentName;
    std::vector<size_t> m_arrSectionIndices;

    /// Builds the rows from the records; what was typed since is lost.
    void FillTable();
    /// Writes the table into the records of the chosen sections.
    void ApplySettings();
    /// The lines of the rows that have a file.
    TextLines CollectTableRows() const;
    /// Gives each row whose key is in `lines` the values that it has there.
    void LoadTableRows(const TextLines& lines);
    /// Fits the page into a settings dialog of that client size, in pixels.
    void LayOutPage(int width, int height);

protected:
    void OnInitDialog() override;
    void OnEnterTab() override;

private:
    template <class Action>
    void ForEachChosenSection(Action action) const;
    void ShowEmptyTable(int rowCount);
    void ShowRows();
    RowTexts RowAt(int row) const;

    void OnSaveFile() { m_library.SaveLibraryFile(); }
    void OnOpenFile() { m_library.OpenLibraryFile(); }
    void ClearTable();
    void PickBlockFile(const GridClick& click);

    LibraryFiles& m_library;
    const TablePageKind& m_kind;
    CGridCtrl& m_grid = control<CGridCtrl>(control_ids::table::kGrid);
    CButton& m_btnSave = control<CButton>(control_ids::table::kSaveFile);
    CButton& m_btnOpen = control<CButton>(control_ids::table::kOpenFile);
    CButton& m_btnClear = control<CButton>(control_ids::table::kClear);
    CButton& m_group = control<CButton>(m_kind.groupBox);
    NameSet m_setRows;
};
