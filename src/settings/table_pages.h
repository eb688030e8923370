#pragma once

#include "settings/table_page.h"

/// The pages of the three tables.

/// Symbols by name: both symbol lists of each section.
class SymbolSettingDlg : public TableSettingPage
{
public:
    explicit SymbolSettingDlg(LibraryFiles& library);
};

/// Feature codes drawn on the cross-sections.
class LineSettingDlg : public TableSettingPage
{
public:
    explicit LineSettingDlg(LibraryFiles& library);
};

/// Feature codes drawn on the plan.
class LineSettingDlg1 : public TableSettingPage
{
public:
    explicit LineSettingDlg1(LibraryFiles& library);
};
