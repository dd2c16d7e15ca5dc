// CButton: a push button, check box or radio button (by style). Windows only, its window's thread.
#pragma once

#include <quorvel/framework/wnd.h>

class QUORVEL_API CButton : public CWnd {
    DECLARE_DYNAMIC(CButton)
public:
    // As CWnd::Create, with the window class of the control.
    BOOL Create(const WCHAR* caption, DWORD style, const RECT& rect, CWnd* parent, UINT id);

    int GetCheck() const;     // BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE
    void SetCheck(int state); // BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE
};
