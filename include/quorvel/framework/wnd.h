// CWnd: a window, the object that stands for it, and the maps that lead its messages to members.
//
// An object is used on the thread that created its window. Each thread has a map from windows to
// their objects: permanent ones, which were attached or created their window, and temporary ones,
// which FromHandle makes for any other window and which last until that window is gone; they are
// used at once and not stored.
//
// What needs a screen exists on Windows only. There a top-level window passes WM_SYSCOLORCHANGE and
// WM_SETTINGCHANGE on to all its descendants, after its own handler.
#pragma once

#include <quorvel/framework/object.h>
#include <quorvel/framework/string.h>

#if defined(_WIN32)
#include <quorvel/framework/geometry.h>

class CDataExchange;
class CDC;
class CFont;
class CMenu;
class CScrollBar;
#endif
class CWnd;
namespace quorvel {
struct WindowCallbacks;
}

// A row of a message map: the message, for WM_COMMAND and WM_NOTIFY also the notification code and
// the controls' ids from nID to nLastID, and the call of the member. The call returns the message's
// result; for WM_COMMAND and WM_NOTIFY it returns whether the member handled the message, and
// lParam is the `extra` of OnCmdMsg or the address of an AFX_NOTIFY.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage; // 0 ends the table
    UINT nCode;
    UINT nID;
    UINT nLastID;
    LRESULT (*pfn)(CWnd* wnd, WPARAM wParam, LPARAM lParam);
};
struct AFX_NOTIFY {
    LRESULT* pResult;
    NMHDR* pNMHDR;
};
// Where OnCmdMsg writes the object that has the handler, when it is only asked for one.
struct AFX_CMDHANDLERINFO {
    CWnd* pTarget;
};
// The notification code of a command, which a menu item, an accelerator or a button sends.
inline constexpr int CN_COMMAND = 0;

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)(); // null for CWnd
    const AFX_MSGMAP_ENTRY* lpEntries;
};

// May stand before the declaration of a handler.
#define afx_msg

#define DECLARE_MESSAGE_MAP()                                                                      \
protected:                                                                                         \
    static const AFX_MSGMAP* GetThisMessageMap();                                                  \
    const AFX_MSGMAP* GetMessageMap() const override;

// The two are halves of one function.
// clang-format off
#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                     \
    const AFX_MSGMAP* theClass::GetMessageMap() const {                                            \
        return GetThisMessageMap();                                                                \
    }                                                                                              \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {                                              \
        using ThisClass [[maybe_unused]] = theClass;                                               \
        using TheBaseClass = baseClass;                                                            \
        static const AFX_MSGMAP_ENTRY s_entries[] = {

#define END_MESSAGE_MAP()                                                                          \
            {0, 0, 0, 0, nullptr}};                                                                \
        static const AFX_MSGMAP s_map = {&TheBaseClass::GetThisMessageMap, s_entries};             \
        return &s_map;                                                                             \
    }
// clang-format on

// The rows. `call` is an expression over `self`, `wParam` and `lParam`; its value is what the row's
// call returns. A handler that has not dealt with its message wholly returns Default(). The rows of
// the messages that exist on Windows only are in <quorvel/framework/win/message_map.h>.
#define QUORVEL_MESSAGE_ROW(message, code, firstId, lastId, call)                                  \
    {message, static_cast<UINT>(code), static_cast<UINT>(firstId), static_cast<UINT>(lastId),      \
     [](CWnd* wnd, [[maybe_unused]] WPARAM wParam, [[maybe_unused]] LPARAM lParam) -> LRESULT {    \
         ThisClass* const self = static_cast<ThisClass*>(wnd);                                     \
         return (call);                                                                            \
     }},

// LRESULT member(WPARAM, LPARAM)
#define ON_MESSAGE(message, member)                                                                \
    QUORVEL_MESSAGE_ROW(message, 0, 0, 0, (self->*(member))(wParam, lParam))
