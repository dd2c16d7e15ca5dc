// CCmdUI: what an ON_UPDATE_COMMAND_UI handler is given to say how a command's menu item or button
// is shown. Windows only; it is used on the window's thread, within the call.
#pragma once

#include <quorvel/framework/wnd.h>

// The notification code that OnCmdMsg is called with; `extra` is then the CCmdUI.
inline constexpr int CN_UPDATE_COMMAND_UI = -1;

// Each member does nothing where it has no meaning: a push button shows no check mark.
class QUORVEL_API CCmdUI {
public:
    CCmdUI() = default;
    virtual ~CCmdUI();

    virtual void Enable(BOOL on = TRUE);  // a disabled control passes the focus on
    virtual void SetCheck(int check = 1); // 0, 1, and for a button 2: indeterminate
    virtual void SetRadio(BOOL on = TRUE);
    virtual void SetText(const WCHAR* text);

    // The handler leaves the command to other handlers.
    void ContinueRouting() { m_bContinueRouting = TRUE; }

    // Calls the target's handler; FALSE when there is none. With `disableIfNoHandler` the item is
    // then disabled unless the target has a handler of the command itself.
    BOOL DoUpdate(CWnd* target, BOOL disableIfNoHandler);

    UINT m_nID = 0;
    UINT m_nIndex = 0;        // the menu item's position
    UINT m_nIndexMax = 0;     // the count of the menu's items
    CMenu* m_pMenu = nullptr; // of a menu item; null for a control
    CWnd* m_pOther = nullptr; // the control
    BOOL m_bContinueRouting = FALSE;
};
