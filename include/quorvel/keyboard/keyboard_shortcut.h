// CKeyboardShortcut: a command, by its identifier and the text that users know it by, and the key
// that invokes it.
//
// A plain value; one object may be used by one thread at a time.
#pragma once

#include <quorvel/keyboard/shortcut_key.h>

class QUORVEL_API CKeyboardShortcut {
public:
    static constexpr unsigned int DEFAULT_COMMAND_ID = 0;
    static constexpr const WCHAR* DEFAULT_COMMAND_TEXT = _T("");

    CKeyboardShortcut() = default;
    CKeyboardShortcut(unsigned int commandID, const CShortcutKey& key);
    // A null text is an empty one.
    CKeyboardShortcut(unsigned int commandID, const WCHAR* commandText, const CShortcutKey& key);
    // From an entry of an accelerator table, without a text. A character becomes the key that types
    // it on the user's keyboard layout, with the modifiers that it takes; one that no key types is
    // taken as a virtual-key code. An entry can't say whether its key is an extended one:
    // `extendedKey` does.
    CKeyboardShortcut(ACCEL accel, int extendedKey);

    // Of identifier, text and key; letter case of the text counts.
    BOOL operator==(const CKeyboardShortcut& other) const noexcept;
    BOOL operator!=(const CKeyboardShortcut& other) const noexcept { return !(*this == other); }

    void SetCommandID(unsigned int commandID) noexcept { m_commandID = commandID; }
    unsigned int GetCommandID() const noexcept { return m_commandID; }
    void ClearCommandID() noexcept { m_commandID = DEFAULT_COMMAND_ID; }
    BOOL IsCommandIDSet() const noexcept { return m_commandID != DEFAULT_COMMAND_ID; }

    BOOL SetCommandText(const WCHAR* text); // FALSE, and no change, for null
    CString GetCommandText() const { return m_commandText; }
    void ClearCommandText() { m_commandText.Empty(); }
    BOOL HasCommandText() const noexcept { return !m_commandText.IsEmpty(); }

    void SetShortcutKey(const CShortcutKey& key) noexcept { m_key = key; }
    const CShortcutKey& GetShortcutKey() const noexcept { return m_key; }
    CShortcutKey& GetShortcutKey() noexcept { return m_key; }
    void ClearShortcutKey() noexcept { m_key.ClearKey(); }
    BOOL IsShortcutKeySet() const noexcept { return m_key.IsKeySet(); }

    // As an entry of an accelerator table, which has 16 bits for the command and none for the
    // extended key. Made for a shortcut without a key too: leave that out of a table.
    ACCEL GetAccel() const noexcept {
        // FSHIFT, FCONTROL and FALT are our bits, two places up.
        constexpr int kModifiers = CShortcutKey::MODIFIER_SHIFT | CShortcutKey::MODIFIER_CONTROL |
                                   CShortcutKey::MODIFIER_ALT;
        static_assert(FSHIFT == CShortcutKey::MODIFIER_SHIFT << 2 &&
                      FCONTROL == CShortcutKey::MODIFIER_CONTROL << 2 &&
                      FALT == CShortcutKey::MODIFIER_ALT << 2);
        return {static_cast<BYTE>(FVIRTKEY | (m_key.GetModifiers() & kModifiers) << 2),
                m_key.GetVirtualKeyCode(), static_cast<WORD>(m_commandID)};
    }

private:
    unsigned int m_commandID = DEFAULT_COMMAND_ID;
    CString m_commandText;
    CShortcutKey m_key;
};
