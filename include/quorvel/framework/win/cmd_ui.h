// CCmdUI: the argument of ON_UPDATE_COMMAND_UI handlers, which set the state of a command's menu
// item or button with it. Windows only. Use it on the window's thread, within the call.
#pragma once

#include <quorvel/framework/wnd.h>

// OnCmdMsg gets this notification code; `extra` is then the CCmdUI.
inline constexpr int CN_UPDATE_COMMAND_UI = -1;

// A member does nothing where it makes no sense: a push button has no check mark.
class QUORVEL_API CCmdUI {
public:
    CCmdUI() = default;
    virtual ~CCmdUI();

    virtual void Enable(BOOL on = TRUE);     // a disabled control passes the focus on
    virtual void SetCheck(int check = 1);    // 0, 1, and for a button 2: indeterminate
    virtual void SetRadio(BOOL on = TRUE);   // a menu item then has a radio mark, not a check mark
    virtual void SetText(const WCHAR* text); // no change when the text is the same

    // Leaves the command to other handlers.
    void ContinueRouting() { m_bContinueRouting = TRUE; }

    // Calls the target's handler. Returns FALSE when it has no handler; with `disableIfNoHandler`
    // the item is then disabled, unless the target has a handler for the command itself.
    BOOL DoUpdate(CWnd* target, BOOL disableIfNoHandler);

    UINT m_nID = 0;                  // the command
    UINT m_nIndex = 0;               // the menu item's position
    UINT m_nIndexMax = 0;            // the count of the menu's items
    CMenu* m_pMenu = nullptr;        // the item's menu; null for a control
    CWnd* m_pOther = nullptr;        // the control
    BOOL m_bContinueRouting = FALSE; // set by ContinueRouting
};
