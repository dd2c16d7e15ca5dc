#include <quorvel/framework/wnd.h>

#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>

#include "framework/common_controls.h"
#include "framework/handle_map.h"
#include "framework/handler_exception.h"
#include "framework/message_map_cache.h"
#include "framework/system_changes.h"
#include "platform/win32.h"

#include <utility>

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

// The callbacks for the platform.
struct quorvel::WindowCallbacks {
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK CreationHook(int code, WPARAM wParam, LPARAM lParam);
};

namespace {

struct WindowTraits {
    typedef CWnd Object;
    typedef HWND Handle;
    static CWnd* Make(HWND window) {
        CWnd* const wnd = new CWnd;
        wnd->m_hWnd = window;
        return wnd;
    }
    static void Release(CWnd* wnd) { wnd->m_hWnd = nullptr; }
    static bool IsAlive(HWND window) { return ::IsWindow(window) != FALSE; }
};

struct WindowState {
    quorvel::HandleMap<WindowTraits> windows;
    MSG current = {};        // being handled; CWnd::Default uses it
    CWnd* awaited = nullptr; // the object of the next window that is created
    HHOOK creationHook = nullptr;
    quorvel::MessageMapCache rows;
};

WindowState& State() {
    return quorvel::ThreadState<WindowState>();
}

// Handlers send messages: the outer message is current again after the inner one.
class CurrentMessage {
public:
    explicit CurrentMessage(const MSG& message)
        : m_current(State().current), m_outer(std::exchange(m_current, message)) {}
    CurrentMessage(const CurrentMessage&) = delete;
    ~CurrentMessage() { m_current = m_outer; }

private:
    MSG& m_current;
    const MSG m_outer;
};

void ReleaseCreationHook() {
    const HHOOK hook = std::exchange(State().creationHook, nullptr);
    if (hook == nullptr)
        return;
    const DWORD error = ::GetLastError(); // the error of the creation, for the caller
    ::UnhookWindowsHookEx(hook);
    ::SetLastError(error);
}

// The input method creates helper windows with a thread's first window.
bool IsInputMethodWindow(HWND window) {
    WCHAR name[20];
    if (::GetClassNameW(window, name, static_cast<int>(std::size(name))) == 0)
        return false;
    const CString className(name);
    return className == _T("IME") || className == _T("MSCTFIME UI");
}

} // namespace

CWnd::CWnd() : m_hWnd(nullptr) {}

CWnd::~CWnd() {
    if (m_hWnd != nullptr)
        CWnd::DestroyWindow();
}

CWnd* CWnd::FromHandle(HWND window) {
    return window != nullptr ? State().windows.FindOrMake(window) : nullptr;
}

CWnd* CWnd::FromHandlePermanent(HWND window) {
    return State().windows.FindPermanent(window);
}

BOOL CWnd::Attach(HWND window) {
    if (window == nullptr || m_hWnd != nullptr || !State().windows.AddPermanent(window, this))
        return FALSE;
    m_hWnd = window;
    return TRUE;
}

HWND CWnd::Detach() {
    const HWND window = std::exchange(m_hWnd, nullptr);
    if (window != nullptr)
        State().windows.RemovePermanent(window);
    return window;
}

void CWnd::InstallProcedure() {
    const LONG_PTR own = reinterpret_cast<LONG_PTR>(&quorvel::WindowCallbacks::Procedure);
    const LONG_PTR previous = ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, own);
    if (previous != own)
        m_super = reinterpret_cast<WNDPROC>(previous);
}

BOOL CWnd::SubclassWindow(HWND window) {
    if (!::IsWindow(window) || !Attach(window))
        return FALSE;
    PreSubclassWindow();
    InstallProcedure();
    return TRUE;
}

HWND CWnd::UnsubclassWindow() {
    const WNDPROC super = std::exchange(m_super, nullptr);
    if (m_hWnd != nullptr && super != nullptr)
        ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(super));
    return Detach();
}

void AfxHookWindowCreate(CWnd* wnd) {
    WindowState& state = State();
    state.awaited = wnd;
    if (state.creationHook == nullptr)
        state.creationHook = ::SetWindowsHookExW(WH_CBT, &quorvel::WindowCallbacks::CreationHook,
                                                 nullptr, ::GetCurrentThreadId());
}

BOOL AfxUnhookWindowCreate() {
    ReleaseCreationHook();
    return std::exchange(State().awaited, nullptr) == nullptr;
}

