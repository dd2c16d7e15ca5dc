// CAssignShortcutDlg: the dialog in which the user chooses a key for a command and sees what speaks
// against it. Windows only, user-interface thread.
//
// While the field of the key has the focus, as at first, it takes the key that is pressed with its
// modifiers. What it leaves to the dialog: Tab and Shift+Tab, Enter and Escape without modifiers,
// and Alt+F4. (CCaptureShortcutKeyDlg takes those too.) Below it stand the conflicts of the key
// (shortcut_conflicts.h).
//
// DoModal ends with IDOK by Assign, enabled once a key is there, and by Clear, for no key;
// GetShortcutKey is the choice. The scheme is only read: the caller then calls its SetShortcutKey.
#pragma once

#include <quorvel/controls/win/vask_dialog.h>
#include <quorvel/keyboard/keyboard_mapping_scheme.h>

class QUORVEL_API CAssignShortcutDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CAssignShortcutDlg)
public:
    // The scheme must outlive the dialog. Without the command in it, its number is shown.
    CAssignShortcutDlg(const CKeyboardMappingScheme& scheme, unsigned int commandID,
                       CWnd* parent = nullptr);

    // At first the command's key.
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
