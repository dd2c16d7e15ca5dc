#include "update/win/update_progress_pane.h"

#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace quorvel {

namespace {

// The visible window of the owner that takes input, and is no pane; null for none.
HWND FindModalWindow(HWND owner) {
    for (HWND window = ::GetWindow(::GetDesktopWindow(), GW_CHILD); window != nullptr;
         window = ::GetWindow(window, GW_HWNDNEXT)) {
        const bool isPane =
            dynamic_cast<UpdateProgressPane*>(CWnd::FromHandlePermanent(window)) != nullptr;
        if (::GetWindow(window, GW_OWNER) == owner && ::IsWindowVisible(window) &&
            ::IsWindowEnabled(window) && !isPane)
            return window;
    }
    return nullptr;
}

} // namespace

UpdateProgressPane::UpdateProgressPane(UINT templateId, std::function<void()> onCancel)
    : CVaskDialog(templateId), m_onCancel(std::move(onCancel)) {
    SetCaptionID(kTextUpdatesProgressTitle);
}

UpdateProgressPane::~UpdateProgressPane() {
    DestroyWindow();
}

BOOL UpdateProgressPane::Create(CWnd* owner) {
    return CVaskDialog::Create(owner);
}

void UpdateProgressPane::Show() {
    SetText(_T(""));
    SetFigures(0, 0, _T(""));
    CRect place;
    CRect around;
    GetWindowRect(place);
    GetParent()->GetWindowRect(around);
    SetWindowPos(nullptr, (around.left + around.right - place.Width()) / 2,
                 (around.top + around.bottom - place.Height()) / 2, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(SW_SHOW);
    UpdateWindow();
}

// Activates another window first; otherwise the system would activate any: the owner, or the modal
// window over it that has disabled it.
void UpdateProgressPane::Hide() {
    if (m_hWnd == nullptr || !IsWindowVisible())
        return;
    const HWND owner = GetParent()->m_hWnd;
    const HWND next = ::IsWindowEnabled(owner) ? owner : FindModalWindow(owner);
    if (GetActiveWindow() == this && next != nullptr)
        ::SetActiveWindow(next);
    ShowWindow(SW_HIDE);
}

void UpdateProgressPane::SetText(const WCHAR* text) {
    SetDlgItemText(QUORVEL_UPDATES_PROGRESS_TEXT, text);
}

// The bar's range has 31 bits.
void UpdateProgressPane::SetFigures(ULONGLONG received, ULONGLONG expected, const WCHAR* text) {
    if (CWnd* const bar = GetDlgItem(QUORVEL_UPDATES_PROGRESS_BAR)) {
        constexpr ULONGLONG kMost = std::numeric_limits<int>::max();
        const ULONGLONG unit = expected / kMost + 1;
        const int end = static_cast<int>(std::max<ULONGLONG>(expected / unit, 1));
        const int position = static_cast<int>(std::min<ULONGLONG>(received / unit, kMost));
        auto& progress = static_cast<CProgressCtrl&>(*bar);
        progress.SetRange32(0, end);
        progress.SetPos(std::min(position, end));
        SetDlgItemText(QUORVEL_UPDATES_PROGRESS_FIGURES, text);
    }
}

void UpdateProgressPane::OnCancel() {
    m_onCancel();
}

} // namespace quorvel
