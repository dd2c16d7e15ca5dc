// Keys as texts that mean the same on every computer: "Ctrl+Shift+F5".
//
// These are for files, settings and logs. What a user sees is CShortcutKey::GetShortcutKeyName, by
// the names of the keyboard layout. Any thread.
#pragma once

#include <quorvel/keyboard/shortcut_key.h>

// "Ctrl", "Shift", "Alt" and, for an extended key, "Ext", in this order, each followed by "+", then
// the English name of the key; "#" and the number for a code without a name, and nothing for no
// code. Empty for a cleared key. Modifier bits above 0x08 are left out.
QUORVEL_API CString AfxGetShortcutKeyText(const CShortcutKey& key);
// Reads such a text: in any letter case, modifiers in any order, with blanks around the words. An
// empty text is a cleared key. FALSE, and the key as it was, for null and for any other text.
QUORVEL_API BOOL AfxParseShortcutKeyText(const WCHAR* text, CShortcutKey& key);
