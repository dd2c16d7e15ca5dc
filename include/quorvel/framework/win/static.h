// CStatic: a text or picture that takes no input. Windows only, its window's thread.
#pragma once

#include <quorvel/framework/wnd.h>

class QUORVEL_API CStatic : public CWnd {
    DECLARE_DYNAMIC(CStatic)
public:
    // As CWnd::Create, with the window class of the control.
    BOOL Create(const WCHAR* text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xffff);
};
