#include <quorvel/controls/win/vask_property_sheet.h>

#include <quorvel/controls/win/vask_property_page.h>
#include <quorvel/framework/win/message_map.h>

#include "controls/win/validation_balloon.h"
#include "controls/wizard_model.h"

IMPLEMENT_DYNAMIC(CVaskPropertySheet, CPropertySheet)

BEGIN_MESSAGE_MAP(CVaskPropertySheet, CPropertySheet)
ON_WM_MOVE()
ON_WM_SHOWWINDOW()
ON_MESSAGE(WM_ACTIVATEAPP, &CVaskPropertySheet::OnActivateProgram)
END_MESSAGE_MAP()

CVaskPropertySheet::CVaskPropertySheet() = default;

CVaskPropertySheet::CVaskPropertySheet(const WCHAR* caption, CWnd* parent, UINT selectedPage)
    : CPropertySheet(caption, parent, selectedPage) {}

CVaskPropertySheet::CVaskPropertySheet(UINT captionTextId, CWnd* parent, UINT selectedPage)
    : CPropertySheet(captionTextId, parent, selectedPage) {}

CVaskPropertySheet::~CVaskPropertySheet() = default;

void CVaskPropertySheet::UpdateCommandButtonText() {
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        CString text;
        const int id = ::GetDlgCtrlID(child);
        const UINT textId =
            IsWizard() ? quorvel::WizardButtonText(id) : quorvel::SheetButtonText(id);
        if (textId != 0 && text.LoadString(textId))
            ::SetWindowTextW(child, text);
    }
}

BOOL CVaskPropertySheet::OnInitDialog() {
    const BOOL setsFocus = CPropertySheet::OnInitDialog();
    UpdateCommandButtonText();
    return setsFocus;
}

// For all pages, because a sheet that is being created cannot report its front page yet.
void CVaskPropertySheet::ForEachBalloon(void (*action)(quorvel::ValidationBalloon& balloon)) {
    for (int position = 0; position < GetPageCount(); ++position) {
        if (const auto* const page = dynamic_cast<CVaskPropertyPage*>(GetPage(position)))
            action(*page->m_balloon);
    }
}

void CVaskPropertySheet::OnMove(int x, int y) {
    CPropertySheet::OnMove(x, y);
    ForEachBalloon([](quorvel::ValidationBalloon& balloon) { balloon.Follow(); });
}

void CVaskPropertySheet::OnShowWindow(BOOL isShown, UINT status) {
    CPropertySheet::OnShowWindow(isShown, status);
    if (!isShown)
        ForEachBalloon([](quorvel::ValidationBalloon& balloon) { balloon.Hide(); });
}

LRESULT CVaskPropertySheet::OnActivateProgram(WPARAM isActive, LPARAM) {
    if (!isActive)
        ForEachBalloon([](quorvel::ValidationBalloon& balloon) { balloon.Hide(); });
    return Default();
}