// void member(), for a control's notification, a menu item or an accelerator
#define ON_CONTROL(code, id, member)                                                               \
    QUORVEL_MESSAGE_ROW(WM_COMMAND, code, id, id, ((self->*(member))(), LRESULT{1}))
#define ON_COMMAND(id, member) ON_CONTROL(0, id, member)
#define ON_BN_CLICKED(id, member) ON_CONTROL(BN_CLICKED, id, member)
// void member(NMHDR*, LRESULT*)
#define ON_NOTIFY(code, id, member)                                                                \
    QUORVEL_MESSAGE_ROW(WM_NOTIFY, code, id, id, quorvel::CallNotify(self, member, lParam))
// void OnDestroy()
#define ON_WM_DESTROY() QUORVEL_MESSAGE_ROW(WM_DESTROY, 0, 0, 0, (self->OnDestroy(), LRESULT{0}))

// void OnTimer(UINT_PTR id)
#define ON_WM_TIMER() QUORVEL_MESSAGE_ROW(WM_TIMER, 0, 0, 0, (self->OnTimer(wParam), LRESULT{0}))

#if defined(_WIN32)
// Sent to the window of a modal loop when there are no messages, with MSGF_DIALOGBOX and the count
// of times since the last message. It answers whether it wants to be sent another.
inline constexpr UINT WM_KICKIDLE = 0x036a;
// The flags of RunModalLoop.
inline constexpr DWORD MLF_NOIDLEMSG = 1;  // the owner gets no WM_ENTERIDLE
inline constexpr DWORD MLF_NOKICKIDLE = 2; // the window gets no WM_KICKIDLE
inline constexpr DWORD MLF_SHOWONIDLE = 4; // shows the window when there are no messages
#endif

// Subclasses the next window that is created on this thread, as it is created, and is released as
// soon as that window exists. For windows that a platform function creates; the object, which has
// no window yet, must outlive the call of it.
QUORVEL_API void AfxHookWindowCreate(CWnd* wnd);
// Releases the hook if it is still there. FALSE when no window was created since it was set.
QUORVEL_API BOOL AfxUnhookWindowCreate();

class QUORVEL_API CWnd : public CCmdTarget {
    DECLARE_DYNAMIC(CWnd)
public:
    CWnd();
    ~CWnd() override; // destroys the window that it still has

    HWND m_hWnd; // null when there is none
    HWND GetSafeHwnd() const { return m_hWnd; }

    // Null for a null handle.
    static CWnd* FromHandle(HWND window);
    // Null when the window has no permanent object on this thread.
    static CWnd* FromHandlePermanent(HWND window);

    // Makes this the window's permanent object. FALSE, and nothing changed, for a null handle, when
    // this object has a window and when the window has another object.
    BOOL Attach(HWND window);
    // Takes the window away from the object without touching it; null when there is none.
    HWND Detach();
    // Attach, and this object's members get the window's messages; those without a handler go on
    // to the window's own procedure. FALSE also when there is no such window.
    BOOL SubclassWindow(HWND window);
    // Gives the window its own procedure back, and detaches it.
    HWND UnsubclassWindow();

    // A child window: WS_CHILD is added. FALSE when it cannot be created, with the platform's
    // error.
    BOOL Create(const WCHAR* className, const WCHAR* windowName, DWORD style, const RECT& rect,
                CWnd* parent, UINT id);
    // Any window. The object is attached before the first message comes. After a failure to
    // create, PostNcDestroy has been called.
    BOOL CreateEx(DWORD extendedStyle, const WCHAR* className, const WCHAR* windowName, DWORD style,
                  int x, int y, int width, int height, HWND parentOrOwner, HMENU menuOrId,
                  LPVOID parameter = nullptr);
    virtual BOOL DestroyWindow(); // FALSE when there is none

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void GetWindowText(CString& text) const;
    BOOL SetWindowText(const WCHAR* text);
    DWORD GetStyle() const;
    int GetDlgCtrlID() const;
    CWnd* GetParent() const; // the parent of a child, the owner of a pop-up; null when none

