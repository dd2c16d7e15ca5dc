// Message map rows for messages that exist on Windows only. ON_MESSAGE, ON_COMMAND, ON_CONTROL,
// ON_NOTIFY, ON_WM_TIMER and ON_WM_DESTROY are in <quorvel/framework/wnd.h>.
//
// Each row requires a handler signature. A handler with other parameters does not compile: no
// function of quorvel::handlers matches. An ON_WM_... row calls the member of its name (OnSize for
// ON_WM_SIZE). CWnd has a base version of each, which calls the window's own procedure.
#pragma once

#include <quorvel/framework/win/cmd_ui.h>
#include <quorvel/framework/win/dc.h>
#include <quorvel/framework/win/menu.h>
#include <quorvel/framework/win/scroll_bar.h>
#include <quorvel/framework/wnd.h>

#include <type_traits>

namespace quorvel {

// Added to the message of a notification that is reflected to the control itself.
inline constexpr UINT kReflected = 0xbc00;

// Convert a message's two parameters to the arguments of a handler; one function for each
// signature. The member's class may be a base class of the window's.
namespace handlers {

inline CWnd* Window(WPARAM wParam) {
    return CWnd::FromHandle(reinterpret_cast<HWND>(wParam));
}
inline CWnd* Window(LPARAM lParam) {
    return CWnd::FromHandle(reinterpret_cast<HWND>(lParam));
}
inline CPoint Point(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

template <class Self, class C>
LRESULT Plain(Self* self, void (C::*member)(), WPARAM, LPARAM) {
    (self->*member)();
    return 0;
}
template <class Self, class C, class R>
LRESULT Answer(Self* self, R (C::*member)(), WPARAM, LPARAM) {
    return static_cast<LRESULT>((self->*member)());
}
template <class Self, class C>
LRESULT State(Self* self, void (C::*member)(BOOL), WPARAM wParam, LPARAM) {
    (self->*member)(wParam != 0);
    return 0;
}
template <class Self, class C>
LRESULT Shown(Self* self, void (C::*member)(BOOL, UINT), WPARAM wParam, LPARAM lParam) {
    (self->*member)(wParam != 0, static_cast<UINT>(lParam));
    return 0;
}
template <class Self, class C, class T>
LRESULT Record(Self* self, void (C::*member)(T*), WPARAM, LPARAM lParam) {
    (self->*member)(reinterpret_cast<T*>(lParam));
    return 0;
}
template <class Self, class C, class R, class T>
LRESULT RecordAnswer(Self* self, R (C::*member)(T*), WPARAM, LPARAM lParam) {
    return (self->*member)(reinterpret_cast<T*>(lParam));
}
template <class Self, class C, class R, class T>
LRESULT ItemRecord(Self* self, R (C::*member)(int, T*), WPARAM wParam, LPARAM lParam) {
    if constexpr (!std::is_void_v<R>)
        return (self->*member)(static_cast<int>(wParam), reinterpret_cast<T*>(lParam));
    else
        return (self->*member)(static_cast<int>(wParam), reinterpret_cast<T*>(lParam)), TRUE;
}
template <class Self, class C>
LRESULT Size(Self* self, void (C::*member)(UINT, int, int), WPARAM wParam, LPARAM lParam) {
    (self->*member)(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam));
    return 0;
}
template <class Self, class C>
LRESULT Place(Self* self, void (C::*member)(int, int), WPARAM, LPARAM lParam) {
    (self->*member)(Point(lParam).x, Point(lParam).y);
    return 0;
}
template <class Self, class C>
LRESULT Key(Self* self, void (C::*member)(UINT, UINT, UINT), WPARAM wParam, LPARAM lParam) {
    (self->*member)(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam));
    return 0;
}
template <class Self, class C>
LRESULT Mouse(Self* self, void (C::*member)(UINT, CPoint), WPARAM wParam, LPARAM lParam) {
    (self->*member)(static_cast<UINT>(wParam), Point(lParam));
    return 0;
}
template <class Self, class C>
LRESULT Wheel(Self* self, BOOL (C::*member)(UINT, short, CPoint), WPARAM wParam, LPARAM lParam) {
    return (self->*member)(LOWORD(wParam), static_cast<short>(HIWORD(wParam)), Point(lParam));
}
template <class Self, class C>
LRESULT Number(Self* self, void (C::*member)(UINT, LPARAM), WPARAM wParam, LPARAM lParam) {
    (self->*member)(static_cast<UINT>(wParam), lParam);
    return 0;
}
template <class Self, class C>
LRESULT NumberText(Self* self, void (C::*member)(UINT, const WCHAR*), WPARAM wParam,
                   LPARAM lParam) {
    (self->*member)(static_cast<UINT>(wParam), reinterpret_cast<const WCHAR*>(lParam));
    return 0;
}
template <class Self, class C>
LRESULT Focus(Self* self, void (C::*member)(CWnd*), WPARAM wParam, LPARAM) {
    (self->*member)(Window(wParam));
    return 0;
}
template <class Self, class C>
LRESULT Capture(Self* self, void (C::*member)(CWnd*), WPARAM, LPARAM lParam) {
    (self->*member)(Window(lParam));
    return 0;
}
template <class Self, class C>
LRESULT Activation(Self* self, void (C::*member)(UINT, CWnd*, BOOL), WPARAM wParam, LPARAM lParam) {
    (self->*member)(LOWORD(wParam), Window(lParam), HIWORD(wParam) != 0);
    return 0;
}
template <class Self, class C>
LRESULT WindowAt(Self* self, void (C::*member)(CWnd*, CPoint), WPARAM wParam, LPARAM lParam) {
    (self->*member)(Window(wParam), Point(lParam));
    return 0;
}
template <class Self, class C>
LRESULT Cursor(Self* self, BOOL (C::*member)(CWnd*, UINT, UINT), WPARAM wParam, LPARAM lParam) {
    return (self->*member)(Window(wParam), LOWORD(lParam), HIWORD(lParam));
}
template <class Self, class C>
LRESULT Erase(Self* self, BOOL (C::*member)(CDC*), WPARAM wParam, LPARAM) {
    return (self->*member)(CDC::FromHandle(reinterpret_cast<HDC>(wParam)));
}
template <class Self, class C>
LRESULT Drop(Self* self, void (C::*member)(HDROP), WPARAM wParam, LPARAM) {
    (self->*member)(reinterpret_cast<HDROP>(wParam));
    return 0;
}
template <class Self, class C>
LRESULT Menu(Self* self, void (C::*member)(CMenu*, UINT, BOOL), WPARAM wParam, LPARAM lParam) {
    (self->*member)(CMenu::FromHandle(reinterpret_cast<HMENU>(wParam)), LOWORD(lParam),
                    HIWORD(lParam) != 0);
    return 0;
}
// The scroll bar is null for the window's own scroll bar.
template <class Self, class C>
LRESULT Scroll(Self* self, void (C::*member)(UINT, UINT, CScrollBar*), WPARAM wParam,
               LPARAM lParam) {
    (self->*member)(LOWORD(wParam), HIWORD(wParam), static_cast<CScrollBar*>(Window(lParam)));
    return 0;
}
// A reflected message has no scroll bar argument: the control is the scroll bar.
template <class Self, class C>
LRESULT ReflectedScroll(Self* self, void (C::*member)(UINT, UINT), WPARAM wParam, LPARAM) {
    (self->*member)(LOWORD(wParam), HIWORD(wParam));
    return 0;
}
// The kind of control is the offset from WM_CTLCOLORMSGBOX: CTLCOLOR_EDIT and so on.
template <UINT kind, class Self, class C>
LRESULT Color(Self* self, HBRUSH (C::*member)(CDC*, CWnd*, UINT), WPARAM wParam, LPARAM lParam) {
    return reinterpret_cast<LRESULT>(
        (self->*member)(CDC::FromHandle(reinterpret_cast<HDC>(wParam)), Window(lParam), kind));
}
template <UINT kind, class Self, class C>
LRESULT ReflectedColor(Self* self, HBRUSH (C::*member)(CDC*, UINT), WPARAM wParam, LPARAM) {
    return reinterpret_cast<LRESULT>(
        (self->*member)(CDC::FromHandle(reinterpret_cast<HDC>(wParam)), kind));
}

// WM_COMMAND: the first parameter is the id; returns whether the command was handled.
template <class Self, class C>
LRESULT Command(Self* self, void (C::*member)(UINT), WPARAM id, LPARAM) {
    (self->*member)(static_cast<UINT>(id));
    return TRUE;
}
template <class Self, class C>
LRESULT CommandEx(Self* self, BOOL (C::*member)(UINT), WPARAM id, LPARAM) {
    return (self->*member)(static_cast<UINT>(id));
}
template <class Self, class C>
LRESULT UpdateUI(Self* self, void (C::*member)(CCmdUI*), WPARAM, LPARAM extra) {
    CCmdUI& ui = *reinterpret_cast<CCmdUI*>(extra);
    ui.m_bContinueRouting = FALSE;
    (self->*member)(&ui);
    return !ui.m_bContinueRouting;
}
// WM_NOTIFY: returns whether the notification was handled.
template <class Self, class C>
LRESULT Notify(Self* self, void (C::*member)(UINT, NMHDR*, LRESULT*), WPARAM, LPARAM extra) {
    const AFX_NOTIFY& notify = *reinterpret_cast<const AFX_NOTIFY*>(extra);
    (self->*member)(static_cast<UINT>(notify.pNMHDR->idFrom), notify.pNMHDR, notify.pResult);
    return TRUE;
}
template <class Self, class C>
LRESULT NotifyEx(Self* self, BOOL (C::*member)(UINT, NMHDR*, LRESULT*), WPARAM, LPARAM extra) {
    const AFX_NOTIFY& notify = *reinterpret_cast<const AFX_NOTIFY*>(extra);
    return (self->*member)(static_cast<UINT>(notify.pNMHDR->idFrom), notify.pNMHDR, notify.pResult);
}
template <class Self, class C>
LRESULT NotifyReflectEx(Self* self, BOOL (C::*member)(NMHDR*, LRESULT*), WPARAM, LPARAM extra) {
    const AFX_NOTIFY& notify = *reinterpret_cast<const AFX_NOTIFY*>(extra);
    return (self->*member)(notify.pNMHDR, notify.pResult);
}
template <class Self, class C>
LRESULT ControlReflectEx(Self* self, BOOL (C::*member)(), WPARAM, LPARAM) {
    return (self->*member)();
}

} // namespace handlers
} // namespace quorvel

