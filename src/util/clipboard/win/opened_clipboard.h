// The clipboard, open for the length of one piece of work.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// Opens the clipboard, does the work and closes it. False when one of the three failed; the
// thread's last error then has the cause. The work, which returns a bool, does not throw.
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

// Replaces what the clipboard has by `size` bytes. False leaves the cause as the thread's last
// error.
bool PlaceOnClipboard(HWND owner, UINT format, const void* bytes, SIZE_T size);

} // namespace quorvel
