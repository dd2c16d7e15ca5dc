// The text of a menu item with the key of its command. Any thread; on Windows the keyboard layout
// is that of the calling thread.
#pragma once

#include <quorvel/keyboard/shortcut_key.h>

// Returns the text up to its first tab, followed by a tab and the name of the key if it has one. A
// null text means an empty text.
QUORVEL_API CString AfxGetMenuTextWithShortcut(const WCHAR* text, const CShortcutKey& key);