// Rows of a message: their parts, for the macros below.
#define QUORVEL_HANDLER_ROW(message, code, firstId, lastId, shape, member)                         \
    QUORVEL_MESSAGE_ROW(message, code, firstId, lastId,                                            \
                        quorvel::handlers::shape(self, member, wParam, lParam))
#define QUORVEL_WM_ROW(message, shape, member)                                                     \
    QUORVEL_HANDLER_ROW(message, 0, 0, 0, shape, &ThisClass::member)
#define QUORVEL_REFLECT_ROW(message, shape, member)                                                \
    QUORVEL_WM_ROW(quorvel::kReflected + message, shape, member)

// clang-format off
// Creation, position and appearance: rows for the messages of these names.
#define ON_WM_CREATE()            QUORVEL_WM_ROW(WM_CREATE, RecordAnswer, OnCreate)
#define ON_WM_NCDESTROY()         QUORVEL_WM_ROW(WM_NCDESTROY, Plain, OnNcDestroy)
#define ON_WM_CLOSE()             QUORVEL_WM_ROW(WM_CLOSE, Plain, OnClose)
#define ON_WM_PAINT()             QUORVEL_WM_ROW(WM_PAINT, Plain, OnPaint)
#define ON_WM_ERASEBKGND()        QUORVEL_WM_ROW(WM_ERASEBKGND, Erase, OnEraseBkgnd)
#define ON_WM_SIZE()              QUORVEL_WM_ROW(WM_SIZE, Size, OnSize)
#define ON_WM_MOVE()              QUORVEL_WM_ROW(WM_MOVE, Place, OnMove)
#define ON_WM_GETMINMAXINFO()     QUORVEL_WM_ROW(WM_GETMINMAXINFO, Record, OnGetMinMaxInfo)
#define ON_WM_WINDOWPOSCHANGING() QUORVEL_WM_ROW(WM_WINDOWPOSCHANGING, Record, OnWindowPosChanging)
#define ON_WM_WINDOWPOSCHANGED()  QUORVEL_WM_ROW(WM_WINDOWPOSCHANGED, Record, OnWindowPosChanged)
#define ON_WM_ENABLE()            QUORVEL_WM_ROW(WM_ENABLE, State, OnEnable)
#define ON_WM_SHOWWINDOW()        QUORVEL_WM_ROW(WM_SHOWWINDOW, Shown, OnShowWindow)
#define ON_WM_SYSCOLORCHANGE()    QUORVEL_WM_ROW(WM_SYSCOLORCHANGE, Plain, OnSysColorChange)
#define ON_WM_SETTINGCHANGE()     QUORVEL_WM_ROW(WM_SETTINGCHANGE, NumberText, OnSettingChange)
#define ON_WM_THEMECHANGED()      QUORVEL_WM_ROW(WM_THEMECHANGED, Answer, OnThemeChanged)
#define ON_WM_QUERYENDSESSION()   QUORVEL_WM_ROW(WM_QUERYENDSESSION, Answer, OnQueryEndSession)
#define ON_WM_ENDSESSION()        QUORVEL_WM_ROW(WM_ENDSESSION, State, OnEndSession)
// Keyboard, mouse and focus: rows for the messages of these names.
#define ON_WM_KEYDOWN()           QUORVEL_WM_ROW(WM_KEYDOWN, Key, OnKeyDown)
#define ON_WM_KEYUP()             QUORVEL_WM_ROW(WM_KEYUP, Key, OnKeyUp)
#define ON_WM_CHAR()              QUORVEL_WM_ROW(WM_CHAR, Key, OnChar)
#define ON_WM_SYSKEYDOWN()        QUORVEL_WM_ROW(WM_SYSKEYDOWN, Key, OnSysKeyDown)
#define ON_WM_SYSKEYUP()          QUORVEL_WM_ROW(WM_SYSKEYUP, Key, OnSysKeyUp)
#define ON_WM_SYSCOMMAND()        QUORVEL_WM_ROW(WM_SYSCOMMAND, Number, OnSysCommand)
#define ON_WM_GETDLGCODE()        QUORVEL_WM_ROW(WM_GETDLGCODE, Answer, OnGetDlgCode)
#define ON_WM_HELPINFO()          QUORVEL_WM_ROW(WM_HELP, RecordAnswer, OnHelpInfo)
#define ON_WM_LBUTTONDOWN()       QUORVEL_WM_ROW(WM_LBUTTONDOWN, Mouse, OnLButtonDown)
#define ON_WM_LBUTTONUP()         QUORVEL_WM_ROW(WM_LBUTTONUP, Mouse, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK()     QUORVEL_WM_ROW(WM_LBUTTONDBLCLK, Mouse, OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN()       QUORVEL_WM_ROW(WM_RBUTTONDOWN, Mouse, OnRButtonDown)
#define ON_WM_RBUTTONUP()         QUORVEL_WM_ROW(WM_RBUTTONUP, Mouse, OnRButtonUp)
#define ON_WM_MOUSEMOVE()         QUORVEL_WM_ROW(WM_MOUSEMOVE, Mouse, OnMouseMove)
#define ON_WM_MOUSEWHEEL()        QUORVEL_WM_ROW(WM_MOUSEWHEEL, Wheel, OnMouseWheel)
#define ON_WM_MOUSELEAVE()        QUORVEL_WM_ROW(WM_MOUSELEAVE, Plain, OnMouseLeave)
#define ON_WM_CAPTURECHANGED()    QUORVEL_WM_ROW(WM_CAPTURECHANGED, Capture, OnCaptureChanged)
#define ON_WM_SETCURSOR()         QUORVEL_WM_ROW(WM_SETCURSOR, Cursor, OnSetCursor)
#define ON_WM_SETFOCUS()          QUORVEL_WM_ROW(WM_SETFOCUS, Focus, OnSetFocus)
#define ON_WM_KILLFOCUS()         QUORVEL_WM_ROW(WM_KILLFOCUS, Focus, OnKillFocus)
#define ON_WM_ACTIVATE()          QUORVEL_WM_ROW(WM_ACTIVATE, Activation, OnActivate)
#define ON_WM_CONTEXTMENU()       QUORVEL_WM_ROW(WM_CONTEXTMENU, WindowAt, OnContextMenu)
#define ON_WM_INITMENUPOPUP()     QUORVEL_WM_ROW(WM_INITMENUPOPUP, Menu, OnInitMenuPopup)
#define ON_WM_DROPFILES()         QUORVEL_WM_ROW(WM_DROPFILES, Drop, OnDropFiles)
// Messages from the window's controls: rows for the messages of these names.
#define ON_WM_HSCROLL()           QUORVEL_WM_ROW(WM_HSCROLL, Scroll, OnHScroll)
#define ON_WM_VSCROLL()           QUORVEL_WM_ROW(WM_VSCROLL, Scroll, OnVScroll)
#define ON_WM_DRAWITEM()          QUORVEL_WM_ROW(WM_DRAWITEM, ItemRecord, OnDrawItem)
#define ON_WM_MEASUREITEM()       QUORVEL_WM_ROW(WM_MEASUREITEM, ItemRecord, OnMeasureItem)
#define ON_WM_DELETEITEM()        QUORVEL_WM_ROW(WM_DELETEITEM, ItemRecord, OnDeleteItem)
#define ON_WM_COMPAREITEM()       QUORVEL_WM_ROW(WM_COMPAREITEM, ItemRecord, OnCompareItem)
#define QUORVEL_COLOR_ROWS(base, shape, member)                                                    \
    QUORVEL_WM_ROW(base + WM_CTLCOLORMSGBOX, shape<CTLCOLOR_MSGBOX>, member)                       \
    QUORVEL_WM_ROW(base + WM_CTLCOLOREDIT, shape<CTLCOLOR_EDIT>, member)                           \
    QUORVEL_WM_ROW(base + WM_CTLCOLORLISTBOX, shape<CTLCOLOR_LISTBOX>, member)                     \
    QUORVEL_WM_ROW(base + WM_CTLCOLORBTN, shape<CTLCOLOR_BTN>, member)                             \
    QUORVEL_WM_ROW(base + WM_CTLCOLORDLG, shape<CTLCOLOR_DLG>, member)                             \
    QUORVEL_WM_ROW(base + WM_CTLCOLORSCROLLBAR, shape<CTLCOLOR_SCROLLBAR>, member)                 \
    QUORVEL_WM_ROW(base + WM_CTLCOLORSTATIC, shape<CTLCOLOR_STATIC>, member)
