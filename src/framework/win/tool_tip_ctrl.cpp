#include <quorvel/framework/win/tool_tip_ctrl.h>

#include <cstddef>

namespace {

// The size that the common controls accept with and without a manifest for version 6.
constexpr UINT kToolSize = offsetof(TOOLINFOW, lpReserved);

// A tool is identified by its window and id; a whole window has itself as id.
TOOLINFOW Tool(const CWnd& wnd, UINT_PTR id) {
    TOOLINFOW tool = {};
    tool.cbSize = kToolSize;
    if (id == 0) {
        tool.uFlags = TTF_IDISHWND;
        tool.hwnd = ::GetParent(wnd.m_hWnd);
        tool.uId = reinterpret_cast<UINT_PTR>(wnd.m_hWnd);
    } else {
        tool.hwnd = wnd.m_hWnd;
        tool.uId = id;
    }
    return tool;
}

LPARAM Address(const TOOLINFOW& tool) {
    return reinterpret_cast<LPARAM>(&tool);
}

} // namespace

BOOL CToolTipCtrl::Create(CWnd* parent, DWORD style) {
    return CreateEx(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | style, CW_USEDEFAULT,
                    CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, parent->GetSafeHwnd(), nullptr);
}

BOOL CToolTipCtrl::AddTool(CWnd* wnd, const WCHAR* text, const RECT* rect, UINT_PTR id) {
    if ((rect != nullptr) != (id != 0))
        return FALSE;
    TOOLINFOW tool = Tool(*wnd, id);
    if (rect != nullptr)
        tool.rect = *rect;
    tool.lpszText = const_cast<LPWSTR>(text);
    return static_cast<BOOL>(SendMessage(TTM_ADDTOOLW, 0, Address(tool)));
}

BOOL CToolTipCtrl::AddTool(CWnd* wnd, UINT textId, const RECT* rect, UINT_PTR id) {
    CString text;
    return text.LoadString(textId) && AddTool(wnd, text.GetString(), rect, id);
}

void CToolTipCtrl::DelTool(CWnd* wnd, UINT_PTR id) {
    SendMessage(TTM_DELTOOLW, 0, Address(Tool(*wnd, id)));
}

void CToolTipCtrl::UpdateTipText(const WCHAR* text, CWnd* wnd, UINT_PTR id) {
    TOOLINFOW tool = Tool(*wnd, id);
    tool.lpszText = const_cast<LPWSTR>(text);
    SendMessage(TTM_UPDATETIPTEXTW, 0, Address(tool));
}

void CToolTipCtrl::SetToolRect(CWnd* wnd, UINT_PTR id, const RECT* rect) {
    TOOLINFOW tool = Tool(*wnd, id);
    tool.rect = *rect;
    SendMessage(TTM_NEWTOOLRECTW, 0, Address(tool));
}
