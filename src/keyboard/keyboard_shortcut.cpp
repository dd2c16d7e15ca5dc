#include <quorvel/keyboard/keyboard_shortcut.h>

#include "platform/win32.h"

namespace {

constexpr struct {
    unsigned char modifier;
    BYTE flag;
    int neededBit; // a bit in the high byte of VkKeyScanW's result
} kModifiers[] = {{CShortcutKey::MODIFIER_SHIFT, FSHIFT, 1},
                  {CShortcutKey::MODIFIER_CONTROL, FCONTROL, 2},
                  {CShortcutKey::MODIFIER_ALT, FALT, 4}};

} // namespace

CKeyboardShortcut::CKeyboardShortcut(unsigned int commandID, const CShortcutKey& key)
    : m_commandID(commandID), m_key(key) {}

CKeyboardShortcut::CKeyboardShortcut(unsigned int commandID, const WCHAR* commandText,
                                     const CShortcutKey& key)
    : m_commandID(commandID), m_commandText(commandText), m_key(key) {}

CKeyboardShortcut::CKeyboardShortcut(ACCEL accel, int extendedKey) : m_commandID(accel.cmd) {
    WORD code = accel.key;
    int flags = accel.fVirt;
    const SHORT scanned =
        (flags & FVIRTKEY) != 0 ? SHORT(-1) : VkKeyScanW(static_cast<WCHAR>(accel.key));
    if (scanned != -1) {
        code = static_cast<WORD>(scanned & 0xff);
        for (const auto& row : kModifiers)
            flags |= (scanned >> 8 & row.neededBit) != 0 ? row.flag : 0;
    }
    unsigned char modifiers = extendedKey != 0 ? CShortcutKey::MODIFIER_EXTENDED : 0;
    for (const auto& row : kModifiers)
        if ((flags & row.flag) != 0)
            modifiers |= row.modifier;
    m_key.SetKey(code, modifiers);
}

BOOL CKeyboardShortcut::operator==(const CKeyboardShortcut& other) const noexcept {
    return m_commandID == other.m_commandID && m_key == other.m_key &&
           m_commandText == other.m_commandText;
}

BOOL CKeyboardShortcut::SetCommandText(const WCHAR* text) {
    if (text == nullptr)
        return FALSE;
    m_commandText = text;
    return TRUE;
}
