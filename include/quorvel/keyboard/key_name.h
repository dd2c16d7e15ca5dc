// AfxGetKeyName: the name of a key on the user's keyboard layout, as menus show it ("Ctrl", "F5").
//
// The layout names keys, not the library: "Strg" is what a German one calls Ctrl. Empty for a key
// that the layout has no name for. Any thread; on Windows the layout is that of the calling thread.
// On Linux it is the US one.
#pragma once

#include <quorvel/framework/string.h>

// The key of a virtual-key code. With `extended` the one of the two keys of that code that has the
// extended bit in its messages: Delete rather than the numeric pad's.
QUORVEL_API CString AfxGetKeyName(UINT virtualKeyCode, BOOL extended);
// From the lParam of a key message: the scan code in bits 16 to 23, the extended bit in bit 24.
QUORVEL_API CString AfxGetKeyName(LONG keyData);
