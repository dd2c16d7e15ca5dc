// Each function holds the table's lock while it reads a window and never while it calls a
// procedure. A procedure may create and destroy windows and send messages, so a window may be
// destroyed when it returns. A handle contains its slot's generation, so the handle of a destroyed
// window stays invalid when the slot is used again.
#include "platform/linux/windows/window.h"

#include <quorvel/platform/linux_api.h>

#include "platform/case_fold.h"
#include "platform/linux/slot_table.h"
#include "platform/linux/system/system_error.h"
#include "platform/linux/waits/thread.h"
#include "platform/linux/windows/message_queue.h"

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvel::win32 {

namespace {

constexpr std::size_t kMaxWindows = 10000; // the default limit of a Windows process
constexpr ATOM kFirstAtom = 0xc000;

struct WindowClass {
    std::u16string name;
    HINSTANCE instance;
    WNDPROC procedure;
    ATOM atom;
    int windows = 0;
};

struct Window {
    std::shared_ptr<WindowClass> windowClass;
    WNDPROC procedure;
    HWND parentOrOwner;
    DWORD thread;                        // the procedure runs on this thread only
    std::shared_ptr<MessageQueue> queue; // the queue of that thread
    DWORD style;
    DWORD extendedStyle;
    LONG_PTR id;
    LONG_PTR userData = 0;
    std::u16string text;
    bool destroying = false;
};

using Table = SlotTable<std::unique_ptr<Window>, 0x7fff>;

struct Windows {
    std::mutex mutex;
    std::vector<std::shared_ptr<WindowClass>> classes;
    ATOM nextAtom = kFirstAtom;
    Table table;
};

// Never destroyed: a host's static objects may destroy their windows after ours are destroyed.
Windows& All() {
    static Windows& windows = *new Windows;
    return windows;
}

HWND HandleOf(Table::Key key) {
    return reinterpret_cast<HWND>(UINT_PTR{key.generation} << 16 | (key.index + 1) << 1);
}

Table::Key KeyOf(HWND handle) { // an invalid handle finds nothing
    const UINT_PTR number = reinterpret_cast<UINT_PTR>(handle);
    const Table::Key key = {((number & 0xffff) >> 1) - 1, static_cast<std::uint32_t>(number >> 16)};
    return HandleOf(key) == handle ? key : Table::Key{SIZE_MAX, 0};
}

// Null for an unknown window. The caller holds the lock.
Window* Find(HWND handle) {
    const std::unique_ptr<Window>* const window = All().table.Find(KeyOf(handle));
    return window != nullptr ? window->get() : nullptr;
}

// Calls `use` with the window under the lock. Fails with `failed` for an invalid handle.
template <class Result, class Use>
Result With(HWND handle, Result failed, Use use) {
    const std::lock_guard lock(All().mutex);
    Window* const window = Find(handle);
    if (window != nullptr)
        return use(*window);
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return failed;
}

// A null instance means the program.
HINSTANCE InstanceOf(HINSTANCE instance) {
    return instance != nullptr ? instance : GetModuleHandleW(nullptr);
}

// The name may be an atom, as in all these functions. The caller holds the lock.
std::shared_ptr<WindowClass> FindClass(LPCWSTR name, HINSTANCE instance) {
    for (const std::shared_ptr<WindowClass>& each : All().classes) {
        const bool named = IS_INTRESOURCE(name)
                               ? each->atom == static_cast<ATOM>(reinterpret_cast<UINT_PTR>(name))
                               : EqualIgnoringCase(each->name, name);
        if (named && each->instance == instance)
            return each;
    }
    return nullptr;
}

// Null with the error set when the class or the parent is missing.
HWND Insert(const CREATESTRUCTW& creation) {
    Windows& all = All();
    const std::lock_guard lock(all.mutex);
    const auto fail = [](DWORD error) {
        SetLastError(error);
        return HWND{};
    };
    std::shared_ptr<WindowClass> windowClass = FindClass(creation.lpszClass, creation.hInstance);
    if (windowClass == nullptr)
        return fail(ERROR_CANNOT_FIND_WND_CLASS);
    const bool child = (static_cast<DWORD>(creation.style) & WS_CHILD) != 0;
    if (child && creation.hwndParent == nullptr)
        return fail(ERROR_TLW_WITH_WSCHILD);
    if (creation.hwndParent != nullptr && Find(creation.hwndParent) == nullptr)
        return fail(ERROR_INVALID_WINDOW_HANDLE);
    if (all.table.Count() >= kMaxWindows)
        return fail(ERROR_NO_MORE_USER_HANDLES);
    std::unique_ptr<Window> window(
        new Window{.windowClass = windowClass,
                   .procedure = windowClass->procedure,
                   .parentOrOwner = creation.hwndParent,
                   .thread = GetCurrentThreadId(),
                   .queue = MessageQueue::OfThisThread(),
                   .style = static_cast<DWORD>(creation.style),
                   .extendedStyle = creation.dwExStyle,
                   .id = child ? reinterpret_cast<LONG_PTR>(creation.hMenu) : 0,
                   .text = {}});
    const HWND handle = HandleOf(all.table.Insert(std::move(window)));
    ++windowClass->windows;
    return handle;
}

void Remove(HWND handle) {
    Windows& all = All();
    const std::lock_guard lock(all.mutex);
    const std::unique_ptr<Window> window = all.table.Remove(KeyOf(handle));
    if (window == nullptr)
        return;
    --window->windowClass->windows;
    window->queue->Forget(handle);
}

template <class Predicate>
std::vector<HWND> WindowsThat(Predicate predicate) {
    const std::lock_guard lock(All().mutex);
    std::vector<HWND> found;
    All().table.ForEach([&](Table::Key key, const Window& window) {
        if (predicate(window))
            found.push_back(HandleOf(key));
    });
    return found;
}

// The children of a window, or the pop-up windows that it owns.
std::vector<HWND> Dependents(HWND parentOrOwner, bool children) {
    return WindowsThat([=](const Window& window) {
        return window.parentOrOwner == parentOrOwner &&
               ((window.style & WS_CHILD) != 0) == children;
    });
}

// Removes a window, its children and the windows it owns. Sends no message, because their thread
// has ended.
void Abandon(HWND window) {
    for (const bool children : {true, false})
        for (const HWND dependent : Dependents(window, children))
            Abandon(dependent);
    Remove(window);
}

// Removes the windows of its thread when the thread ends.
class WindowsOfThread {
public:
    WindowsOfThread() = default;
    WindowsOfThread(const WindowsOfThread&) = delete;
    ~WindowsOfThread() {
        for (const HWND window :
             WindowsThat([this](const Window& each) { return each.thread == m_thread; }))
            Abandon(window); // has no effect if its parent's removal has removed it
    }

private:
    const DWORD m_thread = GetCurrentThreadId();
};

// Not for the first thread: it ends with the process, and a host's static objects may destroy their
// windows after that thread's thread_local objects are destroyed.
void EndWindowsWithThread() {
    if (GetCurrentThreadId() != static_cast<DWORD>(getpid()))
        static thread_local const WindowsOfThread t_windows;
}

void SendDestroy(HWND window) {
    SendMessageW(window, WM_DESTROY, 0, 0);
    for (const HWND child : Dependents(window, true))
        SendDestroy(child);
}

void FinishDestroy(HWND window) {
    for (const HWND child : Dependents(window, true))
        FinishDestroy(child);
    SendMessageW(window, WM_NCDESTROY, 0, 0);
    Remove(window);
}

struct Hook {
    HOOKPROC procedure;
};
thread_local std::vector<std::unique_ptr<Hook>> t_hooks; // newest last

auto FindHook(HHOOK hook) {
    return std::find_if(t_hooks.begin(), t_hooks.end(), [hook](const std::unique_ptr<Hook>& each) {
        return reinterpret_cast<HHOOK>(each.get()) == hook;
    });
}

LRESULT CallHooks(int code, WPARAM wParam, LPARAM lParam) {
    return t_hooks.empty() ? 0 : t_hooks.back()->procedure(code, wParam, lParam);
}

// Returns FALSE when the hook or the procedure refuses the window, which is then destroyed.
bool FinishCreate(HWND window, CREATESTRUCTW& creation) {
    CBT_CREATEWNDW event = {&creation, nullptr};
    if (CallHooks(HCBT_CREATEWND, reinterpret_cast<WPARAM>(window),
                  reinterpret_cast<LPARAM>(&event)) != 0) {
        Remove(window);
        return false;
    }
    const LPARAM lParam = reinterpret_cast<LPARAM>(&creation);
    if (SendMessageW(window, WM_NCCREATE, 0, lParam) == 0) {
        FinishDestroy(window);
        return false;
    }
    if (SendMessageW(window, WM_CREATE, 0, lParam) == -1) {
        FinishDestroy(window);
        return false;
    }
    return IsWindow(window) != FALSE;
}

// System messages whose parameters point to the sender's memory, which may be invalid when a posted
// message is dispatched.
bool CarriesPointer(UINT message) {
    static constexpr std::pair<UINT, UINT> kRanges[] = {
        // clang-format off
        {0x001, 0x001}, {0x00c, 0x00d}, {0x01a, 0x01b}, {0x024, 0x024}, {0x02b, 0x02d},
        {0x039, 0x039}, {0x046, 0x047}, {0x04a, 0x04a}, {0x053, 0x053}, {0x07c, 0x07d},
        {0x081, 0x081}, {0x083, 0x083}, {0x087, 0x087}, {0x0b0, 0x0b0}, {0x0b2, 0x0b4},
        {0x0c2, 0x0c2}, {0x0c4, 0x0c4}, {0x0cb, 0x0cb}, {0x0e3, 0x0e3}, {0x0e9, 0x0eb},
        {0x140, 0x140}, {0x143, 0x143}, {0x145, 0x145}, {0x148, 0x148}, {0x14a, 0x14a},
        {0x14c, 0x14d}, {0x152, 0x152}, {0x158, 0x158}, {0x180, 0x181}, {0x189, 0x189},
        {0x18c, 0x18d}, {0x18f, 0x18f}, {0x191, 0x192}, {0x196, 0x196}, {0x198, 0x198},
        {0x1a2, 0x1a2}, {0x213, 0x214}, {0x216, 0x216}, {0x220, 0x220}, {0x229, 0x22b},
        {0x22d, 0x22f}, {0x30c, 0x30c},
        // clang-format on
    };
    return std::ranges::any_of(kRanges, [message](const std::pair<UINT, UINT>& range) {
        return message >= range.first && message <= range.second;
    });
}

void SetText(HWND handle, LPCWSTR text) {
    With(handle, 0, [&](Window& window) {
        window.text = text != nullptr ? text : u"";
        return 0;
    });
}

LRESULT CopyText(HWND handle, WPARAM size, LPARAM buffer) {
    return With(handle, LRESULT{0}, [&](Window& window) -> LRESULT {
        if (size == 0)
            return 0;
        WCHAR* const text = reinterpret_cast<WCHAR*>(buffer);
        const std::size_t length = window.text.copy(text, size - 1);
        text[length] = 0;
        return static_cast<LRESULT>(length);
    });
}

// The window's word with that index; 0 for an unknown index.
LONG_PTR ReadWord(const Window& window, int index) {
    switch (index) {
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR>(window.procedure);
    case GWLP_ID:
        return window.id;
    case GWL_STYLE:
        return static_cast<LONG>(window.style);
    case GWL_EXSTYLE:
        return static_cast<LONG>(window.extendedStyle);
    case GWLP_USERDATA:
        return window.userData;
    default:
        SetLastError(ERROR_INVALID_INDEX);
        return 0;
    }
}

void WriteWord(Window& window, int index, LONG_PTR value) {
    switch (index) {
    case GWLP_WNDPROC:
        window.procedure = reinterpret_cast<WNDPROC>(value);
        break;
    case GWLP_ID:
        window.id = value;
        break;
    case GWL_STYLE:
        window.style = static_cast<DWORD>(value);
        break;
    case GWL_EXSTYLE:
        window.extendedStyle = static_cast<DWORD>(value);
        break;
    case GWLP_USERDATA:
        window.userData = value;
        break;
    }
}

} // namespace

ATOM RegisterClassExW(const WNDCLASSEXW* windowClass) {
    const auto fail = [](DWORD error) {
        SetLastError(error);
        return ATOM{0};
    };
    if (windowClass == nullptr || windowClass->cbSize != sizeof *windowClass ||
        windowClass->lpfnWndProc == nullptr || windowClass->cbClsExtra != 0 ||
        windowClass->cbWndExtra != 0 || IS_INTRESOURCE(windowClass->lpszClassName))
        return fail(ERROR_INVALID_PARAMETER);
    const HINSTANCE instance = InstanceOf(windowClass->hInstance);
    Windows& all = All();
    const std::lock_guard lock(all.mutex);
    if (FindClass(windowClass->lpszClassName, instance) != nullptr)
        return fail(ERROR_CLASS_ALREADY_EXISTS);
    if (all.nextAtom == 0)
        return fail(ERROR_NOT_ENOUGH_MEMORY);
    all.classes.push_back(std::make_shared<WindowClass>(
        WindowClass{windowClass->lpszClassName, instance, windowClass->lpfnWndProc, all.nextAtom}));
    return all.nextAtom++;
}

BOOL UnregisterClassW(LPCWSTR name, HINSTANCE instance) {
    instance = InstanceOf(instance);
    Windows& all = All();
    const std::lock_guard lock(all.mutex);
    const std::shared_ptr<WindowClass> found = FindClass(name, instance);
    if (found == nullptr || found->windows != 0) {
        SetLastError(found == nullptr ? ERROR_CLASS_DOES_NOT_EXIST : ERROR_CLASS_HAS_WINDOWS);
        return FALSE;
    }
    std::erase(all.classes, found);
    return TRUE;
}

HWND CreateWindowExW(DWORD extendedStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x,
                     int y, int width, int height, HWND parentOrOwner, HMENU menuOrId,
                     HINSTANCE instance, LPVOID parameter) {
    EndWindowsWithThread();
    CREATESTRUCTW creation = {
        parameter, InstanceOf(instance),     menuOrId, parentOrOwner, height,       width, y,
        x,         static_cast<LONG>(style), text,     className,     extendedStyle};
    const HWND window = Insert(creation);
    return window != nullptr && FinishCreate(window, creation) ? window : nullptr;
}

BOOL DestroyWindow(HWND handle) {
    // A nested call has no effect: the window is already being destroyed.
    enum Answer { kRefused, kInProgress, kDestroy };
    const Answer answer = With(handle, kRefused, [](Window& window) {
        if (window.thread != GetCurrentThreadId()) {
            SetLastError(ERROR_ACCESS_DENIED);
            return kRefused;
        }
        return std::exchange(window.destroying, true) ? kInProgress : kDestroy;
    });
    if (answer != kDestroy)
        return answer == kInProgress;
    for (const HWND owned : Dependents(handle, false))
        DestroyWindow(owned);
    SendDestroy(handle);
    FinishDestroy(handle);
    return TRUE;
}

BOOL IsWindow(HWND handle) {
    return With(handle, FALSE, [](Window&) { return TRUE; });
}

LRESULT SendMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const WNDPROC procedure = With(handle, WNDPROC{}, [](Window& window) -> WNDPROC {
        if (window.thread == GetCurrentThreadId())
            return window.procedure;
        SetLastError(ERROR_ACCESS_DENIED);
        return nullptr;
    });
    return procedure != nullptr ? procedure(handle, message, wParam, lParam) : 0;
}

