// The key that a message presses, with the modifiers that are held.
#pragma once

#include <quorvel/keyboard/shortcut_key.h>
#include <quorvel/platform/platform.h>

namespace quorvel {

// FALSE for any other message, and for the press of Ctrl, Shift or Alt itself.
bool GetPressedKey(const MSG& message, CShortcutKey& key);

} // namespace quorvel
