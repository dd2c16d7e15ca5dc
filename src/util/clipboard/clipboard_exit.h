// Keeps or clears the clipboard's data when the program ends.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// The operations on the clipboard that the rule needs.
class ExitClipboard {
public:
    virtual bool Holds(UINT format) const = 0;
    // Opens and empties it. When false, the thread's last error is the cause.
    virtual bool Empty() = 0;

protected:
    ~ExitClipboard() = default;
};

// Implements AfxEmptyClipboardOnExit; its contract applies.
BOOL EmptyOnExit(ExitClipboard& clipboard, UINT format, UINT exitAction,
                 const WCHAR* applicationName);

} // namespace quorvel