BOOL PostMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (CarriesPointer(message))
        return FailWith(ERROR_MESSAGE_SYNC_ONLY);
    const auto post = [=](MessageQueue& queue) {
        return queue.Post(handle, message, wParam, lParam) || FailWith(ERROR_NOT_ENOUGH_QUOTA);
    };
    if (handle == nullptr)
        return post(*MessageQueue::OfThisThread());
    return With(handle, FALSE, [&post](Window& window) -> BOOL { return post(*window.queue); });
}

UINT_PTR SetTimer(HWND handle, UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    if (handle == nullptr)
        return MessageQueue::OfThisThread()->SetTimer(nullptr, id, milliseconds, procedure);
    return With(handle, UINT_PTR{0}, [=](Window& window) {
        return window.queue->SetTimer(handle, id, milliseconds, procedure);
    });
}

BOOL KillTimer(HWND handle, UINT_PTR id) {
    if (handle == nullptr)
        return MessageQueue::OfThisThread()->KillTimer(nullptr, id);
    return With(handle, FALSE,
                [=](Window& window) -> BOOL { return window.queue->KillTimer(handle, id); });
}

LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                        LPARAM lParam) {
    return procedure != nullptr ? procedure(window, message, wParam, lParam) : 0;
}

LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_NCCREATE:
        SetText(window, reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpszName);
        return TRUE;
    case WM_SETTEXT:
        SetText(window, reinterpret_cast<LPCWSTR>(lParam));
        return TRUE;
    case WM_GETTEXT:
        return CopyText(window, wParam, lParam);
    case WM_GETTEXTLENGTH:
        return With(window, LRESULT{0},
                    [](Window& found) { return static_cast<LRESULT>(found.text.size()); });
    case WM_CLOSE:
        DestroyWindow(window);
        return 0;
    default:
        return 0;
    }
}

