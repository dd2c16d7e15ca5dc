// CShortcutKey: a key with its modifiers.
//
// Copyable. One thread at a time may use an object. Nothing is validated: any code and any
// modifiers are stored.
#pragma once

#include <quorvel/framework/string.h>

class QUORVEL_API CShortcutKey {
public:
    // The values of a cleared key.
    static constexpr unsigned short DEFAULT_VIRTUAL_KEY_CODE = 0;
    static constexpr unsigned char DEFAULT_MODIFIERS = 0;

    // The modifiers; add them up.
    static constexpr unsigned char MODIFIER_SHIFT = 0x01;
    static constexpr unsigned char MODIFIER_CONTROL = 0x02;
    static constexpr unsigned char MODIFIER_ALT = 0x04;
    // Not a modifier: the key is an extended key (the cursor block, the right Ctrl and Alt, Enter
    // of the numeric pad). Only its name shows that, but comparisons include this bit.
    static constexpr unsigned char MODIFIER_EXTENDED = 0x08;

    CShortcutKey() noexcept = default; // no key
    // A virtual key code of the platform (VK_...), and a sum of the modifiers.
    // values.
    CShortcutKey(unsigned short virtualKeyCode, unsigned char modifiers) noexcept
        : m_virtualKeyCode(virtualKeyCode), m_modifiers(modifiers) {}

    // Compare exactly, including the extended bit.
    BOOL operator==(const CShortcutKey& other) const noexcept {
        return DoesKeyMatch(other.m_virtualKeyCode, other.m_modifiers);
    }
    BOOL operator!=(const CShortcutKey& other) const noexcept { return !(*this == other); }

    // The code and the modifiers together.
    void SetKey(unsigned short virtualKeyCode, unsigned char modifiers) noexcept {
        *this = CShortcutKey(virtualKeyCode, modifiers);
    }
    void GetKey(unsigned short& virtualKeyCode, unsigned char& modifiers) const noexcept {
        virtualKeyCode = m_virtualKeyCode;
        modifiers = m_modifiers;
    }
    void ClearKey() noexcept { *this = CShortcutKey(); }

    // Only the code; the modifiers stay.
    void SetVirtualKeyCode(unsigned short code) noexcept { m_virtualKeyCode = code; }
    unsigned short GetVirtualKeyCode() const noexcept { return m_virtualKeyCode; }
    void ClearVirtualKeyCode() noexcept { m_virtualKeyCode = DEFAULT_VIRTUAL_KEY_CODE; }

    // Only the modifiers; the code stays.
    void SetModifiers(unsigned char modifiers) noexcept { m_modifiers = modifiers; }
    unsigned char GetModifiers() const noexcept { return m_modifiers; }
    void ClearModifiers() noexcept { m_modifiers = DEFAULT_MODIFIERS; }

    // Whether there is a code or at least one modifier.
    BOOL IsKeySet() const noexcept { return m_virtualKeyCode != 0 || m_modifiers != 0; }
    // Compares exactly, including the extended bit.
    BOOL DoesKeyMatch(unsigned short virtualKeyCode, unsigned char modifiers) const noexcept {
        return m_virtualKeyCode == virtualKeyCode && m_modifiers == modifiers;
    }
    BOOL UsesShiftKeyModifier() const noexcept { return (m_modifiers & MODIFIER_SHIFT) != 0; }
    BOOL UsesControlKeyModifier() const noexcept { return (m_modifiers & MODIFIER_CONTROL) != 0; }
    BOOL UsesAltKeyModifier() const noexcept { return (m_modifiers & MODIFIER_ALT) != 0; }
    BOOL UsesKeyModifier() const noexcept {
        return (m_modifiers & (MODIFIER_SHIFT | MODIFIER_CONTROL | MODIFIER_ALT)) != 0;
    }
    BOOL IsExtendedKey() const noexcept { return (m_modifiers & MODIFIER_EXTENDED) != 0; }

    // The text for menus, in the layout's names (key_name.h): "Ctrl+Shift+F5", always in the order
    // Ctrl, Shift, Alt. Empty without a key. Modifiers without a code end with "+".
    //
    // With `forceStandardExtendedKeys`, keys that exist twice get the name that most users know,
    // whatever the extended bit is: Page Up, Page Down, End, Home, the arrows, Insert, Delete and
    // Clear as extended keys, Enter as the main key.
    CString GetShortcutKeyName(int forceStandardExtendedKeys) const;
    // 1 to 9, for sorting: no modifiers, Ctrl, Shift, Alt, Ctrl+Shift, Ctrl+Alt, Shift+Alt, all
    // three, no key.
    int GetModifiersSortingRank() const noexcept;

private:
    unsigned short m_virtualKeyCode = DEFAULT_VIRTUAL_KEY_CODE;
    unsigned char m_modifiers = DEFAULT_MODIFIERS;
};
