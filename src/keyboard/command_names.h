// Commands and keys as a user is shown them, also those without a name.
#pragma once

#include <quorvel/keyboard/keyboard_shortcut.h>

namespace quorvel {

// The name on the keyboard layout, otherwise the text that is the same everywhere.
CString DisplayName(const CShortcutKey& key);
// The command's text, otherwise "#" and its identifier.
CString DisplayName(const CKeyboardShortcut& shortcut);

} // namespace quorvel
