#include <quorvel/keyboard/win/keyboard_shortcuts_page.h>

#include <quorvel/keyboard/win/assign_shortcut_dlg.h>

IMPLEMENT_DYNAMIC(CKeyboardShortcutsPage, CVaskPropertyPage)

CKeyboardShortcutsPage::CKeyboardShortcutsPage(UINT templateId, const Controls& controls,
                                               CKeyboardMappingScheme& scheme)
    : CVaskPropertyPage(templateId), m_controls(controls), m_scheme(scheme) {}

void CKeyboardShortcutsPage::DoDataExchange(CDataExchange* exchange) {
    CVaskPropertyPage::DoDataExchange(exchange);
    DDX_Control(exchange, m_controls.list, m_list);
    DDX_Control(exchange, m_controls.filter, m_filter);
}

BOOL CKeyboardShortcutsPage::LoadData() {
    m_list.SetExtendedStyle(m_list.GetExtendedStyle() | LVS_EX_FULLROWSELECT);
    m_list.AddKeyboardMappingScheme(&m_scheme);
    m_list.LoadKeyboardMappingScheme(0);
    m_list.LoadDefaultColumnWidths();
    m_list.SelectItem(0);
    return TRUE;
}

BOOL CKeyboardShortcutsPage::SaveData() {
    CKeyboardMappingScheme edited;
    if (!m_list.GetEditedKeyboardMappingScheme(0, edited))
        return FALSE;
    m_scheme = edited;
    return TRUE;
}

BOOL CKeyboardShortcutsPage::OnCommand(WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam), code = HIWORD(wParam);
    if (id == m_controls.filter && code == EN_CHANGE && IsLoaded()) {
        Filter();
        return TRUE;
    }
    if (id == 0 || code != BN_CLICKED || !IsLoaded())
        return CVaskPropertyPage::OnCommand(wParam, lParam);
    if (id == m_controls.assign)
        Assign();
    else if (id == m_controls.clear)
        m_list.ClearSelectedShortcutKeys();
    else if (id == m_controls.reset)
        m_list.ResetShortcutKey(m_list.GetSingleSelectionItem());
    else if (id == m_controls.resetAll)
        m_list.ResetAllKeyboardShortcuts();
    else
        return CVaskPropertyPage::OnCommand(wParam, lParam);
    SetModified();
    return TRUE;
}

BOOL CKeyboardShortcutsPage::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (header.idFrom == static_cast<UINT_PTR>(m_controls.list) && IsLoaded()) {
        if (header.code == static_cast<UINT>(NM_DBLCLK))
            Assign();
        else if (header.code == static_cast<UINT>(LVN_KEYDOWN) &&
                 reinterpret_cast<const NMLVKEYDOWN*>(lParam)->wVKey == VK_DELETE) {
            m_list.ClearSelectedShortcutKeys();
            SetModified();
        }
    }
    return CVaskPropertyPage::OnNotify(wParam, lParam, result);
}

void CKeyboardShortcutsPage::Filter() {
    CString text;
    m_filter.GetWindowText(text);
    m_list.Filter(text);
    if (m_list.GetSelectedItem() == nullptr)
        m_list.SelectItem(0);
}

void CKeyboardShortcutsPage::Assign() {
    const int row = m_list.GetSingleSelectionItem();
    const auto* const item = m_list.GetKeyboardShortcutVirtualListCtrlItem(row);
    CKeyboardMappingScheme edited;
    if (item == nullptr || !m_list.GetEditedKeyboardMappingScheme(0, edited))
        return;
    CAssignShortcutDlg dialog(edited, item->GetKeyboardShortcut().GetCommandID(), this);
    if (dialog.DoModal() == IDOK) {
        m_list.SetShortcutKey(row, dialog.GetShortcutKey());
        SetModified();
    }
    m_list.SetFocus();
}
