// CCaptureShortcutKeyDlg: the dialog that takes the next key that the user presses. Windows only,
// user-interface thread.
//
// DoModal ends with IDOK as soon as a key is pressed, with the modifiers that are held then. Enter,
// Escape, Tab and Alt+F4 are taken as keys too, so without a key the dialog ends only by a click on
// Cancel or its close box (IDCANCEL). Ctrl, Shift and Alt alone are not taken.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/keyboard/shortcut_key.h>

class QUORVEL_API CCaptureShortcutKeyDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CCaptureShortcutKeyDlg)
public:
    explicit CCaptureShortcutKeyDlg(CWnd* parent = nullptr);

    const CShortcutKey& GetShortcutKey() const { return m_key; } // cleared until IDOK

protected:
    UINT GetTemplateID() override;
    BOOL PreTranslateMessage(MSG* message) override;

private:
    CShortcutKey m_key;
};
