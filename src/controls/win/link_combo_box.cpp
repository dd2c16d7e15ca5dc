#include <quorvel/controls/win/link_combo_box.h>

#include <quorvel/util/text/validation.h>

#include "controls/link_schemes.h"

#include <commdlg.h>

#include <iterator>
#include <utility>

IMPLEMENT_DYNAMIC(CLinkComboBox, CComboBox)

namespace {

// Posted to the combo box itself: the list must close before the dialog opens.
constexpr UINT kChooseFileMessage = WM_APP + 1;
constexpr DWORD kLongestPath = 32768;

} // namespace

BEGIN_MESSAGE_MAP(CLinkComboBox, CComboBox)
ON_CONTROL_REFLECT_EX(CBN_DROPDOWN, &CLinkComboBox::OnDropDown)
ON_CONTROL_REFLECT_EX(CBN_SELENDOK, &CLinkComboBox::OnSelectionEndOk)
ON_CONTROL_REFLECT_EX(CBN_CLOSEUP, &CLinkComboBox::OnCloseUp)
ON_MESSAGE(kChooseFileMessage, &CLinkComboBox::OnChooseFile)
END_MESSAGE_MAP()

void CLinkComboBox::LoadURLSchemes() {
    ResetContent();
    for (const WCHAR* scheme : quorvel::kLinkSchemes)
        AddString(scheme);
    // The height of a combo box includes its open list.
    CRect rect;
    GetWindowRect(rect);
    const int rows = static_cast<int>(std::size(quorvel::kLinkSchemes)) + 1;
    const int rowHeight = static_cast<int>(SendMessage(CB_GETITEMHEIGHT));
    SetWindowPos(nullptr, 0, 0, rect.Width(), rect.Height() + rows * rowHeight,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

BOOL CLinkComboBox::IsValidURL() const {
    CString text;
    GetWindowText(text);
    return AfxIsValidURL(text);
}

BOOL CLinkComboBox::ChooseFile() {
    const HWND window = m_hWnd;
    CString path;
    if (!PickFile(path) || !::IsWindow(window))
        return FALSE;
    SetWindowText(quorvel::LinkToFile(path));
    ::SendMessageW(::GetParent(window), WM_COMMAND,
                   MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID()), FILE_CHOSEN),
                   reinterpret_cast<LPARAM>(window));
    return TRUE;
}

BOOL CLinkComboBox::PickFile(CString& path) {
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = m_hWnd;
    dialog.lpstrFile = path.GetBuffer(static_cast<int>(kLongestPath));
    dialog.lpstrFile[0] = 0;
    dialog.nMaxFile = kLongestPath;
    dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_FILEMUSTEXIST | OFN_NOCHANGEDIR;
    const BOOL isPicked = ::GetOpenFileNameW(&dialog);
    path.ReleaseBuffer();
    return isPicked;
}

// In a closed list, arrow keys also select, but they must only step through the schemes.
BOOL CLinkComboBox::OnDropDown() {
    m_isDropped = true;
    m_hasChosen = false;
    return FALSE;
}

BOOL CLinkComboBox::OnSelectionEndOk() {
    m_hasChosen = m_isDropped;
    return FALSE;
}

// The order of these two notifications depends on the system.
BOOL CLinkComboBox::OnCloseUp() {
    PostMessage(kChooseFileMessage);
    return FALSE;
}

LRESULT CLinkComboBox::OnChooseFile(WPARAM, LPARAM) {
    m_isDropped = false;
    CString chosen;
    GetLBText(GetCurSel(), chosen);
    if (std::exchange(m_hasChosen, false) && chosen == quorvel::kFileScheme)
        ChooseFile();
    return 0;
}
