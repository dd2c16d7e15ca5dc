// The events of the program that holds the clipboard.
#pragma once

#include <quorvel/platform/platform.h>

inline constexpr const WCHAR* kHeldEvent = _T("QuorvelClipboardIsHeld");
inline constexpr const WCHAR* kReleaseEvent = _T("QuorvelReleaseClipboard");
