// Opens the clipboard for one piece of work.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// Opens the clipboard, runs `work` and closes it. Returns false when one of the three failed; the
// thread's last error is then the cause. `work` returns a bool and does not throw.
template <class Work>
bool WithOpenedClipboard(HWND owner, Work work) {
    ::SetLastError(ERROR_SUCCESS);
    if (!::OpenClipboard(owner))
        return false;
    const bool isDone = work();
    const DWORD error = ::GetLastError();
    const bool isClosed = ::CloseClipboard() != FALSE;
    if (!isDone)
        ::SetLastError(error);
    return isDone && isClosed;
}

// Replaces the content of the clipboard by `size` bytes. When false, the thread's last error is the
// cause.
bool PlaceOnClipboard(HWND owner, UINT format, const void* bytes, SIZE_T size);

} // namespace quorvel
