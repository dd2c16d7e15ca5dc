#include <quorvel/framework/win/cmd_ui.h>

#include <quorvel/framework/win/menu.h>

namespace {

// Whether the control is a push button, which has no state.
bool IsPushButton(const CWnd& control) {
    const LRESULT code = control.SendMessage(WM_GETDLGCODE);
    return (code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

bool HoldsCheck(const CWnd& control) {
    return (control.SendMessage(WM_GETDLGCODE) & DLGC_BUTTON) != 0 && !IsPushButton(control);
}

} // namespace

CCmdUI::~CCmdUI() = default;

void CCmdUI::Enable(BOOL on) {
    if (m_pMenu != nullptr) {
        m_pMenu->EnableMenuItem(m_nIndex,
                                static_cast<UINT>(MF_BYPOSITION | (on ? MF_ENABLED : MF_GRAYED)));
    } else if (m_pOther != nullptr && m_pOther->IsWindowEnabled() != on) {
        // A disabled window with the focus would make the dialog unusable with the keyboard.
        if (!on && ::GetFocus() == m_pOther->m_hWnd)
            ::SendMessageW(::GetParent(m_pOther->m_hWnd), WM_NEXTDLGCTL, 0, FALSE);
        m_pOther->EnableWindow(on);
    }
}

void CCmdUI::SetCheck(int check) {
    if (m_pMenu != nullptr)
        m_pMenu->CheckMenuItem(
            m_nIndex, static_cast<UINT>(MF_BYPOSITION | (check != 0 ? MF_CHECKED : MF_UNCHECKED)));
    else if (m_pOther != nullptr && HoldsCheck(*m_pOther))
        m_pOther->SendMessage(BM_SETCHECK, static_cast<WPARAM>(check));
}

void CCmdUI::SetRadio(BOOL on) {
    SetCheck(on ? 1 : 0);
    if (m_pMenu != nullptr && on)
        m_pMenu->CheckMenuRadioItem(m_nIndex, m_nIndex, m_nIndex, MF_BYPOSITION);
}

void CCmdUI::SetText(const WCHAR* text) {
    if (m_pMenu != nullptr) {
        MENUITEMINFOW info = {};
        info.cbSize = sizeof info;
        info.fMask = MIIM_STRING; // keeps the item's state and sub-menu
        info.dwTypeData = const_cast<LPWSTR>(text);
        m_pMenu->SetMenuItemInfo(m_nIndex, &info, TRUE);
    } else if (m_pOther != nullptr) {
        CString former;
        m_pOther->GetWindowText(former);
        if (former != text) // setting the same text would flicker
            m_pOther->SetWindowText(text);
    }
}

BOOL CCmdUI::DoUpdate(CWnd* target, BOOL disableIfNoHandler) {
    if (m_nID == 0 || LOWORD(m_nID) == 0xffff) // a separator or a label
        return TRUE;
    const BOOL handled = target->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
    if (!handled && disableIfNoHandler && (m_pOther == nullptr || IsPushButton(*m_pOther))) {
        AFX_CMDHANDLERINFO info = {};
        Enable(target->OnCmdMsg(m_nID, CN_COMMAND, nullptr, &info));
    }
    return handled;
}
