// clipboard_holder: another process that uses the clipboard. Opens the clipboard with a window, so
// that other processes cannot, sets an event, and holds it until another event is set. With an
// argument: exits with the sum of the colours of the clipboard's bitmap.
#include "util/clipboard/win/clipboard_holder.h"

int main(int argc, char**) {
    if (argc > 1) {
        ::OpenClipboard(nullptr);
        return static_cast<int>(SumOfColors(static_cast<HBITMAP>(::GetClipboardData(CF_BITMAP))));
    }
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