#define ON_WM_CTLCOLOR()          QUORVEL_COLOR_ROWS(0, Color, OnCtlColor)

// Messages that are registered by name: `message` is a variable that contains the number. It is
// read at the first message of the class. LRESULT member(WPARAM, LPARAM)
#define ON_REGISTERED_MESSAGE(message, member) ON_MESSAGE(message, member)

// Commands: void member(UINT id); for EX: BOOL member(UINT id), FALSE means not handled; for
// updates: void member(CCmdUI*).
#define ON_COMMAND_RANGE(first, last, member)                                                      \
    QUORVEL_HANDLER_ROW(WM_COMMAND, CN_COMMAND, first, last, Command, member)
#define ON_COMMAND_EX(id, member)                                                                  \
    QUORVEL_HANDLER_ROW(WM_COMMAND, CN_COMMAND, id, id, CommandEx, member)
#define ON_CONTROL_RANGE(code, first, last, member)                                                \
    QUORVEL_HANDLER_ROW(WM_COMMAND, code, first, last, Command, member)
#define ON_UPDATE_COMMAND_UI_RANGE(first, last, member)                                            \
    QUORVEL_HANDLER_ROW(WM_COMMAND, CN_UPDATE_COMMAND_UI, first, last, UpdateUI, member)
#define ON_UPDATE_COMMAND_UI(id, member) ON_UPDATE_COMMAND_UI_RANGE(id, id, member)

