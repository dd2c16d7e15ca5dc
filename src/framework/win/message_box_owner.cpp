#include "framework/message_box_owner.h"

#include <quorvel/framework/app.h>
#include <quorvel/framework/wnd.h>

namespace quorvel {

HWND MessageBoxOwner() {
    HWND owner = GetActiveWindow();
    const CWnd* main = AfxGetMainWnd();
    // In the background the thread has no active window. Do not make another thread wait.
    if (owner == nullptr && main != nullptr &&
        GetWindowThreadProcessId(main->m_hWnd, nullptr) == GetCurrentThreadId())
        owner = main->m_hWnd;
    return owner != nullptr ? GetLastActivePopup(owner) : nullptr;
}

} // namespace quorvel
