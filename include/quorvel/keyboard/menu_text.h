// The text of a menu item with the key of its command. Any thread; on Windows the keyboard layout
// is that of the calling thread.
#pragma once

#include <quorvel/keyboard/shortcut_key.h>

// The text up to its first tab, and after a tab the name of the key, where it has one. A null text
// is an empty one.
QUORVEL_API CString AfxGetMenuTextWithShortcut(const WCHAR* text, const CShortcutKey& key);