// Notifications: void member(UINT id, NMHDR*, LRESULT*), BOOL for EX (FALSE: not handled).
#define ON_NOTIFY_RANGE(code, first, last, member)                                                 \
    QUORVEL_HANDLER_ROW(WM_NOTIFY, code, first, last, Notify, member)
#define ON_NOTIFY_EX(code, id, member)                                                             \
    QUORVEL_HANDLER_ROW(WM_NOTIFY, code, id, id, NotifyEx, member)

// A control's own notifications, before its parent's handlers. With the plain rows the parent does
// not get them; with the EX rows it does not if the member returns TRUE.
#define ON_CONTROL_REFLECT(code, member)                                                           \
    QUORVEL_MESSAGE_ROW(quorvel::kReflected + WM_COMMAND, code, 0, 0,                              \
                        ((self->*(member))(), LRESULT{1}))
#define ON_CONTROL_REFLECT_EX(code, member)                                                        \
    QUORVEL_HANDLER_ROW(quorvel::kReflected + WM_COMMAND, code, 0, 0, ControlReflectEx, member)
#define ON_NOTIFY_REFLECT(code, member)                                                            \
    QUORVEL_MESSAGE_ROW(quorvel::kReflected + WM_NOTIFY, code, 0, 0,                               \
                        quorvel::CallNotify(self, member, lParam))
