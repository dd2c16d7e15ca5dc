// The thread's windows while the mail program's own window is up.
#pragma once

#include <quorvel/platform/platform.h>

#include <vector>

namespace quorvel {

// Disables the visible windows of this thread; the one that a message box would lie over keeps the
// mouse and stays disabled whatever the mail library does to it. The end of the object enables
// exactly those windows again and gives that one the activation and the focus. A window that is
// destroyed meanwhile is left alone.
class MailModalState {
public:
    MailModalState();
    MailModalState(const MailModalState&) = delete;
    ~MailModalState();

private:
    const HWND m_owner; // null: the thread has no window
    std::vector<HWND> m_disabled;
};

} // namespace quorvel
