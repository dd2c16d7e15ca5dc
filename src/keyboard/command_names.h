// The displayed names of commands and keys, also of those without a name.
#pragma once

#include <quorvel/keyboard/keyboard_shortcut.h>

namespace quorvel {

// The name on the keyboard layout; without one, the text that is the same on all layouts.
CString DisplayName(const CShortcutKey& key);
// The command's text; without one, "#" and its identifier.
CString DisplayName(const CKeyboardShortcut& shortcut);

} // namespace quorvel
