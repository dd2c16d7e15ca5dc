#include "controls/validation_tracker.h"

namespace quorvel {

bool ValidationTracker::Show(HWND dialog) {
    if (dialog == nullptr || !m_dialogs.insert(dialog).second)
        return false;
    if (!m_hasHook)
        m_hasHook = m_hook.Set();
    return true;
}

bool ValidationTracker::Hide(HWND dialog) {
    if (m_dialogs.erase(dialog) == 0)
        return false;
    if (m_dialogs.empty() && m_hasHook) {
        m_hasHook = false;
        m_hook.Remove();
    }
    return true;
}

HWND ValidationTracker::DialogOf(HWND focused,
                                 const std::function<HWND(HWND window)>& parentOf) const {
    if (m_dialogs.empty() || focused == nullptr)
        return nullptr;
    HWND window = parentOf(focused);
    while (window != nullptr && !IsShowing(window))
        window = parentOf(window);
    return window;
}

} // namespace quorvel
