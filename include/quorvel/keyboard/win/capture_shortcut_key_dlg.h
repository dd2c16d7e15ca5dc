// CCaptureShortcutKeyDlg: a dialog that captures the next key that the user presses. Windows only,
// user-interface thread.
//
// DoModal ends with IDOK as soon as a key is pressed; the key includes the modifiers that are
// pressed then. Enter, Escape, Tab and Alt+F4 are captured too, so the dialog can only be cancelled
// by a click on Cancel or on its close box (IDCANCEL). Ctrl, Shift and Alt alone are not captured.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/keyboard/shortcut_key.h>

class QUORVEL_API CCaptureShortcutKeyDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CCaptureShortcutKeyDlg)
public:
    explicit CCaptureShortcutKeyDlg(CWnd* parent = nullptr); // null: the active window is the owner

    const CShortcutKey& GetShortcutKey() const { return m_key; } // cleared until IDOK

protected:
    UINT GetTemplateID() override;
    BOOL PreTranslateMessage(MSG* message) override;

private:
    CShortcutKey m_key;
};
