// CWnd: a window object, and the message maps that call its members for the window's messages.
//
// Use an object on the thread that created its window. Each thread has a map from windows to
// objects. A permanent object was attached to its window or created it. FromHandle makes a
// temporary object for any other window; it is deleted with the window. Use it at once and do not
// store it.
//
// Members that need a screen exist on Windows only. There a top-level window forwards
// WM_SYSCOLORCHANGE and WM_SETTINGCHANGE to all its descendants, after its own handler.
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

// A row of a message map: the message; for WM_COMMAND and WM_NOTIFY also the notification code and
// the range of control ids; and the function that calls the member. It returns the result of the
// message. For WM_COMMAND and WM_NOTIFY it returns whether the member handled the message, and its
// lParam is the `extra` of OnCmdMsg or the address of an AFX_NOTIFY.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage;                                           // 0 ends the table
    UINT nCode;                                              // 0 for other messages
    UINT nID;                                                // the first id
    UINT nLastID;                                            // the last id
    LRESULT (*pfn)(CWnd* wnd, WPARAM wParam, LPARAM lParam); // calls the member
};
struct AFX_NOTIFY {   // the argument of a row for WM_NOTIFY
    LRESULT* pResult; // what the parent's window procedure returns
    NMHDR* pNMHDR;    // as the control sent it
};
// OnCmdMsg writes the object that has the handler here, if it only searches for one.
struct AFX_CMDHANDLERINFO {
    CWnd* pTarget; // unchanged when there is no handler
};
// The notification code of a command from a menu item, an accelerator or a button.
inline constexpr int CN_COMMAND = 0;

struct AFX_MSGMAP {                       // the rows of a class, and the map of its base class
    const AFX_MSGMAP* (*pfnGetBaseMap)(); // null for CWnd
    const AFX_MSGMAP_ENTRY* lpEntries;    // ended by a row with message 0
};

// Optional mark before the declaration of a handler.
#define afx_msg

// In the body of a class that has a message map. Members that follow it are protected.
#define DECLARE_MESSAGE_MAP()                                                                      \
protected:                                                                                         \
    static const AFX_MSGMAP* GetThisMessageMap();                                                  \
    const AFX_MSGMAP* GetMessageMap() const override;

// Enclose the rows of a class, in one source file. They are the halves of one function.
// clang-format off
#define BEGIN_MESSAGE_MAP(theClass, baseClass)                                                     \
    const AFX_MSGMAP* theClass::GetMessageMap() const {                                            \
        return GetThisMessageMap();                                                                \
    }                                                                                              \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {                                              \
        using ThisClass [[maybe_unused]] = theClass;                                               \
        using TheBaseClass = baseClass;                                                            \
        static const AFX_MSGMAP_ENTRY s_entries[] = {

// Ends the rows.
#define END_MESSAGE_MAP()                                                                          \
            {0, 0, 0, 0, nullptr}};                                                                \
        static const AFX_MSGMAP s_map = {&TheBaseClass::GetThisMessageMap, s_entries};             \
        return &s_map;                                                                             \
    }
// clang-format on

// The rows. `call` is an expression of `self`, `wParam` and `lParam`; the row's function returns
// its value. A handler that does not handle its message completely returns Default(). Rows for
// messages that exist only on Windows are in <quorvel/framework/win/message_map.h>.
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
// Sent to the window of a modal loop when no message waits, with MSGF_DIALOGBOX and the number of
// times since the last message. A non-zero result requests another one.
inline constexpr UINT WM_KICKIDLE = 0x036a;
// Flags of RunModalLoop.
inline constexpr DWORD MLF_NOIDLEMSG = 1;  // the owner gets no WM_ENTERIDLE
inline constexpr DWORD MLF_NOKICKIDLE = 2; // the window gets no WM_KICKIDLE
inline constexpr DWORD MLF_SHOWONIDLE = 4; // shows the window when no message waits
#endif

// Subclasses the next window that is created on this thread, during its creation. The hook is
// removed as soon as that window exists. It is for windows that a platform function creates. The
// object must have no window yet, and must outlive that function's call.
QUORVEL_API void AfxHookWindowCreate(CWnd* wnd);
// Removes a hook that is still set. FALSE when no window was created since it was set.
QUORVEL_API BOOL AfxUnhookWindowCreate();

class QUORVEL_API CWnd : public CCmdTarget {
    DECLARE_DYNAMIC(CWnd)
public:
    CWnd();
    ~CWnd() override; // destroys its window, if any

