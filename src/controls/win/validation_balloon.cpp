#include "controls/win/validation_balloon.h"

#include "platform/win32.h"

#include <commctrl.h>

#include <utility>

namespace quorvel {
namespace {

constexpr int kLongestTitle = 99;
constexpr int kWidthInDialogUnits = 220; // of a text line

HWND ParentForFocus(HWND window) {
    return (::GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0 ? ::GetParent(window) : nullptr;
}

// The only tool in the balloon's window. Uses the size for common controls before version 6.
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

bool ActiveValidations::Set() {
    m_hook = ::SetWindowsHookExW(WH_CBT, m_procedure, nullptr, ::GetCurrentThreadId());
    return m_hook != nullptr;
}

void ActiveValidations::Remove() {
    ::UnhookWindowsHookEx(std::exchange(m_hook, nullptr));
}

// Does not hide the balloon: the focus is still changing.
LRESULT ActiveValidations::PassOn(int code, WPARAM wParam, LPARAM lParam) const {
    if (code == HCBT_SETFOCUS) {
        const HWND dialog = DialogOf(reinterpret_cast<HWND>(wParam), ParentForFocus);
        if (dialog != nullptr)
            ::PostMessageW(dialog, kChildSetFocusMessage, wParam, NumberOf(dialog));
    }
    return ::CallNextHookEx(m_hook, code, wParam, lParam);
}

ValidationBalloon::~ValidationBalloon() {
    Forget();
}

BOOL ValidationBalloon::Create(HWND dialog) {
    if (::IsWindow(m_balloon))
        return FALSE;
    Forget(); // removes a balloon that was destroyed with its dialog
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
    if (::MapDialogRect(dialog, &width)) // otherwise each text is one long line
        ::SendMessageW(m_balloon, TTM_SETMAXTIPWIDTH, 0, width.right);
    return TRUE;
}

BOOL ValidationBalloon::Show(UINT icon, const WCHAR* title, const WCHAR* text, const RECT& rect) {
    if (m_balloon == nullptr || title == nullptr || text == nullptr || m_isShowing)
        return FALSE;
    const CString shownTitle = CString(title).Left(kLongestTitle);
    // Without a title the platform shows no icon; an empty title removes the former balloon's icon.
    Send(m_balloon, TTM_SETTITLEW, shownTitle.IsEmpty() ? TTI_NONE : icon, shownTitle.GetString());
    TOOLINFOW tool = ToolOf(m_dialog);
    CString shownText(text[0] != 0 ? text : L" ");
    tool.lpszText = shownText.GetBuffer();
    Send(m_balloon, TTM_UPDATETIPTEXTW, 0, &tool);
    const POINT corner = CornerOf(m_dialog);
    const POINT stem = {rect.left + (rect.right - rect.left) / 2, rect.bottom};
    m_stem = {stem.x - corner.x, stem.y - corner.y};
    MoveTo(stem);
    Send(m_balloon, TTM_TRACKACTIVATE, TRUE, &tool);
    m_isShowing = true;
    m_active.Show(m_dialog, m_balloon);
    return TRUE;
}

BOOL ValidationBalloon::Hide() {
    if (!m_isShowing)
        return FALSE;
    TOOLINFOW tool = ToolOf(m_dialog);
    Send(m_balloon, TTM_TRACKACTIVATE, FALSE, &tool);
    m_isShowing = false;
    m_active.Hide(m_dialog);
    return TRUE;
}

void ValidationBalloon::OnFocusChange(LPARAM balloonNumber) {
    if (balloonNumber == 0 || balloonNumber == m_active.NumberOf(m_dialog))
        Hide();
}

void ValidationBalloon::Follow() {
    if (!m_isShowing)
        return;
    const POINT corner = CornerOf(m_dialog);
    MoveTo({corner.x + m_stem.x, corner.y + m_stem.y});
}

void ValidationBalloon::Forget() {
    Hide();
    if (::IsWindow(m_balloon))
        ::DestroyWindow(m_balloon);
    m_balloon = nullptr;
    m_dialog = nullptr;
}

void ValidationBalloon::MoveTo(POINT point) {
    ::SendMessageW(m_balloon, TTM_TRACKPOSITION, 0, MAKELPARAM(point.x, point.y));
}

} // namespace quorvel
