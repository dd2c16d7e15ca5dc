// The text of a menu item with the key of its command. Any thread; on Windows the keyboard layout
// is that of the calling thread.
#pragma once

#include <quorvel/keyboard/shortcut_key.h>

// Returns the text up to its first tab, followed by a tab and the key if it is set: its name, or
// its text (shortcut_key_text.h) if the keyboard layout has no name for it. A null text means an
// empty text.
QUORVEL_API CString AfxGetMenuTextWithShortcut(const WCHAR* text, const CShortcutKey& key);
