#include <quorvel/keyboard/win/assign_shortcut_dlg.h>

#include <quorvel/keyboard/shortcut_conflicts.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>

#include "keyboard/command_names.h"
#include "keyboard/shortcuts_by_command.h"
#include "keyboard/win/pressed_key.h"

#include <imm.h>

IMPLEMENT_DYNAMIC(CAssignShortcutDlg, CVaskDialog)

BEGIN_MESSAGE_MAP(CAssignShortcutDlg, CVaskDialog)
ON_COMMAND(QUORVEL_ASSIGN_CLEAR, &CAssignShortcutDlg::OnClear)
END_MESSAGE_MAP()

namespace {

// Keys that move through the dialog or close it.
bool IsKeyOfDialog(const CShortcutKey& key) {
    switch (key.GetVirtualKeyCode()) {
    case VK_TAB:
        return !key.UsesControlKeyModifier() && !key.UsesAltKeyModifier();
    case VK_RETURN:
    case VK_ESCAPE:
        return !key.UsesKeyModifier();
    case VK_F4:
        return key.UsesAltKeyModifier() && !key.UsesControlKeyModifier();
    default:
        return false;
    }
}

} // namespace

CAssignShortcutDlg::CAssignShortcutDlg(const CKeyboardMappingScheme& scheme, unsigned int commandID,
                                       CWnd* parent)
    : CVaskDialog(QUORVEL_DIALOG_ASSIGN_SHORTCUT, parent), m_scheme(scheme) {
    const quorvel::ShortcutsByCommand shortcuts(scheme);
    if (const CKeyboardShortcut* const shortcut = shortcuts.Find(commandID))
        m_shortcut = *shortcut;
    m_shortcut.SetCommandID(commandID);
    m_key = m_shortcut.GetShortcutKey();
}

UINT CAssignShortcutDlg::GetTemplateID() {
    return QUORVEL_DIALOG_ASSIGN_SHORTCUT;
}

BOOL CAssignShortcutDlg::LoadData() {
    SetDlgItemText(QUORVEL_ASSIGN_COMMAND, quorvel::DisplayName(m_shortcut));
    // An input method would take the keys and send its own code in their place.
    ::ImmAssociateContext(::GetDlgItem(m_hWnd, QUORVEL_ASSIGN_KEY), nullptr);
    ShowKey();
    return TRUE;
}

BOOL CAssignShortcutDlg::IsOK() {
    return m_key.IsKeySet();
}

void CAssignShortcutDlg::ShowKey() {
    const CString name = quorvel::DisplayName(m_key);
    SetDlgItemText(QUORVEL_ASSIGN_KEY, name);
    const int end = name.GetLength(); // the caret would stand on the first letter
    ::SendDlgItemMessageW(m_hWnd, QUORVEL_ASSIGN_KEY, EM_SETSEL, static_cast<WPARAM>(end), end);
    CString report;
    for (const CShortcutConflict& conflict :
         AfxGetShortcutConflicts(m_scheme, m_shortcut.GetCommandID(), m_key))
        report += (report.IsEmpty() ? _T("") : _T("\r\n")) + conflict.strMessage;
    if (report.IsEmpty() && m_key.IsKeySet())
        AfxFormatString1(report, quorvel::kTextShortcutFree, quorvel::DisplayName(m_key));
    SetDlgItemText(QUORVEL_ASSIGN_REPORT, report);
    UpdateDialogControls(this, FALSE);
}

BOOL CAssignShortcutDlg::PreTranslateMessage(MSG* message) {
    CShortcutKey key;
    const bool isInField = message->hwnd == ::GetDlgItem(m_hWnd, QUORVEL_ASSIGN_KEY);
    if (isInField && message->message == WM_SYSKEYUP && message->wParam == VK_MENU)
        quorvel::ForgetAlt(message->hwnd);
    // Its press was a key; the release would open the menu of the field.
    if (isInField && message->message == WM_KEYUP && message->wParam == VK_APPS)
        return TRUE;
    if (!isInField || !quorvel::GetPressedKey(*message, key) || IsKeyOfDialog(key))
        return CVaskDialog::PreTranslateMessage(message);
    m_key = key;
    ShowKey();
    return TRUE;
}

void CAssignShortcutDlg::OnClear() {
    m_key.ClearKey();
    EndDialog(IDOK);
}
