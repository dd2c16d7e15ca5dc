// The key that a message presses, with the held modifiers.
#pragma once

#include <quorvel/keyboard/shortcut_key.h>
#include <quorvel/platform/platform.h>

namespace quorvel {

// Returns false for other messages, and when Ctrl, Shift or Alt itself is pressed.
bool GetPressedKey(const MSG& message, CShortcutKey& key);
// Prevents that the release of Alt opens a menu, after the system saw its press.
void ForgetAlt(HWND window);

} // namespace quorvel
