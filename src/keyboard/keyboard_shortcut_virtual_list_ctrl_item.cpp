#include <quorvel/keyboard/keyboard_shortcut_virtual_list_ctrl_item.h>

#include "keyboard/shortcut_list.h"

CKeyboardShortcutVirtualListCtrlItem::CKeyboardShortcutVirtualListCtrlItem(
    const CKeyboardShortcut& shortcut)
    : m_shortcut(shortcut) {}

CKeyboardShortcutVirtualListCtrlItem::CKeyboardShortcutVirtualListCtrlItem(
    int image, int indent, LONG itemData, const CKeyboardShortcut& shortcut)
    : CVirtualListCtrlItem(image, indent, itemData), m_shortcut(shortcut) {}

CKeyboardShortcutVirtualListCtrlItem::~CKeyboardShortcutVirtualListCtrlItem() = default;

CString CKeyboardShortcutVirtualListCtrlItem::GetSubItemText(int column) {
    if (column == quorvel::ShortcutList::kCommandColumn)
        return m_shortcut.GetCommandText();
    return column == quorvel::ShortcutList::kKeyColumn ? GetKeyName() : CString();
}

const CString& CKeyboardShortcutVirtualListCtrlItem::GetKeyName() const {
    const CShortcutKey& key = m_shortcut.GetShortcutKey();
    if (!m_isNamed || key != m_namedKey) {
        m_keyName = key.GetShortcutKeyName(1);
        m_namedKey = key;
        m_isNamed = true;
    }
    return m_keyName;
}
