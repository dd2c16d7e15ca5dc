#include <quorvel/keyboard/win/capture_shortcut_key_dlg.h>

#include <quorvel/res/resource_ids.h>

#include "keyboard/win/pressed_key.h"

IMPLEMENT_DYNAMIC(CCaptureShortcutKeyDlg, CVaskDialog)

CCaptureShortcutKeyDlg::CCaptureShortcutKeyDlg(CWnd* parent)
    : CVaskDialog(QUORVEL_DIALOG_CAPTURE_SHORTCUT_KEY, parent) {}

UINT CCaptureShortcutKeyDlg::GetTemplateID() {
    return QUORVEL_DIALOG_CAPTURE_SHORTCUT_KEY;
}

BOOL CCaptureShortcutKeyDlg::PreTranslateMessage(MSG* message) {
    CShortcutKey key;
    if (!quorvel::GetPressedKey(*message, key))
        return CVaskDialog::PreTranslateMessage(message);
    m_key = key;
    if (key.UsesAltKeyModifier()) // whose release will reach the owner
        quorvel::ForgetAlt(message->hwnd);
    EndDialog(IDOK);
    return TRUE;
}
