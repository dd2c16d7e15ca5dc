#include "controls/validation_tracker.h"

namespace quorvel {

bool ValidationTracker::Show(HWND dialog, HWND balloon) {
    constexpr LPARAM kNumbers = 0x7fffffff; // then the numbers start again
    const LPARAM number = m_lastNumber % kNumbers + 1;
    if (dialog == nullptr || !m_dialogs.insert({dialog, {balloon, number}}).second)
        return false;
    m_lastNumber = number;
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

LPARAM ValidationTracker::NumberOf(HWND dialog) const {
    const auto found = m_dialogs.find(dialog);
    return found != m_dialogs.end() ? found->second.number : 0;
}

HWND ValidationTracker::DialogOf(HWND focused,
                                 const std::function<HWND(HWND window)>& parentOf) const {
    if (m_dialogs.empty() || focused == nullptr)
        return nullptr;
    for (const auto& [dialog, balloon] : m_dialogs)
        if (balloon.window == focused)
            return dialog;
    HWND window = parentOf(focused);
    while (window != nullptr && !IsShowing(window))
        window = parentOf(window);
    return window;
}

} // namespace quorvel
