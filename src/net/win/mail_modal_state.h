// Disables the thread's windows while the mail program shows its own window.
#pragma once

#include <quorvel/platform/platform.h>

#include <vector>

namespace quorvel {

// Disables the visible windows of this thread. The window that would own a message box keeps the
// mouse and stays disabled, whatever the mail library does to it. The destructor enables exactly
// those windows again and gives the owner the activation and the focus. Windows destroyed in the
// meantime are ignored.
class MailModalState {
public:
    MailModalState();
    MailModalState(const MailModalState&) = delete;
    ~MailModalState();

private:
    const HWND m_owner; // null when no window of this thread is active and there is no main window
    std::vector<HWND> m_disabled;
};

} // namespace quorvel
