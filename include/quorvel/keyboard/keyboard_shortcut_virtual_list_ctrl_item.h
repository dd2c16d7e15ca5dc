// CKeyboardShortcutVirtualListCtrlItem: a row of a list of keyboard shortcuts.
//
// Column 0 is the text of the command, column 1 the name of its key. Copyable. One thread at a time
// may use an object.
#pragma once

#include <quorvel/controls/virtual_list_ctrl_item.h>
#include <quorvel/keyboard/keyboard_shortcut.h>

class QUORVEL_API CKeyboardShortcutVirtualListCtrlItem : public CVirtualListCtrlItem {
public:
    CKeyboardShortcutVirtualListCtrlItem() = default;
    // Copy the shortcut. The other arguments are those of CVirtualListCtrlItem.
    explicit CKeyboardShortcutVirtualListCtrlItem(const CKeyboardShortcut& shortcut);
    CKeyboardShortcutVirtualListCtrlItem(int image, int indent, LONG itemData,
                                         const CKeyboardShortcut& shortcut);
    CKeyboardShortcutVirtualListCtrlItem(const CKeyboardShortcutVirtualListCtrlItem& other) =
        default;
    CKeyboardShortcutVirtualListCtrlItem&
    operator=(const CKeyboardShortcutVirtualListCtrlItem& other) = default;
    ~CKeyboardShortcutVirtualListCtrlItem() override;

    CString GetSubItemText(int column) override; // empty in every other column

    // Compares only the shortcuts.
    BOOL operator==(const CKeyboardShortcutVirtualListCtrlItem& other) const noexcept {
        return m_shortcut == other.m_shortcut;
    }
    BOOL operator!=(const CKeyboardShortcutVirtualListCtrlItem& other) const noexcept {
        return !(*this == other);
    }

    // The row's own copy. A reference is valid as long as the row.
    void SetKeyboardShortcut(const CKeyboardShortcut& shortcut) { m_shortcut = shortcut; }
    const CKeyboardShortcut& GetKeyboardShortcut() const noexcept { return m_shortcut; }
    CKeyboardShortcut& GetKeyboardShortcut() noexcept { return m_shortcut; }

    // GetShortcutKeyName(1) of the key; it is cached for each new key of the row.
    const CString& GetKeyName() const;
    void ForgetKeyName() { m_isNamed = false; } // after the keyboard layout changed

private:
    CKeyboardShortcut m_shortcut;
    // The name and the key that it belongs to, since the shortcut can be changed in place.
    mutable CString m_keyName;
    mutable CShortcutKey m_namedKey;
    mutable bool m_isNamed = false;
};
