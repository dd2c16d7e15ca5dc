// What becomes of the clipboard's data when the program ends.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// The clipboard as the rule needs it.
class ExitClipboard {
public:
    virtual bool Holds(UINT format) const = 0;
    // Opens and empties it. False leaves the cause as the thread's last error.
    virtual bool Empty() = 0;

protected:
    ~ExitClipboard() = default;
};

// The contract is AfxEmptyClipboardOnExit's.
BOOL EmptyOnExit(ExitClipboard& clipboard, UINT format, UINT exitAction,
                 const WCHAR* applicationName);

} // namespace quorvel
