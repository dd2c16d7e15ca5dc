#include "net/win/mail_modal_state.h"

#include "framework/message_box_owner.h"

namespace quorvel {

namespace {

constexpr UINT_PTR kSubclassId = 1;

// Some mail systems, while they start, enable the program's window behind the compose window.
LRESULT CALLBACK StayDisabled(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                              DWORD_PTR) {
    if (message != WM_ENABLE || !wParam)
        return ::DefSubclassProc(window, message, wParam, lParam);
    ::EnableWindow(window, FALSE);
    ::SetFocus(nullptr);
    return 0;
}

BOOL CALLBACK AddIfUsable(HWND window, LPARAM windows) {
    if (::IsWindowVisible(window) && ::IsWindowEnabled(window))
        reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

} // namespace

MailModalState::MailModalState() : m_owner(MessageBoxOwner()) {
    ::EnumThreadWindows(::GetCurrentThreadId(), AddIfUsable, reinterpret_cast<LPARAM>(&m_disabled));
    for (const HWND window : m_disabled)
        ::EnableWindow(window, FALSE);
    if (m_owner == nullptr)
        return;
    ::SetCapture(m_owner);
    ::SetFocus(nullptr);
    ::SetWindowSubclass(m_owner, StayDisabled, kSubclassId, 0);
}

MailModalState::~MailModalState() {
    if (m_owner != nullptr) {
        if (::GetCapture() == m_owner)
            ::ReleaseCapture();
        ::RemoveWindowSubclass(m_owner, StayDisabled, kSubclassId);
    }
    for (const HWND window : m_disabled)
        if (::IsWindow(window))
            ::EnableWindow(window, TRUE);
    if (::IsWindow(m_owner) && ::IsWindowEnabled(m_owner)) {
        ::SetActiveWindow(m_owner);
        ::SetFocus(m_owner);
    }
}

} // namespace quorvel
