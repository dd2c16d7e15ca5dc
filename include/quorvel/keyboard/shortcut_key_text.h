// Texts of keys that are the same on every computer: "Ctrl+Shift+F5".
//
// Use them in files, settings and logs. For users, CShortcutKey::GetShortcutKeyName returns the
// names of their keyboard layout. Any thread.
#pragma once

#include <quorvel/keyboard/shortcut_key.h>

// "Ctrl", "Shift", "Alt" and, for an extended key, "Ext", in this order, each followed by "+"; then
// the English name of the key, or "#" and the number for a code without a name. Without a code
// nothing follows. Empty for a cleared key. Modifier bits above 0x08 are ignored.
QUORVEL_API CString AfxGetShortcutKeyText(const CShortcutKey& key);
// Parses such a text: any letter case, modifiers in any order, blanks around words. An empty text
// is a cleared key. Null and any other text return FALSE and leave the key unchanged.
QUORVEL_API BOOL AfxParseShortcutKeyText(const WCHAR* text, CShortcutKey& key);