    // Calls the handler of a command or of a control's notification: `code` is CN_COMMAND or the
    // notification's. With `info` it is not called: the result says whether there is one.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info);

#if defined(_WIN32)
    // Subclasses the parent's control of that id.
    BOOL SubclassDlgItem(UINT id, CWnd* parent);

    // Calls DoDataExchange to copy the data to the controls (FALSE) or from them (TRUE). FALSE
    // when the exchange failed; the user has been notified then. While it runs this window gets no
    // notifications of its controls.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    // Shows the child windows as the ON_UPDATE_COMMAND_UI rows of the target say. With
    // `disableIfNoHandler` a push button without an ON_COMMAND row is disabled.
    void UpdateDialogControls(CWnd* target, BOOL disableIfNoHandler);

    // Handles this thread's messages until EndModalLoop, and returns what that was given. -1 when
    // the window is destroyed before, and on WM_QUIT, which is posted again. The flags are below.
    // Between messages the window gets WM_KICKIDLE until it answers 0.
    int RunModalLoop(DWORD flags = 0);
    virtual BOOL ContinueModal(); // asked after each message
    virtual void EndModalLoop(int result);

    // Called before a message is translated and dispatched, for the window it is addressed to and
    // then for its parents and owners. TRUE ends the handling of the message.
    virtual BOOL PreTranslateMessage(MSG* message);
    // Calls PreTranslateMessage from the message's window up to `stop`, which comes last.
    static BOOL WalkPreTranslateTree(HWND stop, MSG* message);

