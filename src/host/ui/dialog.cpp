#include "host/ui/dialog.h"

#include "host/app/session.h"
#include "host/ui/dialog_units.h"
#include "host/ui/tab_ctrl.h"

#include <algorithm>

namespace
{

FrontEnd& frontEnd()
{
    return host::Session::current().frontEnd();
}

std::unique_ptr<CWnd> makeControl(CWnd* parent, const ControlTemplate& control)
{
    switch (control.kind)
    {
    case ControlKind::kDefaultButton:
        return std::make_unique<CButton>(parent, control.id, ButtonStyle::kDefaultPush);
    case ControlKind::kButton:
        return std::make_unique<CButton>(parent, control.id, ButtonStyle::kPush);
    case ControlKind::kCheckBox:
        return std::make_unique<CButton>(parent, control.id, ButtonStyle::kCheckBox);
    case ControlKind::kGroupBox:
        return std::make_unique<CButton>(parent, control.id, ButtonStyle::kGroupBox);
    case ControlKind::kLabel:
        return std::make_unique<CStatic>(parent, control.id);
    case ControlKind::kEdit:
        return std::make_unique<CEdit>(parent, control.id);
    case ControlKind::kCheckList:
        return std::make_unique<CCheckListBox>(parent, control.id);
    case ControlKind::kDropDownList:
        return std::make_unique<CComboBox>(parent, control.id);
    case ControlKind::kGrid:
        return std::make_unique<CGridCtrl>(parent, control.id);
    case ControlKind::kTabControl:
        return std::make_unique<CTabCtrlSSL>(parent, control.id);
    }
    throw std::logic_error("a template asks for a control of no kind");
}

} // namespace

CDialog::CDialog(const DialogTemplate& dialogTemplate, CWnd* parent) : CWnd{parent}, m_template{dialogTemplate}
{
    const int dpi = frontEnd().displayDpi();
    const CFont font{std::u16string{m_template.fontFace}, fontHeight(m_template.fontSize, dpi)};
    const CSize size = dialogUnitsToPixels(m_template.width, m_template.height, dpi);
    ShowWindow(false);
    SetWindowText(std::u16string{m_template.caption});
    SetFont(font);
    MoveWindow(rectAt(0, 0, size.width, size.height));
    for (const ControlTemplate& each : m_template.controls)
    {
        CWnd& made = *m_controls.emplace_back(makeControl(this, each));
        made.SetWindowText(std::u16string{each.text});
        made.SetFont(font);
        made.MoveWindow(controlRect(each, dpi));
    }
}

CDialog::~CDialog()
{
    DestroyWindow();
}

CWnd* CDialog::GetDlgItem(int id) const
{
    const auto found = std::find_if(m_controls.begin(), m_controls.end(),
                                    [id](const auto& child) { return child->GetDlgCtrlID() == id; });
    return found == m_controls.end() ? nullptr : found->get();
}

CTabCtrlSSL* CDialog::tabControl() const
{
    for (const auto& child : m_controls)
    {
        if (auto* tab = dynamic_cast<CTabCtrlSSL*>(child.get()))
            return tab;
    }
    return nullptr;
}

int CDialog::DoModal()
{
    open(true);
    if (m_open)
        frontEnd().runModal(*this);
    if (m_open)
        OnCancel();
    if (m_open)
        EndDialog(IDCANCEL);
    return m_result;
}

void CDialog::Create()
{
    open(false);
    if (m_open)
        frontEnd().shown(*this);
}

void CDialog::open(bool modal)
{
    m_open = true;
    m_modal = modal;
    m_result = IDCANCEL;
    ShowWindow(true);
    OnInitDialog();
}

void CDialog::EndDialog(int result)
{
    if (!m_open)
        return;
    m_result = result;
    DestroyWindow();
}

void CDialog::DestroyWindow()
{
    if (!m_open)
        return;
    m_open = false;
    ShowWindow(false);
    if (isModeless() && host::Session::hasCurrent())
        frontEnd().gone(*this);
}

void CDialog::sized()
{
    if (m_open)
        OnSize(clientSize().width, clientSize().height);
}

void CDialog::notify(int id, Notification what)
{
    for (const MessageEntry& entry : m_messages)
    {
        if (entry.id == id && entry.what == what)
            return entry.handler();
    }
    if (what == Notification::kClicked && id == IDOK)
        OnOK();
    else if (what == Notification::kClicked && id == IDCANCEL)
        OnCancel();
}

void CDialog::notify(int id, const GridClick& click)
{
    for (const GridClickEntry& entry : m_gridClicks)
    {
        if (entry.id == id)
            return entry.handler(click);
    }
}
