#include <quorvel/framework/win/static.h>

IMPLEMENT_DYNAMIC(CStatic, CWnd)

BOOL CStatic::Create(const WCHAR* text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(_T("Static"), text, style, rect, parent, id);
}
