#include "host/ui/grid_cell.h"

#include "host/app/session.h"
#include "host/ui/color_names.h"
#include "host/ui/grid_ctrl.h"
#include "store/text/text.h"

#include <algorithm>

namespace
{

constexpr int kPlainColor = 7;

} // namespace

void CGridCell::SetText(std::u16string text)
{
    m_text = std::move(text);
    changed();
}

void CGridCell::SetBackColor(CellColor color)
{
    m_background = color;
    changed();
}

void CGridCell::SetFormat(unsigned format)
{
    m_format = format;
    changed();
}

void CGridCell::SetReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    changed();
}

void CGridCell::changed()
{
    if (m_grid != nullptr)
        m_grid->cellChanged();
}

void CGridCell::takeLook(const CGridCell& other)
{
    m_text = other.m_text;
    m_background = other.m_background;
    m_format = other.m_format;
}

void CGridCellCheck::SetCheck(bool checked)
{
    m_checked = checked;
    changed();
}

void CGridCellCombo::SetOptions(std::vector<std::u16string> items)
{
    m_items = std::move(items);
    changed();
}

CGridCellComboColor::CGridCellComboColor()
{
    SetOptions(offeredColorNames());
}

void CGridCellComboColor::enter(const std::u16string& text)
{
    if (text == kOtherColors)
    {
        const int current = colorOfName(GetText()).value_or(kPlainColor);
        if (const auto chosen = host::Session::current().frontEnd().askColor(current))
            join(numberedColorName(*chosen));
        return;
    }
    const auto same = [&text](const std::u16string& item) { return equalNoCase(item, text); };
    const auto found = std::find_if(items().begin(), items().end(), same);
    SetText(found == items().end() ? text : *found);
}

void CGridCellComboColor::join(const std::u16string& name)
{
    std::vector<std::u16string> offered = items();
    if (std::find(offered.begin(), offered.end(), name) == offered.end())
        offered.insert(offered.end() - 1, name);
    SetOptions(std::move(offered));
    SetText(name);
}

void CGridBtnCell::SetupButton(std::u16string text, int width)
{
    m_buttonText = std::move(text);
    m_buttonWidth = width;
    changed();
}
