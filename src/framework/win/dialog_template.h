// Dialog templates of the resource chain.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

struct DialogTemplate {
    const DLGTEMPLATE* dialog; // null when there is none; the platform's last error says why
    HINSTANCE module;          // it is part of this module and is not freed
};
DialogTemplate FindDialogTemplate(const WCHAR* name);

// While it lives, a window is disabled; afterwards it is again as it was.
class DisabledWindow {
public:
    explicit DisabledWindow(HWND window)
        : m_window(window != nullptr && ::IsWindowEnabled(window) ? window : nullptr) {
        if (m_window != nullptr)
            ::EnableWindow(m_window, FALSE);
    }
    DisabledWindow(const DisabledWindow&) = delete;
    ~DisabledWindow() {
        if (m_window != nullptr && ::IsWindow(m_window))
            ::EnableWindow(m_window, TRUE);
    }

private:
    const HWND m_window;
};

// The owner of a modal window that is given this parent.
HWND ModalOwner(HWND parent);

// The end of a modal window: it is hidden before its owner is enabled, and the owner is enabled
// before it becomes active. Otherwise another program's window would become active.
void HideBeforeOwner(HWND window);
// Nothing unless the window is active, or null, as one that was destroyed, and no other is.
void ActivateOwner(HWND window, HWND owner);

} // namespace quorvel
