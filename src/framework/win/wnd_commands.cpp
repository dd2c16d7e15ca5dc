// Commands, notifications of controls, and the display of command states.
#include <quorvel/framework/win/cmd_ui.h>
#include <quorvel/framework/win/data_exchange.h>
#include <quorvel/framework/win/menu.h>
#include <quorvel/framework/win/message_map.h>

#include "framework/handler_exception.h"
#include "framework/win/child_windows.h"

#include <utility>

namespace {

// This window gets no notifications from its controls, but reflects them to these controls.
constinit thread_local HWND t_lockedOut = nullptr;

// Tests whether a command's update handler would disable it.
class EnabledTest : public CCmdUI {
public:
    void Enable(BOOL on) override { m_enabled = on; }
    BOOL m_enabled = TRUE;
};

template <class Record>
HWND ItemOf(LPARAM lParam) {
    const Record& record = *reinterpret_cast<const Record*>(lParam);
    return record.CtlType != ODT_MENU ? record.hwndItem : nullptr;
}

// The control that the message to its parent concerns; null for other messages.
HWND ControlOf(HWND parent, UINT message, LPARAM lParam) {
    switch (message) {
    case WM_NOTIFY:
        return reinterpret_cast<const NMHDR*>(lParam)->hwndFrom;
    case WM_DRAWITEM:
        return ItemOf<DRAWITEMSTRUCT>(lParam);
    case WM_DELETEITEM:
        return ItemOf<DELETEITEMSTRUCT>(lParam);
    case WM_COMPAREITEM:
        return ItemOf<COMPAREITEMSTRUCT>(lParam);
    case WM_MEASUREITEM: {
        const MEASUREITEMSTRUCT& item = *reinterpret_cast<const MEASUREITEMSTRUCT*>(lParam);
        return item.CtlType != ODT_MENU ? ::GetDlgItem(parent, static_cast<int>(item.CtlID))
                                        : nullptr;
    }
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_VSCROLL:
        return reinterpret_cast<HWND>(lParam);
    default:
        return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC
                   ? reinterpret_cast<HWND>(lParam)
                   : nullptr;
    }
}

} // namespace

BOOL CWnd::ReflectToControl(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    CWnd* const control = FromHandlePermanent(ControlOf(m_hWnd, message, lParam));
    return control != nullptr && control != this &&
           control->OnChildNotify(message, wParam, lParam, result);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    UINT code = 0;
    if (message == WM_COMMAND)
        code = HIWORD(wParam);
    else if (message == WM_NOTIFY)
        code = reinterpret_cast<const NMHDR*>(lParam)->code;
    const AFX_MSGMAP_ENTRY* const entry = FindEntry(quorvel::kReflected + message, code, 0);
    if (entry == nullptr)
        return FALSE;
    if (message == WM_NOTIFY) {
        *result = 0;
        const AFX_NOTIFY notify = {result, reinterpret_cast<NMHDR*>(lParam)};
        return entry->pfn(this, wParam, reinterpret_cast<LPARAM>(&notify)) != 0;
    }
    *result = entry->pfn(this, wParam, lParam);
    const bool isAnswer =
        message == WM_COMMAND || (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC);
    return !isAnswer || *result != 0;
}

BOOL CWnd::IsEndOfCommand(WPARAM wParam, LPARAM lParam) {
    if (lParam == 0) { // a menu item or accelerator, which may be disabled
        EnabledTest test;
        test.m_nID = LOWORD(wParam);
        test.DoUpdate(this, FALSE);
        return !test.m_enabled;
    }
    LRESULT result = 0;
    return ReflectToControl(WM_COMMAND, wParam, lParam, &result) || t_lockedOut == m_hWnd;
}

BOOL CWnd::IsEndOfNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    return ReflectToControl(WM_NOTIFY, wParam, lParam, result) || t_lockedOut == m_hWnd;
}

void CWnd::UpdateDialogControls(CWnd* target, BOOL disableIfNoHandler) {
    for (const HWND child : quorvel::ChildWindows(m_hWnd)) {
        if (!::IsWindow(child))
            continue;
        CCmdUI ui;
        ui.m_nID = static_cast<UINT>(LOWORD(::GetDlgCtrlID(child)));
        ui.m_pOther = FromHandle(child);
        ui.DoUpdate(target, disableIfNoHandler);
    }
}

void CWnd::OnInitMenuPopup(CMenu* menu, UINT, BOOL systemMenu) {
    CCmdUI ui;
    ui.m_pMenu = menu;
    // Reads the count again each time, because a handler may insert items.
    for (int i = 0; !systemMenu && i < menu->GetMenuItemCount(); ++i) {
        ui.m_nIndex = static_cast<UINT>(i);
        ui.m_nIndexMax = static_cast<UINT>(menu->GetMenuItemCount());
        ui.m_nID = menu->GetMenuItemID(i);
        if (ui.m_nID != static_cast<UINT>(-1)) // a sub-menu gets its own message
            ui.DoUpdate(this, FALSE);
    }
    Default();
}

void CWnd::DoDataExchange(CDataExchange*) {}

BOOL CWnd::UpdateData(BOOL saveAndValidate) {
    struct LockOut {
        explicit LockOut(HWND window) : m_outer(std::exchange(t_lockedOut, window)) {}
        ~LockOut() { t_lockedOut = m_outer; }
        const HWND m_outer;
    };
    CDataExchange exchange(this, saveAndValidate);
    try {
        const LockOut lock(m_hWnd);
        DoDataExchange(&exchange);
        return TRUE;
    } catch (...) { // for CUserException the user was already notified
        quorvel::EndHandlerException({});
        return FALSE;
    }
}