    // In the middle of the parent, or of the visible owner, otherwise of the monitor's work area;
    // a window that is no child stays within that area.
    void CenterWindow();
    // TRUE when the style changed. `positionFlags`, when not 0, are passed to SetWindowPos.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT positionFlags = 0) {
        return ModifyStyleOf(GWL_STYLE, remove, add, positionFlags);
    }
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT positionFlags = 0) {
        return ModifyStyleOf(GWL_EXSTYLE, remove, add, positionFlags);
    }
    // To every window below this one; with `onlyPermanent` to those with a permanent object.
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0,
                                  BOOL deep = TRUE, BOOL onlyPermanent = FALSE);
    // The last in the row of parents and owners; the window itself when it has none.
    CWnd* GetTopLevelParent() const;
    // A box over this window, which does not pass through the application's DoMessageBox. A null
    // caption is the application's name.
    int MessageBox(const WCHAR* text, const WCHAR* caption = nullptr, UINT type = MB_OK);
    void GetDlgItemText(int id, CString& text) const;
    CFont* GetFont() const; // null: the system font
    void SetFont(CFont* font, BOOL redraw = TRUE);
    CMenu* GetMenu() const;
    CMenu* GetSystemMenu(BOOL revert) const;
    CDC* GetDC();
    CDC* GetWindowDC();
    int ReleaseDC(CDC* dc);
    CDC* BeginPaint(PAINTSTRUCT* paint);

    // Each of the rest forwards to the platform's function of its name.

    // Messages and timers
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::PostMessageW(m_hWnd, message, wParam, lParam);
    }
    LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::SendDlgItemMessageW(m_hWnd, id, message, wParam, lParam);
    }
    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure = nullptr) {
        return ::SetTimer(m_hWnd, id, milliseconds, procedure);
    }
    BOOL KillTimer(UINT_PTR id) {
        return ::KillTimer(m_hWnd, id);
    }

    // Size and place
    void GetClientRect(RECT* rect) const {
        ::GetClientRect(m_hWnd, rect);
    }
    void GetWindowRect(RECT* rect) const {
        ::GetWindowRect(m_hWnd, rect);
    }
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE) {
        ::MoveWindow(m_hWnd, x, y, width, height, repaint);
    }
    void MoveWindow(const RECT& rect, BOOL repaint = TRUE) {
        MoveWindow(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, repaint);
    }
    BOOL SetWindowPos(const CWnd* insertAfter, int x, int y, int width, int height, UINT flags) {
        return ::SetWindowPos(m_hWnd, SafeHwndOf(insertAfter), x, y, width, height, flags);
    }
    BOOL GetWindowPlacement(WINDOWPLACEMENT* placement) const {
        placement->length = sizeof *placement;
        return ::GetWindowPlacement(m_hWnd, placement);
    }
    BOOL SetWindowPlacement(const WINDOWPLACEMENT* placement) {
        return ::SetWindowPlacement(m_hWnd, placement);
    }
    BOOL BringWindowToTop() {
        return ::BringWindowToTop(m_hWnd);
    }
    // A rectangle's corners are mapped together, so that the edges of a mirrored window are not
    // swapped.
    void ClientToScreen(POINT* point) const {
        ::ClientToScreen(m_hWnd, point);
    }
    void ClientToScreen(RECT* rect) const {
        MapWindowPoints(nullptr, rect);
    }
    void ScreenToClient(POINT* point) const {
        ::ScreenToClient(m_hWnd, point);
    }
    void ScreenToClient(RECT* rect) const {
        ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(rect), 2);
    }
    void MapWindowPoints(const CWnd* to, POINT* points, UINT count) const {
        ::MapWindowPoints(m_hWnd, SafeHwndOf(to), points, count);
    }
    void MapWindowPoints(const CWnd* to, RECT* rect) const {
        MapWindowPoints(to, reinterpret_cast<POINT*>(rect), 2);
    }

    // State
    BOOL ShowWindow(int command) {
        return ::ShowWindow(m_hWnd, command);
    }
    BOOL IsWindowVisible() const {
        return ::IsWindowVisible(m_hWnd);
    }
    // TRUE when it was disabled before.
    BOOL EnableWindow(BOOL enable = TRUE) {
        return ::EnableWindow(m_hWnd, enable);
    }
    BOOL IsWindowEnabled() const {
        return ::IsWindowEnabled(m_hWnd);
    }
    BOOL IsIconic() const {
        return ::IsIconic(m_hWnd);
    }
    BOOL IsZoomed() const {
        return ::IsZoomed(m_hWnd);
    }
    DWORD GetExStyle() const {
        return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE));
    }
    int GetWindowTextLength() const {
        return ::GetWindowTextLengthW(m_hWnd);
    }
    int GetWindowText(LPWSTR text, int size) const {
        return ::GetWindowTextW(m_hWnd, text, size);
    }
    HICON SetIcon(HICON icon, BOOL big) {
        return reinterpret_cast<HICON>(
            SendMessage(WM_SETICON, static_cast<WPARAM>(big), reinterpret_cast<LPARAM>(icon)));
    }
    BOOL SetMenu(CMenu* menu);
    void DrawMenuBar() {
        ::DrawMenuBar(m_hWnd);
    }
    void DragAcceptFiles(BOOL accept = TRUE);

    // Painting
    void Invalidate(BOOL erase = TRUE) {
        ::InvalidateRect(m_hWnd, nullptr, erase);
    }
    void InvalidateRect(const RECT* rect, BOOL erase = TRUE) {
        ::InvalidateRect(m_hWnd, rect, erase);
    }
    void ValidateRect(const RECT* rect) {
        ::ValidateRect(m_hWnd, rect);
    }
    void UpdateWindow() {
        ::UpdateWindow(m_hWnd);
    }
    BOOL RedrawWindow(const RECT* rect = nullptr, HRGN region = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE) {
        return ::RedrawWindow(m_hWnd, rect, region, flags);
    }
    void SetRedraw(BOOL redraw = TRUE) {
        SendMessage(WM_SETREDRAW, static_cast<WPARAM>(redraw));
    }
    void EndPaint(PAINTSTRUCT* paint) {
        ::EndPaint(m_hWnd, paint);
    }

    // Focus, activation and capture
    CWnd* SetFocus() {
        return FromHandle(::SetFocus(m_hWnd));
    } // the window that had it
    static CWnd* GetFocus() {
        return FromHandle(::GetFocus());
    }
    CWnd* SetActiveWindow() {
        return FromHandle(::SetActiveWindow(m_hWnd));
    }
    static CWnd* GetActiveWindow() {
        return FromHandle(::GetActiveWindow());
    }
    BOOL SetForegroundWindow() {
        return ::SetForegroundWindow(m_hWnd);
    }
    static CWnd* GetForegroundWindow() {
        return FromHandle(::GetForegroundWindow());
    }
    CWnd* SetCapture() {
        return FromHandle(::SetCapture(m_hWnd));
    }
    static CWnd* GetCapture() {
        return FromHandle(::GetCapture());
    }

    // Other windows
    CWnd* GetDlgItem(int id) const {
        return FromHandle(::GetDlgItem(m_hWnd, id));
    }
    void GetDlgItem(int id, HWND* item) const {
        *item = ::GetDlgItem(m_hWnd, id);
    }
    CWnd* GetOwner() const {
        return FromHandle(::GetWindow(m_hWnd, GW_OWNER));
    }
    CWnd* SetParent(CWnd* parent) {
        return FromHandle(::SetParent(m_hWnd, SafeHwndOf(parent)));
    }
    CWnd* GetWindow(UINT command) const {
        return FromHandle(::GetWindow(m_hWnd, command));
    }
    CWnd* GetTopWindow() const {
        return FromHandle(::GetTopWindow(m_hWnd));
    }
    CWnd* GetLastActivePopup() const {
        return FromHandle(::GetLastActivePopup(m_hWnd));
    }
    CWnd* ChildWindowFromPoint(POINT point) const {
        return FromHandle(::ChildWindowFromPoint(m_hWnd, point));
    }
    BOOL IsChild(const CWnd* wnd) const {
        return ::IsChild(m_hWnd, SafeHwndOf(wnd));
    }
    static CWnd* GetDesktopWindow() {
        return FromHandle(::GetDesktopWindow());
    }
    static CWnd* WindowFromPoint(POINT point) {
        return FromHandle(::WindowFromPoint(point));
    }
    static CWnd* FindWindow(const WCHAR* className, const WCHAR* windowName) {
        return FromHandle(::FindWindowW(className, windowName));
    }

    // Items of a dialog
    int SetDlgCtrlID(int id) {
        return static_cast<int>(::SetWindowLongPtrW(m_hWnd, GWLP_ID, id));
    }
    int GetDlgItemText(int id, LPWSTR text, int size) const {
        return static_cast<int>(::GetDlgItemTextW(m_hWnd, id, text, size));
    }
    void SetDlgItemText(int id, const WCHAR* text) {
        ::SetDlgItemTextW(m_hWnd, id, text);
    }
    UINT GetDlgItemInt(int id, BOOL* translated = nullptr, BOOL isSigned = TRUE) const {
        return ::GetDlgItemInt(m_hWnd, id, translated, isSigned);
    }
    void SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE) {
        ::SetDlgItemInt(m_hWnd, id, value, isSigned);
    }
    void CheckDlgButton(int id, UINT check) {
        ::CheckDlgButton(m_hWnd, id, check);
    }
    UINT IsDlgButtonChecked(int id) const {
        return ::IsDlgButtonChecked(m_hWnd, id);
    }
    void CheckRadioButton(int first, int last, int checked) {
        ::CheckRadioButton(m_hWnd, first, last, checked);
    }
    int GetCheckedRadioButton(int first, int last) const; // 0 when none is checked
    CWnd* GetNextDlgTabItem(const CWnd* item, BOOL previous = FALSE) const {
        return FromHandle(::GetNextDlgTabItem(m_hWnd, SafeHwndOf(item), previous));
    }
    CWnd* GetNextDlgGroupItem(const CWnd* item, BOOL previous = FALSE) const {
        return FromHandle(::GetNextDlgGroupItem(m_hWnd, SafeHwndOf(item), previous));
    }

    // Scroll bars
    BOOL GetScrollInfo(int bar, SCROLLINFO* info, UINT mask = SIF_ALL) const {
        info->cbSize = sizeof *info;
        info->fMask = mask;
        return ::GetScrollInfo(m_hWnd, bar, info);
    }
    int SetScrollInfo(int bar, SCROLLINFO* info, BOOL redraw = TRUE) {
        info->cbSize = sizeof *info;
        return ::SetScrollInfo(m_hWnd, bar, info, redraw);
    }
    int GetScrollPos(int bar) const {
        return ::GetScrollPos(m_hWnd, bar);
    }
    int SetScrollPos(int bar, int position, BOOL redraw = TRUE) {
        return ::SetScrollPos(m_hWnd, bar, position, redraw);
    }
    void ShowScrollBar(UINT bar, BOOL show = TRUE) {
        ::ShowScrollBar(m_hWnd, static_cast<int>(bar), show);
    }