LRESULT CALLBACK quorvel::WindowCallbacks::CreationHook(int code, WPARAM wParam, LPARAM lParam) {
    WindowState& state = State();
    const HWND window = reinterpret_cast<HWND>(wParam);
    if (code != HCBT_CREATEWND || state.awaited == nullptr || IsInputMethodWindow(window))
        return ::CallNextHookEx(state.creationHook, code, wParam, lParam);
    CWnd* const wnd = std::exchange(state.awaited, nullptr);
    bool accepted = false;
    try {
        accepted = wnd->Attach(window) != FALSE;
        wnd->PreSubclassWindow();
        wnd->InstallProcedure();
    } catch (...) { // no exception may leave a hook
        accepted = false;
    }
    accepted = ::CallNextHookEx(state.creationHook, code, wParam, lParam) == 0 && accepted;
    ReleaseCreationHook();
    if (accepted)
        return 0;
    wnd->UnsubclassWindow(); // the refused window gets no message that would do this
    state.awaited = wnd;
    return 1;
}

BOOL CWnd::Create(const WCHAR* className, const WCHAR* windowName, DWORD style, const RECT& rect,
                  CWnd* parent, UINT id) {
    return CreateEx(0, className, windowName, style | WS_CHILD, rect.left, rect.top,
                    rect.right - rect.left, rect.bottom - rect.top,
                    parent != nullptr ? parent->m_hWnd : nullptr,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)));
}

BOOL CWnd::CreateEx(DWORD extendedStyle, const WCHAR* className, const WCHAR* windowName,
                    DWORD style, int x, int y, int width, int height, HWND parentOrOwner,
                    HMENU menuOrId, LPVOID parameter) {
    if (m_hWnd != nullptr)
        return FALSE;
#if defined(_WIN32)
    quorvel::RegisterCommonControls();
#endif
    CREATESTRUCTW creation = {parameter,
                              nullptr,
                              menuOrId,
                              parentOrOwner,
                              height,
                              width,
                              y,
                              x,
                              static_cast<LONG>(style),
                              windowName,
                              className,
                              extendedStyle};
    if (!PreCreateWindow(creation)) {
        PostNcDestroy();
        return FALSE;
    }
    AfxHookWindowCreate(this);
    const HWND window = ::CreateWindowExW(
        creation.dwExStyle, creation.lpszClass, creation.lpszName,
        static_cast<DWORD>(creation.style), creation.x, creation.y, creation.cx, creation.cy,
        creation.hwndParent, creation.hMenu, creation.hInstance, creation.lpCreateParams);
    if (!AfxUnhookWindowCreate()) {
        PostNcDestroy(); // it failed before a window existed that would get WM_NCDESTROY
        return FALSE;
    }
    return window != nullptr; // otherwise this object may have been deleted
}

BOOL CWnd::DestroyWindow() {
    const HWND window = m_hWnd;
    if (window == nullptr)
        return FALSE;
    const bool permanent = FromHandlePermanent(window) == this;
    const BOOL destroyed = ::DestroyWindow(window);
    // Normally WM_NCDESTROY has detached the window, and this object may be deleted. A window that
    // was only attached, or no longer has our procedure, does not send it here.
    if (destroyed && permanent && FromHandlePermanent(window) == this)
        Detach();
    return destroyed;
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendMessageW(m_hWnd, message, wParam, lParam);
}

void CWnd::GetWindowText(CString& text) const {
    const int length = ::GetWindowTextLengthW(m_hWnd);
    ::GetWindowTextW(m_hWnd, text.GetBuffer(length), length + 1);
    text.ReleaseBuffer();
}

BOOL CWnd::SetWindowText(const WCHAR* text) {
    return ::SetWindowTextW(m_hWnd, text);
}

DWORD CWnd::GetStyle() const {
    return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE));
}

int CWnd::GetDlgCtrlID() const {
    return ::GetDlgCtrlID(m_hWnd);
}

CWnd* CWnd::GetParent() const {
    return FromHandle(::GetParent(m_hWnd));
}

BOOL CWnd::PreCreateWindow(CREATESTRUCTW&) {
    return TRUE;
}

void CWnd::PreSubclassWindow() {}

void CWnd::PostNcDestroy() {}

