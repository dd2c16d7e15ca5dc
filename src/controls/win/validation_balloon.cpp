#include "controls/win/validation_balloon.h"

#include <quorvel/framework/string.h>

#include "controls/validation_tracker.h"
#include "platform/win32.h"

#include <commctrl.h>

#include <utility>

namespace quorvel {
namespace {

constexpr int kLongestTitle = 99;
constexpr int kWidthInDialogUnits = 220; // of a line of text

HWND ParentForFocus(HWND window) {
    if ((::GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0)
        return ::GetParent(window);
    // A balloon belongs to its dialog. Any other window that is owned is a dialog of its own.
    WCHAR name[24];
    return ::GetClassNameW(window, name, 24) != 0 && CString(name) == TOOLTIPS_CLASSW
               ? ::GetWindow(window, GW_OWNER)
               : nullptr;
}

class ThreadFocusHook final : public FocusHook {
public:
    bool Set() override;
    void Remove() override { ::UnhookWindowsHookEx(std::exchange(m_hook, nullptr)); }
    HHOOK Handle() const { return m_hook; }

private:
    HHOOK m_hook = nullptr;
};

// Shared by all dialogs and pages of the user-interface thread.
struct ActiveValidations {
    ThreadFocusHook hook;
    ValidationTracker tracker{hook};
};

ActiveValidations& Active() {
    static ActiveValidations active;
    return active;
}

// The balloon is not hidden here: the focus is still on its way.
LRESULT CALLBACK FocusProcedure(int code, WPARAM wParam, LPARAM lParam) {
    const HWND focused = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_SETFOCUS && focused != nullptr) {
        const HWND dialog = Active().tracker.DialogOf(focused, ParentForFocus);
        if (dialog != nullptr)
            ::PostMessageW(dialog, kChildSetFocusMessage, wParam, 0);
    }
    return ::CallNextHookEx(Active().hook.Handle(), code, wParam, lParam);
}

bool ThreadFocusHook::Set() {
    m_hook = ::SetWindowsHookExW(WH_CBT, FocusProcedure, nullptr, ::GetCurrentThreadId());
    return m_hook != nullptr;
}

// The one tool of the balloon's window. The size is that of common controls before version 6 too.
TOOLINFOW ToolOf(HWND dialog) {
    TOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_CENTERTIP | TTF_TRACK | TTF_ABSOLUTE;
    tool.hwnd = dialog;
    tool.uId = reinterpret_cast<UINT_PTR>(dialog);
    return tool;
}

template <class Parameter>
LRESULT Send(HWND window, UINT message, WPARAM wParam, Parameter* parameter) {
    return ::SendMessageW(window, message, wParam, reinterpret_cast<LPARAM>(parameter));
}

POINT CornerOf(HWND window) {
    RECT rect = {};
    ::GetWindowRect(window, &rect);
    return {rect.left, rect.top};
}

} // namespace

ValidationBalloon::~ValidationBalloon() {
    Forget();
}

BOOL ValidationBalloon::Create(HWND dialog) {
    if (m_balloon != nullptr)
        return FALSE;
    m_balloon = ::CreateWindowExW(
        0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_BALLOON | TTS_NOPREFIX, CW_USEDEFAULT,
        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr, nullptr, nullptr);
    if (m_balloon == nullptr)
        return FALSE;
    m_dialog = dialog;
    TOOLINFOW tool = ToolOf(dialog);
    WCHAR empty[] = L"";
    tool.lpszText = empty;
    Send(m_balloon, TTM_ADDTOOLW, 0, &tool);
    RECT width = {0, 0, kWidthInDialogUnits, 0};
    if (::MapDialogRect(dialog, &width)) // otherwise a text is one line, however long
        ::SendMessageW(m_balloon, TTM_SETMAXTIPWIDTH, 0, width.right);
    return TRUE;
}

BOOL ValidationBalloon::Show(UINT icon, const WCHAR* title, const WCHAR* text, const RECT& rect) {
    if (m_balloon == nullptr || title == nullptr || text == nullptr || m_isShowing)
        return FALSE;
    const CString shownTitle = CString(title).Left(kLongestTitle);
    // Without a title there is no icon either; an empty one takes away that of the balloon before.
    Send(m_balloon, TTM_SETTITLEW, shownTitle.IsEmpty() ? TTI_NONE : icon, shownTitle.GetString());
    TOOLINFOW tool = ToolOf(m_dialog);
    CString shownText(text);
    tool.lpszText = shownText.GetBuffer();
    Send(m_balloon, TTM_UPDATETIPTEXTW, 0, &tool);
    const POINT corner = CornerOf(m_dialog);
    const POINT stem = {rect.left + (rect.right - rect.left) / 2, rect.bottom};
    m_stem = {stem.x - corner.x, stem.y - corner.y};
    MoveTo(stem);
    Send(m_balloon, TTM_TRACKACTIVATE, TRUE, &tool);
    m_isShowing = true;
    Active().tracker.Show(m_dialog);
    return TRUE;
}

BOOL ValidationBalloon::Hide() {
    if (!m_isShowing)
        return FALSE;
    TOOLINFOW tool = ToolOf(m_dialog);
    Send(m_balloon, TTM_TRACKACTIVATE, FALSE, &tool);
    m_isShowing = false;
    Active().tracker.Hide(m_dialog);
    return TRUE;
}

void ValidationBalloon::Follow() {
    if (!m_isShowing)
        return;
    const POINT corner = CornerOf(m_dialog);
    MoveTo({corner.x + m_stem.x, corner.y + m_stem.y});
}

void ValidationBalloon::Forget() {
    Hide();
    m_balloon = nullptr;
    m_dialog = nullptr;
}

void ValidationBalloon::MoveTo(POINT point) {
    ::SendMessageW(m_balloon, TTM_TRACKPOSITION, 0, MAKELPARAM(point.x, point.y));
}

} // namespace quorvel
