// CKeyboardShortcutVirtualListCtrlItem: a row of a list of keyboard shortcuts.
//
// Column 0 is the command's text, column 1 the name of its key. A plain value; one object may be
// used by one thread at a time.
#pragma once

#include <quorvel/controls/virtual_list_ctrl_item.h>
#include <quorvel/keyboard/keyboard_shortcut.h>

class QUORVEL_API CKeyboardShortcutVirtualListCtrlItem : public CVirtualListCtrlItem {
public:
    CKeyboardShortcutVirtualListCtrlItem() = default;
    explicit CKeyboardShortcutVirtualListCtrlItem(const CKeyboardShortcut& shortcut);
    CKeyboardShortcutVirtualListCtrlItem(int image, int indent, LONG itemData,
                                         const CKeyboardShortcut& shortcut);
    CKeyboardShortcutVirtualListCtrlItem(const CKeyboardShortcutVirtualListCtrlItem& other) =
        default;
    CKeyboardShortcutVirtualListCtrlItem&
    operator=(const CKeyboardShortcutVirtualListCtrlItem& other) = default;
    ~CKeyboardShortcutVirtualListCtrlItem() override;

    CString GetSubItemText(int column) override; // empty in every other column

    // Of the shortcuts alone.
    BOOL operator==(const CKeyboardShortcutVirtualListCtrlItem& other) const noexcept {
        return m_shortcut == other.m_shortcut;
    }
    BOOL operator!=(const CKeyboardShortcutVirtualListCtrlItem& other) const noexcept {
        return !(*this == other);
    }

    void SetKeyboardShortcut(const CKeyboardShortcut& shortcut) { m_shortcut = shortcut; }
    const CKeyboardShortcut& GetKeyboardShortcut() const noexcept { return m_shortcut; }
    CKeyboardShortcut& GetKeyboardShortcut() noexcept { return m_shortcut; }

    // GetShortcutKeyName(1) of the key, which asks the layout once for each key the row gets.
    const CString& GetKeyName() const;
    void ForgetKeyName() { m_isNamed = false; } // the keyboard layout has changed

private:
    CKeyboardShortcut m_shortcut;
    // The name and the key that it belongs to: the shortcut is changed in place.
    mutable CString m_keyName;
    mutable CShortcutKey m_namedKey;
    mutable bool m_isNamed = false;
};
