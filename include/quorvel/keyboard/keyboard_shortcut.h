// CKeyboardShortcut: a command, with its identifier and its text for users, and the key that
// invokes it.
//
// Copyable. One thread at a time may use an object.
#pragma once

#include <quorvel/keyboard/shortcut_key.h>

class QUORVEL_API CKeyboardShortcut {
public:
    // The values of a new shortcut; they mean that there is no command and no text.
    static constexpr unsigned int DEFAULT_COMMAND_ID = 0;
    static constexpr const WCHAR* DEFAULT_COMMAND_TEXT = _T("");

    CKeyboardShortcut() = default;
    CKeyboardShortcut(unsigned int commandID, const CShortcutKey& key); // without a text
    // A null text means an empty text.
    CKeyboardShortcut(unsigned int commandID, const WCHAR* commandText, const CShortcutKey& key);
    // From an entry of an accelerator table; the text is empty. A character becomes the key that
    // types it on the user's keyboard layout, with its modifiers; if no key types it, it is used
    // as a virtual-key code. An entry does not contain the extended bit, so `extendedKey` sets
    // it.
    CKeyboardShortcut(ACCEL accel, int extendedKey);

    // Compares identifier, text (case-sensitively) and key.
    BOOL operator==(const CKeyboardShortcut& other) const noexcept;
    BOOL operator!=(const CKeyboardShortcut& other) const noexcept { return !(*this == other); }

    // The command; 0 means that it is not set. Every value is accepted.
    void SetCommandID(unsigned int commandID) noexcept { m_commandID = commandID; }
    unsigned int GetCommandID() const noexcept { return m_commandID; }
    void ClearCommandID() noexcept { m_commandID = DEFAULT_COMMAND_ID; }
    BOOL IsCommandIDSet() const noexcept { return m_commandID != DEFAULT_COMMAND_ID; }

    BOOL SetCommandText(const WCHAR* text); // FALSE and no change for null
    // The text for users; empty means no text.
    CString GetCommandText() const { return m_commandText; }
    void ClearCommandText() { m_commandText.Empty(); }
    BOOL HasCommandText() const noexcept { return !m_commandText.IsEmpty(); }

    // The key; a cleared key means that the command has no key. A reference is valid while this
    // object exists.
    // this object.
    void SetShortcutKey(const CShortcutKey& key) noexcept { m_key = key; }
    const CShortcutKey& GetShortcutKey() const noexcept { return m_key; }
    CShortcutKey& GetShortcutKey() noexcept { return m_key; }
    void ClearShortcutKey() noexcept { m_key.ClearKey(); }
    BOOL IsShortcutKeySet() const noexcept { return m_key.IsKeySet(); }

    // As an entry of an accelerator table. It has 16 bits for the command and no extended bit. A
    // shortcut without a key gives an entry too: do not put that into a table.
    ACCEL GetAccel() const noexcept {
        // FSHIFT, FCONTROL and FALT are our bits shifted by two.
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
