// CEditHyperlinkDlg: the dialog in which users edit the text and the address of a link. Windows
// only, user-interface thread.
//
// OK refuses an empty text or an invalid address and shows a balloon. A read-only text
// is not checked; then an address from the list or of a chosen file also becomes the
// text.
#pragma once

#include <quorvel/controls/win/link_combo_box.h>
#include <quorvel/controls/win/vask_dialog.h>

class QUORVEL_API CEditHyperlinkDlg : public CVaskDialog {
    DECLARE_DYNAMIC(CEditHyperlinkDlg)
public:
    // A non-zero first argument makes the text read-only.
    explicit CEditHyperlinkDlg(int displayTextReadOnly, CWnd* parent = nullptr);
    ~CEditHyperlinkDlg() override;

    // The initial values, and after OK the user's input.
    void SetDisplayText(const CString& text) { m_displayText = text; }
    const CString& GetDisplayText() const { return m_displayText; }
    void SetURI(const CString& uri) { m_uri = uri; }
    const CString& GetURI() const { return m_uri; }

protected:
    UINT GetTemplateID() override;
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL LoadData() override;
    BOOL ValidateData(UINT& icon, CString& title, CString& text, CRect& rect) override;
    BOOL SaveData() override;

    void OnAddressSelected();
    void OnFileChosen();
    DECLARE_MESSAGE_MAP()

private:
    void ShowAddressAsText(const CString& address);

    const bool m_isTextReadOnly;
    CString m_displayText;
    CString m_uri;
    CLinkComboBox m_address;
};
