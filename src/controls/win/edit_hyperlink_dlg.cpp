#include <quorvel/controls/win/edit_hyperlink_dlg.h>

#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>

IMPLEMENT_DYNAMIC(CEditHyperlinkDlg, CVaskDialog)

BEGIN_MESSAGE_MAP(CEditHyperlinkDlg, CVaskDialog)
ON_CBN_SELCHANGE(QUORVEL_LINK_ADDRESS, &CEditHyperlinkDlg::OnAddressSelected)
ON_CONTROL(CLinkComboBox::FILE_CHOSEN, QUORVEL_LINK_ADDRESS, &CEditHyperlinkDlg::OnFileChosen)
END_MESSAGE_MAP()

CEditHyperlinkDlg::CEditHyperlinkDlg(int displayTextReadOnly, CWnd* parent)
    : CVaskDialog(QUORVEL_DIALOG_EDIT_HYPERLINK, parent),
      m_isTextReadOnly(displayTextReadOnly != 0) {}

CEditHyperlinkDlg::~CEditHyperlinkDlg() = default;

UINT CEditHyperlinkDlg::GetTemplateID() {
    return QUORVEL_DIALOG_EDIT_HYPERLINK;
}

void CEditHyperlinkDlg::DoDataExchange(CDataExchange* exchange) {
    CVaskDialog::DoDataExchange(exchange);
    DDX_Control(exchange, QUORVEL_LINK_ADDRESS, m_address);
}

BOOL CEditHyperlinkDlg::LoadData() {
    m_address.LoadURLSchemes();
    m_address.LimitText(0); // no limit but the system's
    m_address.SetWindowText(m_uri);
    SetDlgItemText(QUORVEL_LINK_DISPLAY_TEXT, m_displayText);
    GetDlgItem(QUORVEL_LINK_DISPLAY_TEXT)->EnableWindow(!m_isTextReadOnly);
    return TRUE;
}

BOOL CEditHyperlinkDlg::ValidateData(UINT&, CString&, CString& text, CRect& rect) {
    CString displayText;
    GetDlgItemText(QUORVEL_LINK_DISPLAY_TEXT, displayText);
    if (!m_isTextReadOnly && displayText.Trim().IsEmpty()) {
        text.LoadString(quorvel::kTextFieldEmpty);
        GetDlgItem(QUORVEL_LINK_DISPLAY_TEXT)->GetWindowRect(rect);
        return FALSE;
    }
    if (m_address.IsValidURL())
        return TRUE;
    text.LoadString(quorvel::kTextFieldInvalidUrl);
    m_address.GetWindowRect(rect);
    return FALSE;
}

BOOL CEditHyperlinkDlg::SaveData() {
    GetDlgItemText(QUORVEL_LINK_DISPLAY_TEXT, m_displayText);
    m_address.GetWindowText(m_uri);
    return TRUE;
}

// The combo box itself still has its former text.
void CEditHyperlinkDlg::OnAddressSelected() {
    CString address;
    m_address.GetLBText(m_address.GetCurSel(), address);
    ShowAddressAsText(address);
}

void CEditHyperlinkDlg::OnFileChosen() {
    CString address;
    m_address.GetWindowText(address);
    ShowAddressAsText(address);
}

void CEditHyperlinkDlg::ShowAddressAsText(const CString& address) {
    if (m_isTextReadOnly)
        SetDlgItemText(QUORVEL_LINK_DISPLAY_TEXT, address);
}
