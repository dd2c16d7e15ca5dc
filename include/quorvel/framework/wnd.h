// CWnd: a window and the object that stands for it, and the message maps that lead its messages to
// members.
//
// An object is used on the thread that created its window. Each thread has a map from windows to
// their objects: permanent ones, which were attached or created their window, and temporary ones,
// which FromHandle makes for any other window and which last until that window is gone; they are
// used at once and not stored.
//
// Size, position, visibility, focus and fonts exist on Windows only.
#pragma once

#include <quorvel/framework/object.h>
#include <quorvel/framework/string.h>

#if defined(_WIN32)
class CFont;
#endif
class CWnd;
namespace quorvel {
struct WindowCallbacks;
}

// A row of a message map: the message, for WM_COMMAND and WM_NOTIFY also the notification code and
// the controls' ids from nID to nLastID, and the call of the member.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage; // 0 ends the table
    UINT nCode;
    UINT nID;
    UINT nLastID;
    LRESULT (*pfn)(CWnd* wnd, WPARAM wParam, LPARAM lParam);
};
struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)(); // null for CWnd
    const AFX_MSGMAP_ENTRY* lpEntries;
};

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

// The rows. `call` is an expression over `self`, `wParam` and `lParam`; its value is the message's
// result. A handler that has not dealt with its message wholly returns Default().
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

// void OnTimer(UINT id)
#define ON_WM_TIMER()                                                                              \
    QUORVEL_MESSAGE_ROW(WM_TIMER, 0, 0, 0, (self->OnTimer(static_cast<UINT>(wParam)), LRESULT{0}))

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

#if defined(_WIN32)
    // Each forwards to the platform's function of its name.
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void GetClientRect(RECT* rect) const;
    void GetWindowRect(RECT* rect) const;
    void MoveWindow(const RECT& rect, BOOL repaint = TRUE);
    BOOL SetWindowPos(const CWnd* insertAfter, int x, int y, int width, int height, UINT flags);
    BOOL ShowWindow(int command);
    BOOL EnableWindow(BOOL enable = TRUE); // TRUE when it was disabled before
    BOOL IsWindowVisible() const;
    void Invalidate(BOOL erase = TRUE);
    CWnd* SetFocus(); // the window that had it
    CWnd* GetDlgItem(int id) const;
    CFont* GetFont() const; // null: the system font
    void SetFont(CFont* font, BOOL redraw = TRUE);
    void ScreenToClient(RECT* rect) const;
    // TRUE when the style changed. `positionFlags`, when not 0, go to SetWindowPos.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT positionFlags = 0);
    // In the middle of the parent, or of the visible owner, otherwise of the monitor's work area;
    // a window that is no child stays within that area.
    void CenterWindow();
#endif

protected:
    // The window exists and is attached; its messages don't come here yet.
    virtual void PreSubclassWindow();
    // The window is gone and detached, and no longer the application's main window: the place for
    // `delete this`.
    virtual void PostNcDestroy();

    // An exception that leaves WindowProc is dropped, as nothing above it could stand it: the
    // message's result is then 0, or -1 for WM_CREATE, which takes the window back.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // FALSE when there is no handler; *result is then unchanged.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    // The window's own procedure.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // DefWindowProc for the message that is being handled.
    LRESULT Default();

    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;

private:
    friend struct quorvel::WindowCallbacks;
    const AFX_MSGMAP_ENTRY* FindEntry(UINT message, UINT code, UINT id) const;
    LRESULT Dispatch(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void FinishDestroy() noexcept;
    void InstallProcedure();

    WNDPROC m_super = nullptr; // the window's own procedure; null: the platform's default one
};

namespace quorvel {

template <class Class, class Member>
LRESULT CallNotify(Class* self, Member member, LPARAM lParam) {
    LRESULT result = 0;
    (self->*member)(reinterpret_cast<NMHDR*>(lParam), &result);
    return result;
}

} // namespace quorvel