LRESULT CALLBACK quorvel::WindowCallbacks::Procedure(HWND window, UINT message, WPARAM wParam,
                                                     LPARAM lParam) {
    CWnd* const wnd = CWnd::FromHandlePermanent(window);
    if (wnd == nullptr)
        return ::DefWindowProcW(window, message, wParam, lParam);
    const LRESULT result = wnd->Dispatch(message, wParam, lParam);
    // After other messages the object may be deleted, because its window may have been destroyed.
    if (message == WM_NCDESTROY && CWnd::FromHandlePermanent(window) == wnd)
        wnd->FinishDestroy();
    return result;
}

LRESULT CWnd::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const MSG dispatched = {m_hWnd, message, wParam, lParam, 0, {}};
    const CurrentMessage current(dispatched);
    try {
        const LRESULT result = WindowProc(message, wParam, lParam);
#if defined(_WIN32)
        quorvel::PassOnChange(dispatched.hwnd, message, wParam, lParam);
#endif
        return result;
    } catch (...) {
        return quorvel::EndHandlerException(dispatched);
    }
}

void CWnd::FinishDestroy() noexcept {
    UnsubclassWindow();
    if (AfxGetMainWnd() == this)
        AfxGetApp()->m_pMainWnd = nullptr; // it may be deleted before the application
#if defined(_WIN32)
    if (m_modal == Modal::Running)
        EndModalLoop(-1);
#endif
    try {
        PostNcDestroy();
    } catch (...) {
        quorvel::EndHandlerException({});
    }
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return OnWndMsg(message, wParam, lParam, &result) ? result
                                                      : DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_COMMAND) {
        if (!OnCommand(wParam, lParam))
            return FALSE;
        *result = 1;
        return TRUE;
    }
    if (message == WM_NOTIFY)
        return OnNotify(wParam, lParam, result);
    const AFX_MSGMAP_ENTRY* const entry = FindEntry(message, 0, 0);
    if (entry == nullptr)
#if defined(_WIN32)
        return ReflectToControl(message, wParam, lParam, result);
#else
        return FALSE;
#endif
    *result = entry->pfn(this, wParam, lParam);
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
#if defined(_WIN32)
    if (IsEndOfCommand(wParam, lParam))
        return TRUE;
#endif
    const int code = lParam != 0 ? HIWORD(wParam) : CN_COMMAND; // for an accelerator, HIWORD is 1
    return OnCmdMsg(LOWORD(wParam), code, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
#if defined(_WIN32)
    if (IsEndOfNotify(wParam, lParam, result))
        return TRUE;
#endif
    NMHDR* const header = reinterpret_cast<NMHDR*>(lParam);
    const AFX_MSGMAP_ENTRY* const entry =
        FindEntry(WM_NOTIFY, header->code, static_cast<UINT>(header->idFrom));
    if (entry == nullptr)
        return FALSE;
    *result = 0;
    const AFX_NOTIFY notify = {result, header};
    return entry->pfn(this, wParam, reinterpret_cast<LPARAM>(&notify)) != 0;
}

BOOL CWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) {
    const AFX_MSGMAP_ENTRY* const entry = FindEntry(WM_COMMAND, static_cast<UINT>(code), id);
    if (entry == nullptr)
        return FALSE;
    if (info == nullptr)
        return entry->pfn(this, id, reinterpret_cast<LPARAM>(extra)) != 0;
    info->pTarget = this;
    return TRUE;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return m_super != nullptr ? ::CallWindowProcW(m_super, m_hWnd, message, wParam, lParam)
                              : ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

const MSG* CWnd::GetCurrentMessage() {
    return &State().current;
}

LRESULT CWnd::Default() {
    const MSG message = State().current;
    return DefWindowProc(message.message, message.wParam, message.lParam);
}

#if defined(_WIN32)
LRESULT CWnd::ReflectOrDefault() {
    const MSG message = State().current;
    LRESULT result = 0;
    return ReflectToControl(message.message, message.wParam, message.lParam, &result) ? result
                                                                                      : Default();
}
#endif

const AFX_MSGMAP* CWnd::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY s_entries[] = {{0, 0, 0, 0, nullptr}};
    static const AFX_MSGMAP s_map = {nullptr, s_entries};
    return &s_map;
}

const AFX_MSGMAP* CWnd::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_MSGMAP_ENTRY* CWnd::FindEntry(UINT message, UINT code, UINT id) const {
    const AFX_MSGMAP* const map = GetMessageMap();
    return map != nullptr ? State().rows.Find(*map, message, code, id) : nullptr;
}
