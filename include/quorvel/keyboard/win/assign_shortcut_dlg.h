// CAssignShortcutDlg: a dialog in which the user chooses a key for a command and sees its
// conflicts. Windows only, user-interface thread.
//
// While the key field has the focus, as it does initially, it captures the pressed key with its
// modifiers. The dialog still handles Tab and Shift+Tab, Enter and Escape without modifiers, and
// Alt+F4. (CCaptureShortcutKeyDlg captures those too.) An input method does not get the keys. The
// conflicts of the key are shown below the field (shortcut_conflicts.h).
//
// DoModal returns IDOK for Assign, which needs a key, and for Clear (no key); GetShortcutKey is the
// choice. The dialog does not change the scheme: the caller calls its SetShortcutKey.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/keyboard/keyboard_mapping_scheme.h>

class QUORVEL_API CAssignShortcutDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CAssignShortcutDlg)
public:
    // The scheme must outlive the dialog. A command that it does not have is shown as a number.
    CAssignShortcutDlg(const CKeyboardMappingScheme& scheme, unsigned int commandID,
                       CWnd* parent = nullptr);

    // Initially the key of the command.
    const CShortcutKey& GetShortcutKey() const { return m_key; }

protected:
    UINT GetTemplateID() override;
    BOOL LoadData() override;
    BOOL IsOK() override;
    BOOL PreTranslateMessage(MSG* message) override;

    void OnClear();
    DECLARE_MESSAGE_MAP()

private:
    void ShowKey();

    const CKeyboardMappingScheme& m_scheme;
    CKeyboardShortcut m_shortcut;
    CShortcutKey m_key;
};
