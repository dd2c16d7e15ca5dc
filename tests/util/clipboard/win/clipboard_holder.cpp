// clipboard_holder: opens the clipboard with a window, so that other processes cannot. Sets an
// event then, and holds it until another event is set.
#include "util/clipboard/win/clipboard_holder.h"

int main() {
    const HANDLE held = ::CreateEventW(nullptr, TRUE, FALSE, kHeldEvent);
    const HANDLE release = ::CreateEventW(nullptr, TRUE, FALSE, kReleaseEvent);
    const HWND window = ::CreateWindowExW(0, L"Static", nullptr, WS_POPUP, 0, 0, 1, 1, HWND_MESSAGE,
                                          nullptr, nullptr, nullptr);
    if (!::OpenClipboard(window))
        return 1;
    ::SetEvent(held);
    ::WaitForSingleObject(release, 30000);
    return 0;
}
