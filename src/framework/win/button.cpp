#include <quorvel/framework/win/button.h>

IMPLEMENT_DYNAMIC(CButton, CWnd)

BOOL CButton::Create(const WCHAR* caption, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(_T("Button"), caption, style, rect, parent, id);
}

int CButton::GetCheck() const {
    return static_cast<int>(SendMessage(BM_GETCHECK));
}

void CButton::SetCheck(int state) {
    SendMessage(BM_SETCHECK, static_cast<WPARAM>(state));
}