LONG_PTR GetWindowLongPtrW(HWND handle, int index) {
    return With(handle, LONG_PTR{0}, [index](Window& window) { return ReadWord(window, index); });
}

LONG_PTR SetWindowLongPtrW(HWND handle, int index, LONG_PTR value) {
    return With(handle, LONG_PTR{0}, [index, value](Window& window) {
        const LONG_PTR previous = ReadWord(window, index);
        WriteWord(window, index, value);
        return previous;
    });
}

int GetClassNameW(HWND handle, LPWSTR name, int size) {
    if (size <= 0) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    return With(handle, 0, [name, size](Window& window) {
        const std::size_t length =
            window.windowClass->name.copy(name, static_cast<std::size_t>(size) - 1);
        name[length] = 0;
        return static_cast<int>(length);
    });
}

int GetWindowTextW(HWND window, LPWSTR text, int size) {
    if (size <= 0)
        return 0;
    *text = 0;
    return static_cast<int>(SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(size),
                                         reinterpret_cast<LPARAM>(text)));
}

int GetWindowTextLengthW(HWND window) {
    return static_cast<int>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
}

BOOL SetWindowTextW(HWND window, LPCWSTR text) {
    return SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != 0;
}

int GetDlgCtrlID(HWND handle) {
    return With(handle, 0, [](Window& window) { return static_cast<int>(window.id); });
}

HWND GetParent(HWND handle) {
    return With(handle, HWND{}, [](Window& window) {
        return (window.style & (WS_CHILD | WS_POPUP)) != 0 ? window.parentOrOwner : nullptr;
    });
}

HHOOK SetWindowsHookExW(int kind, HOOKPROC procedure, HINSTANCE, DWORD thread) {
    if (kind != WH_CBT || procedure == nullptr || thread != GetCurrentThreadId()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    t_hooks.push_back(std::make_unique<Hook>(Hook{procedure}));
    return reinterpret_cast<HHOOK>(t_hooks.back().get());
}

BOOL UnhookWindowsHookEx(HHOOK hook) {
    const auto found = FindHook(hook);
    if (found == t_hooks.end()) {
        SetLastError(ERROR_INVALID_HOOK_HANDLE);
        return FALSE;
    }
    t_hooks.erase(found);
    return TRUE;
}

LRESULT CallNextHookEx(HHOOK hook, int code, WPARAM wParam, LPARAM lParam) {
    const auto found = FindHook(hook);
    if (found == t_hooks.begin() || found == t_hooks.end())
        return 0;
    return (*std::prev(found))->procedure(code, wParam, lParam);
}

} // namespace quorvel::win32
