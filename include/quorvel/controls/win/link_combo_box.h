// CLinkComboBox: a combo box for addresses, which offers schemes and lets the user choose files.
// Windows only, user-interface thread.
//
// Choosing "file://" in the open list shows the system's file dialog. The address of the chosen
// file becomes the text, and the parent gets WM_COMMAND with the code FILE_CHOSEN.
#pragma once

#include <quorvel/framework/win/combo_box.h>
#include <quorvel/framework/win/message_map.h>

class QUORVEL_API CLinkComboBox : public CComboBox {
    DECLARE_DYNAMIC(CLinkComboBox)
public:
    static constexpr UINT FILE_CHOSEN = 0x83F8; // the notification code

    // Fills the list: http://, mailto:, file://, https://, ftp://, news: and gopher://. The open
    // list shows all of them.
    void LoadURLSchemes();
    // Whether the text is a valid address (AfxIsValidURL).
    BOOL IsValidURL() const;
    // Lets the user choose a file, as "file://" does. Returns FALSE and keeps the text when the
    // user cancelled.
    BOOL ChooseFile();

protected:
    // Shows the system's dialog. FALSE when no file was chosen.
    virtual BOOL PickFile(CString& path);

    BOOL OnDropDown();
    BOOL OnSelectionEndOk();
    BOOL OnCloseUp();
    LRESULT OnChooseFile(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    bool m_isDropped = false;
    bool m_hasChosen = false; // the user chose in the open list
};