#define ON_NOTIFY_REFLECT_EX(code, member)                                                         \
    QUORVEL_HANDLER_ROW(quorvel::kReflected + WM_NOTIFY, code, 0, 0, NotifyReflectEx, member)
// HBRUSH CtlColor(CDC*, UINT): for a null brush the message is passed to the parent.
#define ON_WM_CTLCOLOR_REFLECT()                                                                   \
    QUORVEL_COLOR_ROWS(quorvel::kReflected, ReflectedColor, CtlColor)
#define ON_WM_DRAWITEM_REFLECT()  QUORVEL_REFLECT_ROW(WM_DRAWITEM, Record, DrawItem)
#define ON_WM_MEASUREITEM_REFLECT() QUORVEL_REFLECT_ROW(WM_MEASUREITEM, Record, MeasureItem)
#define ON_WM_HSCROLL_REFLECT()   QUORVEL_REFLECT_ROW(WM_HSCROLL, ReflectedScroll, HScroll)
#define ON_WM_VSCROLL_REFLECT()   QUORVEL_REFLECT_ROW(WM_VSCROLL, ReflectedScroll, VScroll)

// Rows for notifications of controls: void member().
#define ON_BN_DOUBLECLICKED(id, member) ON_CONTROL(BN_DOUBLECLICKED, id, member)
#define ON_BN_SETFOCUS(id, member)      ON_CONTROL(BN_SETFOCUS, id, member)
#define ON_BN_KILLFOCUS(id, member)     ON_CONTROL(BN_KILLFOCUS, id, member)
#define ON_STN_CLICKED(id, member)      ON_CONTROL(STN_CLICKED, id, member)
#define ON_STN_DBLCLK(id, member)       ON_CONTROL(STN_DBLCLK, id, member)
#define ON_EN_CHANGE(id, member)        ON_CONTROL(EN_CHANGE, id, member)
#define ON_EN_UPDATE(id, member)        ON_CONTROL(EN_UPDATE, id, member)
#define ON_EN_SETFOCUS(id, member)      ON_CONTROL(EN_SETFOCUS, id, member)
#define ON_EN_KILLFOCUS(id, member)     ON_CONTROL(EN_KILLFOCUS, id, member)
#define ON_EN_MAXTEXT(id, member)       ON_CONTROL(EN_MAXTEXT, id, member)
#define ON_LBN_SELCHANGE(id, member)    ON_CONTROL(LBN_SELCHANGE, id, member)
#define ON_LBN_DBLCLK(id, member)       ON_CONTROL(LBN_DBLCLK, id, member)
#define ON_LBN_SELCANCEL(id, member)    ON_CONTROL(LBN_SELCANCEL, id, member)
#define ON_LBN_SETFOCUS(id, member)     ON_CONTROL(LBN_SETFOCUS, id, member)
#define ON_LBN_KILLFOCUS(id, member)    ON_CONTROL(LBN_KILLFOCUS, id, member)
#define ON_CBN_SELCHANGE(id, member)    ON_CONTROL(CBN_SELCHANGE, id, member)
#define ON_CBN_DBLCLK(id, member)       ON_CONTROL(CBN_DBLCLK, id, member)
#define ON_CBN_SETFOCUS(id, member)     ON_CONTROL(CBN_SETFOCUS, id, member)
#define ON_CBN_KILLFOCUS(id, member)    ON_CONTROL(CBN_KILLFOCUS, id, member)
#define ON_CBN_EDITCHANGE(id, member)   ON_CONTROL(CBN_EDITCHANGE, id, member)
#define ON_CBN_EDITUPDATE(id, member)   ON_CONTROL(CBN_EDITUPDATE, id, member)
#define ON_CBN_DROPDOWN(id, member)     ON_CONTROL(CBN_DROPDOWN, id, member)
#define ON_CBN_CLOSEUP(id, member)      ON_CONTROL(CBN_CLOSEUP, id, member)
#define ON_CBN_SELENDOK(id, member)     ON_CONTROL(CBN_SELENDOK, id, member)
#define ON_CBN_SELENDCANCEL(id, member) ON_CONTROL(CBN_SELENDCANCEL, id, member)
// clang-format on
