// CLinkComboBox: a combo box for an address, which offers the schemes and picks files. Windows
// only, user-interface thread.
//
// Choosing "file://" in the open list shows the system's dialog for files. The address of the file
// that is picked becomes the text, and the parent gets WM_COMMAND with the code FILE_CHOSEN.
#pragma once

#include <quorvel/framework/win/combo_box.h>
#include <quorvel/framework/win/message_map.h>

class QUORVEL_API CLinkComboBox : public CComboBox {
    DECLARE_DYNAMIC(CLinkComboBox)
public:
    static constexpr UINT FILE_CHOSEN = 0x83F8; // the notification code

    // Fills the list: http://, mailto:, file://, https://, ftp://, news: and gopher://. The list
    // shows all of them when it is open.
    void LoadURLSchemes();
    // Whether the text is a valid address (AfxIsValidURL).
    BOOL IsValidURL() const;
    // Lets the user pick a file, as choosing "file://" does. FALSE when the user cancelled; the
    // text stays then.
    BOOL ChooseFile();

protected:
    // The system's dialog. FALSE: no file was picked.
    virtual BOOL PickFile(CString& path);

    BOOL OnDropDown();
    BOOL OnSelectionEndOk();
    BOOL OnCloseUp();
    LRESULT OnChooseFile(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    bool m_isDropped = false;
    bool m_hasChosen = false; // in the open list
};
