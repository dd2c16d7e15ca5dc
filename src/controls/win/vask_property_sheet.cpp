#include <quorvel/controls/win/vask_property_sheet.h>

#include "controls/wizard_model.h"

IMPLEMENT_DYNAMIC(CVaskPropertySheet, CPropertySheet)

BEGIN_MESSAGE_MAP(CVaskPropertySheet, CPropertySheet)
END_MESSAGE_MAP()

CVaskPropertySheet::CVaskPropertySheet(const WCHAR* caption, CWnd* parent, UINT selectedPage)
    : CPropertySheet(caption, parent, selectedPage) {}

CVaskPropertySheet::CVaskPropertySheet(UINT captionTextId, CWnd* parent, UINT selectedPage)
    : CPropertySheet(captionTextId, parent, selectedPage) {}

CVaskPropertySheet::~CVaskPropertySheet() = default;

void CVaskPropertySheet::UpdateCommandButtonText() {
    SetButtonTexts(&quorvel::SheetButtonText);
}

void CVaskPropertySheet::SetButtonTexts(UINT (*textOf)(int buttonId)) {
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        CString text;
        const UINT textId = textOf(::GetDlgCtrlID(child));
        if (textId != 0 && text.LoadString(textId))
            ::SetWindowTextW(child, text);
    }
}

BOOL CVaskPropertySheet::OnInitDialog() {
    const BOOL setsFocus = CPropertySheet::OnInitDialog();
    UpdateCommandButtonText();
    return setsFocus;
}