    HWND m_hWnd;                                // null without a window
    HWND GetSafeHwnd() const { return m_hWnd; } // null without a window

    // Null for a null handle.
    static CWnd* FromHandle(HWND window);
    // Null when the window has no permanent object on this thread.
    static CWnd* FromHandlePermanent(HWND window);

    // Makes this object the window's permanent object. Returns FALSE and changes nothing for a null
    // handle, when this object has a window, and when the window has an object.
    BOOL Attach(HWND window);
    // Detaches the window without changing it, and returns it; null without a window.
    HWND Detach();
    // Attaches the window and handles its messages in this object's members. Messages without a
    // handler are passed to the window's own procedure. FALSE also when the window does not exist.
    BOOL SubclassWindow(HWND window);
    // Restores the window's own procedure and detaches the window.
    HWND UnsubclassWindow();

    // Creates a child window: WS_CHILD is added. On failure returns FALSE; the platform's last
    // error has the reason.
    BOOL Create(const WCHAR* className, const WCHAR* windowName, DWORD style, const RECT& rect,
                CWnd* parent, UINT id);
    // Creates any window. The object is attached before the window's first message. If it cannot be
    // created, or PreCreateWindow refuses, PostNcDestroy has been called when this returns.
    BOOL CreateEx(DWORD extendedStyle, const WCHAR* className, const WCHAR* windowName, DWORD style,
                  int x, int y, int width, int height, HWND parentOrOwner, HMENU menuOrId,
                  LPVOID parameter = nullptr);
    virtual BOOL DestroyWindow(); // FALSE without a window

    // Each calls the platform's function of its name. GetWindowText has no limit of length.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void GetWindowText(CString& text) const;
    BOOL SetWindowText(const WCHAR* text);
    DWORD GetStyle() const;
    int GetDlgCtrlID() const;
    CWnd* GetParent() const; // parent of a child, owner of a pop-up, or null

    // Calls the handler of a command or of a control's notification: `code` is CN_COMMAND or the
    // notification code. With `info` it only searches: the result says whether there is a handler.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info);

#if defined(_WIN32)
    // Subclasses the control with that id of the parent.
    BOOL SubclassDlgItem(UINT id, CWnd* parent);

    // Calls DoDataExchange to copy the data to the controls (FALSE) or from them (TRUE). FALSE
    // means that the exchange failed and the user was notified. During the exchange this window
    // gets no notifications from its controls.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    // Updates the child windows with the target's ON_UPDATE_COMMAND_UI handlers. With
    // `disableIfNoHandler` a push button without an ON_COMMAND row is disabled.
    void UpdateDialogControls(CWnd* target, BOOL disableIfNoHandler);

    // Handles this thread's messages until EndModalLoop and returns its argument. Returns -1 when
    // the window is destroyed first, and on WM_QUIT, which is posted again. `flags` are the MLF_
    // constants. Between messages the window gets WM_KICKIDLE until its result is 0.
    int RunModalLoop(DWORD flags = 0);
    virtual BOOL ContinueModal();          // called after each message; FALSE ends the loop
    virtual void EndModalLoop(int result); // ends RunModalLoop with this result

    // Called before a message is translated and dispatched: first for its own window, then for the
    // parents and owners of that. TRUE ends the handling of the message.
    virtual BOOL PreTranslateMessage(MSG* message);
    // Calls PreTranslateMessage from the message's window up to and including `stop`.
    static BOOL WalkPreTranslateTree(HWND stop, MSG* message);

