// A text for the clipboard.
#pragma once

#include <quorvel/framework/string.h>

namespace quorvel {

// Replaces what the clipboard has. False, and the clipboard as it was, when there is no memory or
// another program holds the clipboard.
bool CopyTextToClipboard(HWND owner, const CString& text);

} // namespace quorvel
