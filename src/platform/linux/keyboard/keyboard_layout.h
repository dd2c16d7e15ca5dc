// The keyboard layout is always the US one: a program without a screen has no keyboard to query.
// Any thread.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// MAPVK_VK_TO_VSC: returns the scan code (set 1) of a virtual-key code, without the mark of an
// extended key. MAPVK_VK_TO_CHAR: returns the character of the key without modifiers, a letter as a
// capital. Returns 0 if there is none, and for other kinds.
UINT MapVirtualKeyW(UINT code, UINT kind);
// The name of a key: its scan code is in bits 16 to 23 of `keyData`, bit 24 marks an extended key.
// Other bits are ignored. Cuts the name to `size` characters with the terminator and returns its
// length. Returns 0 and writes nothing for a key without a name and for a size below 2.
int GetKeyNameTextW(LONG keyData, LPWSTR name, int size);
// The virtual-key code that types a character, with 1 (Shift), 2 (Ctrl) and 4 (Alt) in the high
// byte; -1 when no key types it.
SHORT VkKeyScanW(WCHAR character);
// The text that a key types while the keys of `state` are held: returns 1 and the character, or 0.
// Only Shift, Ctrl and Alt matter. There are no dead keys. Returns 0 for a size below 1 character.
int ToUnicode(UINT code, UINT scanCode, const BYTE* state, LPWSTR text, int size, UINT flags);

} // namespace quorvel::win32
