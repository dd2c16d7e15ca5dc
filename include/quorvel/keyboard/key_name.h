// AfxGetKeyName: the name of a key on the user's keyboard layout, as menus show it ("Ctrl", "F5").
//
// The names come from the keyboard layout, not from the library: a German layout calls Ctrl "Strg".
// Empty for a key without a name. Any thread; on Windows the layout is that of the calling thread,
// on Linux it is the US layout.
#pragma once

#include <quorvel/framework/string.h>

// For a virtual-key code. If two keys have that code, `extended` chooses the one with the extended
// bit in its messages: Delete instead of the numeric pad's key.
QUORVEL_API CString AfxGetKeyName(UINT virtualKeyCode, BOOL extended);
// For the lParam of a key message: scan code in bits 16 to 23, extended bit in bit 24.
QUORVEL_API CString AfxGetKeyName(LONG keyData);
