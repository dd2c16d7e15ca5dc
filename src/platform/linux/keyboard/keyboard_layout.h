// The keyboard layout: always the US one, since a program without a screen has no keyboard to ask.
// Any thread.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// MAPVK_VK_TO_VSC: the scan code (set 1) of a virtual-key code, without the mark of an extended
// key. MAPVK_VK_TO_CHAR: the character that the key types alone, a letter as a capital. 0 when
// there is none, and for the other kinds.
UINT MapVirtualKeyW(UINT code, UINT kind);
// The name of a key: its scan code in bits 16 to 23 of `keyData`, bit 24 for an extended key. Other
// bits are not looked at. Writes a name cut to `size` characters with the terminator and returns
// its length; 0 and nothing written for a key without a name and for a size below 2.
int GetKeyNameTextW(LONG keyData, LPWSTR name, int size);
// The virtual-key code that types a character, with 1 (Shift), 2 (Ctrl) and 4 (Alt) in the high
// byte; -1 when no key does.
SHORT VkKeyScanW(WCHAR character);
// What a key types while the keys of `state` are held: 1 and the character, or 0. Only Shift, Ctrl
// and Alt are looked at, there are no dead keys, and a buffer below 1 character is refused (0).
int ToUnicode(UINT code, UINT scanCode, const BYTE* state, LPWSTR text, int size, UINT flags);

} // namespace quorvel::win32