    // Centres the window in its parent or its visible owner, or else in the monitor's work area. A
    // window that is not a child stays within the work area.
    void CenterWindow();
    // TRUE when the style changed. Non-zero `positionFlags` are passed to SetWindowPos.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT positionFlags = 0) {
        return ModifyStyleOf(GWL_STYLE, remove, add, positionFlags);
    }
    BOOL ModifyStyleEx(DWORD remove, DWORD add, UINT positionFlags = 0) {
        return ModifyStyleOf(GWL_EXSTYLE, remove, add, positionFlags);
    }
    // Sends to every window below this one; with `onlyPermanent` only to permanent objects.
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0,
                                  BOOL deep = TRUE, BOOL onlyPermanent = FALSE);
    // The last window in the chain of parents and owners; this window when it has neither.
    CWnd* GetTopLevelParent() const;
    // Shows a box over this window without the application's DoMessageBox. A null caption means the
    // application's name.
    int MessageBox(const WCHAR* text, const WCHAR* caption = nullptr, UINT type = MB_OK);
    // Each calls the platform's function of its name. Objects that they return are temporary.
    void GetDlgItemText(int id, CString& text) const;
    CFont* GetFont() const; // null: the system font
    void SetFont(CFont* font, BOOL redraw = TRUE);
    CMenu* GetMenu() const;
    CMenu* GetSystemMenu(BOOL revert) const;
    CDC* GetDC();
    CDC* GetWindowDC();
    int ReleaseDC(CDC* dc);
    CDC* BeginPaint(PAINTSTRUCT* paint);

    // Messages and timers. Each calls the platform's function of its name.
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

    // Size and place. Each calls the platform's function of its name.
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
    // The corners of a rectangle are mapped together, so that a mirrored window does not swap its
    // edges.
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

    // State. Each calls the platform's function of its name.
    BOOL ShowWindow(int command) {
        return ::ShowWindow(m_hWnd, command);
    }
    BOOL IsWindowVisible() const {
        return ::IsWindowVisible(m_hWnd);
    }
    // TRUE when the window was disabled before.
    BOOL EnableWindow(BOOL enable = TRUE) {
        return ::EnableWindow(m_hWnd, enable);
    }
    // State and texts. Each calls the platform's function of its name.
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

    // Painting. Each calls the platform's function of its name.
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

    // Focus, activation and capture. Each calls the platform's function of its name.
    CWnd* SetFocus() {
        return FromHandle(::SetFocus(m_hWnd));
    } // the previous window
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

    // Other windows. Each calls the platform's function of its name; objects that they return are
    // temporary.
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

    // Items of a dialog. Each calls the platform's function of its name.
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
    int GetCheckedRadioButton(int first, int last) const; // 0: no checked button
    CWnd* GetNextDlgTabItem(const CWnd* item, BOOL previous = FALSE) const {
        return FromHandle(::GetNextDlgTabItem(m_hWnd, SafeHwndOf(item), previous));
    }
    CWnd* GetNextDlgGroupItem(const CWnd* item, BOOL previous = FALSE) const {
        return FromHandle(::GetNextDlgGroupItem(m_hWnd, SafeHwndOf(item), previous));
    }

    // Scroll bars. Each calls the platform's function of its name; they set cbSize and fMask
    // themselves.
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
    // Called by CreateEx before it creates the window. May change the parameters; FALSE refuses the
    // creation.
    virtual BOOL PreCreateWindow(CREATESTRUCTW& parameters);
    // The window exists and is attached, but this object does not get its messages yet.
    virtual void PreSubclassWindow();
    // The window was destroyed and detached and is no longer the application's main window. `delete
    // this` is allowed here.
    virtual void PostNcDestroy();

    // An exception that leaves WindowProc is caught: CWinApp::ProcessWndProcException reports it.
    // The result of the message is then 0; for WM_CREATE it is -1, which destroys the window.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // FALSE when there is no handler; *result is then unchanged.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    // Calls the window's own procedure.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // Calls DefWindowProc for the current message.
    LRESULT Default();
    // The current message: window, number and parameters. Read it at once, do not store it.
    static const MSG* GetCurrentMessage();

#if defined(_WIN32)
    // Exchanges the data of this window's controls, by the DDX_ and DDV_ functions.
    virtual void DoDataExchange(CDataExchange* exchange);
    // Called with a notification of this control that its parent received. TRUE means that it is
    // handled; the parent's handlers then do not get it.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    // The base handlers, for derived classes to call. Unless a comment says otherwise, they call
    // the window's own procedure with the original message and ignore the arguments.
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
    // Updates the menu's items with the ON_UPDATE_COMMAND_UI handlers of this window.
    void OnInitMenuPopup(CMenu* menu, UINT index, BOOL systemMenu);
    // Try the control's own reflected rows first, then the window's own procedure.
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

    // The rows of the class, or of the object's own class. DECLARE_MESSAGE_MAP declares both.
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

    WNDPROC m_super = nullptr; // the window's own procedure; null: the platform's default
};

namespace quorvel {

// Calls the member of a row for WM_NOTIFY.
template <class Class, class Member>
LRESULT CallNotify(Class* self, Member member, LPARAM lParam) {
    const AFX_NOTIFY& notify = *reinterpret_cast<const AFX_NOTIFY*>(lParam);
    (self->*member)(notify.pNMHDR, notify.pResult);
    return TRUE;
}

} // namespace quorvel