#endif

protected:
    // The window exists and is attached; its messages don't come here yet.
    virtual void PreSubclassWindow();
    // The window is gone and detached, and no longer the application's main window: the place for
    // `delete this`.
    virtual void PostNcDestroy();

    // An exception that leaves WindowProc ends there: CWinApp::ProcessWndProcException reports it.
    // The message's result is then 0, or -1 for WM_CREATE, which takes the window back.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // FALSE when there is no handler; *result is then unchanged.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    // The window's own procedure.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // DefWindowProc for the message that is being handled.
    LRESULT Default();
    // The message that is being handled, to be read at once: its window, number and parameters.
    static const MSG* GetCurrentMessage();

#if defined(_WIN32)
    // Exchanges the data of this window's controls, by the DDX_ and DDV_ functions.
    virtual void DoDataExchange(CDataExchange* exchange);
    // Called for a notification of this control that its parent received. TRUE when it was handled
    // here; the parent's own handlers then don't get it.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    // What the handlers of a derived class pass on to. Without a comment: the window's own
    // procedure, with the message as it came, whatever the arguments are.
    int OnCreate(CREATESTRUCTW*) {
        return static_cast<int>(Default());
    }
    void OnDestroy() {
        Default();
    }
    void OnNcDestroy() {
        Default();
    }
    void OnClose() {
        Default();
    }
    void OnPaint() {
        Default();
    }
    BOOL OnEraseBkgnd(CDC*) {
        return static_cast<BOOL>(Default());
    }
    void OnSize(UINT, int, int) {
        Default();
    }
    void OnMove(int, int) {
        Default();
    }
    void OnGetMinMaxInfo(MINMAXINFO*) {
        Default();
    }
    void OnWindowPosChanging(WINDOWPOS*) {
        Default();
    }
    void OnWindowPosChanged(WINDOWPOS*) {
        Default();
    }
    void OnTimer(UINT_PTR) {
        Default();
    }
    void OnKeyDown(UINT, UINT, UINT) {
        Default();
    }
    void OnKeyUp(UINT, UINT, UINT) {
        Default();
    }
    void OnChar(UINT, UINT, UINT) {
        Default();
    }
    void OnSysKeyDown(UINT, UINT, UINT) {
        Default();
    }
    void OnSysKeyUp(UINT, UINT, UINT) {
        Default();
    }
    void OnSysCommand(UINT, LPARAM) {
        Default();
    }
    void OnLButtonDown(UINT, CPoint) {
        Default();
    }
    void OnLButtonUp(UINT, CPoint) {
        Default();
    }
    void OnLButtonDblClk(UINT, CPoint) {
        Default();
    }
    void OnRButtonDown(UINT, CPoint) {
        Default();
    }
    void OnRButtonUp(UINT, CPoint) {
        Default();
    }
    void OnMouseMove(UINT, CPoint) {
        Default();
    }
    BOOL OnMouseWheel(UINT, short, CPoint) {
        return static_cast<BOOL>(Default());
    }
    void OnMouseLeave() {
        Default();
    }
    void OnCaptureChanged(CWnd*) {
        Default();
    }
    BOOL OnSetCursor(CWnd*, UINT, UINT) {
        return static_cast<BOOL>(Default());
    }
    void OnSetFocus(CWnd*) {
        Default();
    }
    void OnKillFocus(CWnd*) {
        Default();
    }
    void OnActivate(UINT, CWnd*, BOOL) {
        Default();
    }
    void OnEnable(BOOL) {
        Default();
    }
    void OnShowWindow(BOOL, UINT) {
        Default();
    }
    void OnContextMenu(CWnd*, CPoint) {
        Default();
    }
    UINT OnGetDlgCode() {
        return static_cast<UINT>(Default());
    }
    BOOL OnHelpInfo(HELPINFO*) {
        return static_cast<BOOL>(Default());
    }
    void OnDropFiles(HDROP) {
        Default();
    }
    void OnSysColorChange() {
        Default();
    }
    void OnSettingChange(UINT, const WCHAR*) {
        Default();
    }
    LRESULT OnThemeChanged() {
        return Default();
    }
    BOOL OnQueryEndSession() {
        return static_cast<BOOL>(Default());
    }
    void OnEndSession(BOOL) {
        Default();
    }
    // Shows the menu's items as the ON_UPDATE_COMMAND_UI rows of this window say.
    void OnInitMenuPopup(CMenu* menu, UINT index, BOOL systemMenu);
    // The control itself first, by its reflected rows, then the window's own procedure.
    HBRUSH OnCtlColor(CDC*, CWnd*, UINT) {
        return reinterpret_cast<HBRUSH>(ReflectOrDefault());
    }
    void OnDrawItem(int, DRAWITEMSTRUCT*) {
        ReflectOrDefault();
    }
    void OnMeasureItem(int, MEASUREITEMSTRUCT*) {
        ReflectOrDefault();
    }
    void OnDeleteItem(int, DELETEITEMSTRUCT*) {
        ReflectOrDefault();
    }
    int OnCompareItem(int, COMPAREITEMSTRUCT*) {
        return static_cast<int>(ReflectOrDefault());
    }
    void OnHScroll(UINT, UINT, CScrollBar*) {
        ReflectOrDefault();
    }
    void OnVScroll(UINT, UINT, CScrollBar*) {
        ReflectOrDefault();
    }
