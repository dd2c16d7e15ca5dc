// Dialog templates of the resource chain.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

struct DialogTemplate {
    const DLGTEMPLATE* dialog; // null when not found; the platform's last error is the cause
    HINSTANCE module;          // the module that contains it; do not free it
};
DialogTemplate FindDialogTemplate(const WCHAR* name);

// Disables a window; the destructor restores its former state.
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

// The owner for a modal window with this parent.
HWND ModalOwner(HWND parent);

// Hides a modal window. Call it before its owner is enabled, and enable the owner before it becomes
// active. Otherwise another program's window becomes active.
void HideBeforeOwner(HWND window);
// Does nothing unless `window` is active, or is null (destroyed) and no other window is active.
void ActivateOwner(HWND window, HWND owner);

} // namespace quorvel
