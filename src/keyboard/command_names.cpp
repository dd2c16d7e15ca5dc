#include "keyboard/command_names.h"

#include <quorvel/keyboard/shortcut_key_text.h>

namespace quorvel {

CString DisplayName(const CShortcutKey& key) {
    const CShortcutKey alone(key.GetVirtualKeyCode(),
                             key.GetModifiers() & CShortcutKey::MODIFIER_EXTENDED);
    const CString name = alone.GetShortcutKeyName(1);
    // Some keys have a control character as name.
    return name.IsEmpty() || name[0] < ' ' ? AfxGetShortcutKeyText(key) : key.GetShortcutKeyName(1);
}

CString DisplayName(const CKeyboardShortcut& shortcut) {
    CString name = shortcut.GetCommandText();
    if (name.IsEmpty())
        name.Format(_T("#%u"), shortcut.GetCommandID());
    return name;
}

} // namespace quorvel
