// clipboard_holder: opens the clipboard with a window, so that no other process can, says so by an
// event and keeps it until another event comes.
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
