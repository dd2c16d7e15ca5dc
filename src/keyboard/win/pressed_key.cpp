#include "keyboard/win/pressed_key.h"

#include <quorvel/keyboard/win/key_state.h>

namespace quorvel {

bool GetPressedKey(const MSG& message, CShortcutKey& key) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN)
        return false;
    if (message.wParam == VK_CONTROL || message.wParam == VK_SHIFT || message.wParam == VK_MENU)
        return false;
    constexpr LPARAM kExtendedKey = 1 << 24;
    int modifiers = 0;
    modifiers |= AfxIsCtrlKeyDown() ? CShortcutKey::MODIFIER_CONTROL : 0;
    modifiers |= AfxIsShiftKeyDown() ? CShortcutKey::MODIFIER_SHIFT : 0;
    modifiers |= AfxIsAltKeyDown() ? CShortcutKey::MODIFIER_ALT : 0;
    modifiers |= (message.lParam & kExtendedKey) != 0 ? CShortcutKey::MODIFIER_EXTENDED : 0;
    key.SetKey(static_cast<unsigned short>(message.wParam), static_cast<unsigned char>(modifiers));
    return true;
}

// The system opens a menu when Alt is released unless it saw another key pressed meanwhile.
void ForgetAlt(HWND window) {
    constexpr WPARAM kNoKey = 0xff;
    constexpr LPARAM kAltIsDown = 1 << 29;
    ::DefWindowProcW(window, WM_SYSKEYDOWN, kNoKey, kAltIsDown);
}

} // namespace quorvel