#endif

    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;

private:
    friend struct quorvel::WindowCallbacks;
#if defined(_WIN32)
    friend class CDialog; // runs a modal loop
    friend class CPropertySheet;
#endif
    const AFX_MSGMAP_ENTRY* FindEntry(UINT message, UINT code, UINT id) const;
    LRESULT Dispatch(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void FinishDestroy() noexcept;
    void InstallProcedure();
#if defined(_WIN32)
    static HWND SafeHwndOf(const CWnd* wnd) {
        return wnd != nullptr ? wnd->m_hWnd : nullptr;
    }
    BOOL ModifyStyleOf(int which, DWORD remove, DWORD add, UINT positionFlags);
    LRESULT ReflectOrDefault();
    BOOL ReflectToControl(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    BOOL IsEndOfCommand(WPARAM wParam, LPARAM lParam);
    BOOL IsEndOfNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);

    enum class Modal { None, Running, Ended };
    Modal m_modal = Modal::None;
    int m_modalResult = 0;
#endif

    WNDPROC m_super = nullptr; // the window's own procedure; null: the platform's default one
};

namespace quorvel {

template <class Class, class Member>
LRESULT CallNotify(Class* self, Member member, LPARAM lParam) {
    const AFX_NOTIFY& notify = *reinterpret_cast<const AFX_NOTIFY*>(lParam);
    (self->*member)(notify.pNMHDR, notify.pResult);
    return TRUE;
}

} // namespace quorvel
