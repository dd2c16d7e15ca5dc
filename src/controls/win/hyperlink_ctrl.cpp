#include <quorvel/controls/win/hyperlink_ctrl.h>

#include <quorvel/controls/win/edit_hyperlink_dlg.h>
#include <quorvel/framework/extension_module.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/res/resource_ids.h>
#include <quorvel/util/clipboard/win/clipboard.h>

#include "controls/link_model.h"
#include "controls/win/accessible_role.h"
#include "controls/win/high_contrast.h"
#include "system/open_link.h"

#include <oleacc.h>

#include <utility>

using quorvel::LinkModel;
using quorvel::LinkWork;

IMPLEMENT_DYNAMIC(CHyperlinkCtrl, CWnd)

BEGIN_MESSAGE_MAP(CHyperlinkCtrl, CWnd)
ON_WM_CTLCOLOR_REFLECT()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SETCURSOR()
ON_WM_MOUSELEAVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_CAPTURECHANGED()
ON_WM_KEYDOWN()
ON_WM_KEYUP()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_ENABLE()
ON_WM_SIZE()
ON_WM_CONTEXTMENU()
ON_WM_INITMENUPOPUP()
ON_WM_SETTINGCHANGE()
ON_WM_SYSCOLORCHANGE()
ON_WM_DESTROY()
ON_MESSAGE(WM_GETDLGCODE, &CHyperlinkCtrl::OnGetDlgCode)
ON_MESSAGE(WM_NCHITTEST, &CHyperlinkCtrl::OnHitTest)
ON_MESSAGE(WM_SETFONT, &CHyperlinkCtrl::OnSetFont)
ON_MESSAGE(WM_SETTEXT, &CHyperlinkCtrl::OnSetText)
ON_UPDATE_COMMAND_UI(QUORVEL_COMMAND_LINK_OPEN, &CHyperlinkCtrl::OnUpdatePopuphyperlinkOpen)
ON_UPDATE_COMMAND_UI(QUORVEL_COMMAND_LINK_EDIT, &CHyperlinkCtrl::OnUpdatePopuphyperlinkEdit)
ON_UPDATE_COMMAND_UI(QUORVEL_COMMAND_LINK_COPY, &CHyperlinkCtrl::OnUpdatePopuphyperlinkCopyshortcut)
END_MESSAGE_MAP()

namespace {

constexpr UINT_PTR kTool = 1;
constexpr int kMenuOffset = 5; // offset of a menu opened by a key from the control's corner

bool IsCtrlDown() {
    return ::GetKeyState(VK_CONTROL) < 0;
}

// The text format for a static-text style.
UINT FormatOf(DWORD style) {
    const DWORD kind = style & SS_TYPEMASK;
    UINT format = DT_EXPANDTABS;
    if (kind == SS_CENTER)
        format |= DT_CENTER;
    else if (kind == SS_RIGHT)
        format |= DT_RIGHT;
    if ((style & SS_NOPREFIX) != 0)
        format |= DT_NOPREFIX;
    switch (style & SS_ELLIPSISMASK) {
    case SS_ENDELLIPSIS:
        return format | DT_SINGLELINE | DT_END_ELLIPSIS;
    case SS_PATHELLIPSIS:
        return format | DT_SINGLELINE | DT_PATH_ELLIPSIS;
    case SS_WORDELLIPSIS:
        return format | DT_SINGLELINE | DT_WORD_ELLIPSIS;
    default:
        break;
    }
    if ((style & SS_CENTERIMAGE) != 0 || kind == SS_LEFTNOWORDWRAP || kind == SS_SIMPLE)
        return format | DT_SINGLELINE;
    return format | DT_WORDBREAK;
}

CRect Placed(CSize size, const CRect& room, DWORD style) {
    const DWORD kind = style & SS_TYPEMASK;
    const LONG width = size.cx < room.Width() ? size.cx : room.Width();
    const LONG height = size.cy < room.Height() ? size.cy : room.Height();
    LONG left = room.left;
    if (kind == SS_CENTER)
        left += (room.Width() - width) / 2;
    else if (kind == SS_RIGHT)
        left = room.right - width;
    const LONG top =
        (style & SS_CENTERIMAGE) != 0 ? room.top + (room.Height() - height) / 2 : room.top;
    return {left, top, left + width, top + height};
}

// Where nobody can read blue.
bool IsBackgroundDark() {
    const COLORREF color = ::GetSysColor(COLOR_BTNFACE);
    const int brightness = 3 * GetRValue(color) + 6 * GetGValue(color) + GetBValue(color);
    return brightness < 10 * 64;
}

HCURSOR HandCursor() {
    const WCHAR* const name = MAKEINTRESOURCEW(QUORVEL_CURSOR_HAND);
    const HCURSOR cursor = ::LoadCursorW(AfxFindResourceHandle(name, RT_GROUP_CURSOR), name);
    return cursor != nullptr ? cursor : ::LoadCursorW(nullptr, IDC_HAND);
}

} // namespace

CHyperlinkCtrl::CHyperlinkCtrl() : m_link(std::make_shared<LinkModel>()) {}

CHyperlinkCtrl::~CHyperlinkCtrl() {
    DestroyWindow(); // while the members still exist
    m_link->m_isDestroyed = true;
}

BOOL CHyperlinkCtrl::SetDisplayText(const WCHAR* text) {
    if (text == nullptr || m_hWnd == nullptr)
        return FALSE;
    if (!m_hasRole)
        quorvel::SetAccessibleRole(m_hWnd, ROLE_SYSTEM_LINK);
    m_hasRole = true;
    m_link->m_displayText = text;
    CString shown = m_link->m_displayText;
    if (shown.IsEmpty())
        shown.LoadString(quorvel::kTextHyperlinkEmpty);
    SetWindowText(shown);
    InvalidateCtrl();
    return TRUE;
}

BOOL CHyperlinkCtrl::Open() {
    const std::shared_ptr<LinkModel> link = m_link; // the hook may destroy the control
    const LinkWork work(*link);
    return work.IsEntered() && link->Can(LinkModel::Command::Open) &&
           quorvel::OpenExternalLink(link->Uri());
}

BOOL CHyperlinkCtrl::Edit() {
    const std::shared_ptr<LinkModel> link = m_link;
    const LinkWork work(*link);
    if (!work.IsEntered() || m_hWnd == nullptr)
        return FALSE;
    CEditHyperlinkDlg dialog(!CanEditDisplayText(), this);
    dialog.SetDisplayText(link->m_displayText);
    dialog.SetURI(link->Uri());
    if (dialog.DoModal() != IDOK || link->m_isDestroyed || m_hWnd == nullptr)
        return FALSE;
    SetDisplayText(dialog.GetDisplayText());
    SetURI(dialog.GetURI());
    InvalidateCtrl();
    SetModify();
    return TRUE;
}

BOOL CHyperlinkCtrl::CopyShortcut() {
    return AfxCopyTextToClipboard(m_link->Uri());
}

CFont& CHyperlinkCtrl::DisplayFont() const {
    if (m_font.m_hObject == nullptr) {
        LOGFONTW description = {};
        const CFont* const font = GetFont();
        if (font == nullptr || !font->GetLogFont(&description))
            ::GetObjectW(::GetStockObject(SYSTEM_FONT), sizeof description, &description);
        description.lfUnderline = TRUE;
        m_font.CreateFontIndirect(&description);
    }
    return m_font;
}

void CHyperlinkCtrl::UpdateFonts() {
    m_font.DeleteObject();
    UpdateToolTip();
    InvalidateCtrl();
}

CRect CHyperlinkCtrl::GetDisplayTextRect() const {
    CString text;
    if (m_hWnd != nullptr)
        GetWindowText(text);
    if (text.IsEmpty())
        return {};
    CRect client;
    GetClientRect(client);
    ::InflateRect(&client, -1, 0); // leaves room around the text for the focus rectangle
    CRect needed(0, 0, client.Width(), 0);
    CClientDC dc(const_cast<CHyperlinkCtrl*>(this));
    CFont* const former = dc.SelectObject(&DisplayFont());
    dc.DrawText(text, needed, FormatOf(GetStyle()) | DT_CALCRECT);
    dc.SelectObject(former);
    return Placed(needed.Size(), client, GetStyle());
}

BOOL CHyperlinkCtrl::HitTestText(CPoint point) const {
    const CRect rect = GetDisplayTextRect();
    return ::PtInRect(&rect, point);
}

CRect CHyperlinkCtrl::GetFocusRect() const {
    CRect rect = GetDisplayTextRect();
    if (rect.IsRectEmpty())
        return {};
    CRect client;
    GetClientRect(client);
    ::InflateRect(&rect, 1, 1);
    ::IntersectRect(&rect, &rect, &client);
    return rect;
}

void CHyperlinkCtrl::InvalidateFocusRect() {
    if (m_hWnd != nullptr)
        InvalidateRect(GetFocusRect());
}
void CHyperlinkCtrl::InvalidateCtrl() {
    if (m_hWnd != nullptr)
        Invalidate();
}
BOOL CHyperlinkCtrl::HasTabStop() const {
    return m_hWnd != nullptr && (GetStyle() & WS_TABSTOP) != 0;
}

// The tip is created with the first address or mouse move: while the window is being created, the
// tip could not belong to it.
void CHyperlinkCtrl::UpdateToolTip() {
    if (m_hWnd == nullptr)
        return;
    const CRect rect = GetDisplayTextRect();
    const CString text = m_link->TipText();
    if (m_toolTip.m_hWnd == nullptr) {
        if (!m_toolTip.Create(this, TTS_NOPREFIX | TTS_ALWAYSTIP))
            return;
        m_toolTip.AddTool(this, text, rect, kTool);
        m_toolTip.Activate(m_isTrackingMouse);
        return;
    }
    m_toolTip.UpdateTipText(text, this, kTool);
    m_toolTip.SetToolRect(this, kTool, rect);
}

BOOL CHyperlinkCtrl::PreTranslateMessage(MSG* message) {
    if (m_toolTip.m_hWnd != nullptr)
        m_toolTip.RelayEvent(message);
    return CWnd::PreTranslateMessage(message);
}

void CHyperlinkCtrl::SendLinkActivatedMessageToParent() {
    ::SendMessageW(::GetParent(m_hWnd), WM_COMMAND,
                   MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID()), LINK_ACTIVATED),
                   reinterpret_cast<LPARAM>(m_hWnd));
}

// Must be the last call in a handler: the control may be destroyed afterwards.
void CHyperlinkCtrl::Perform(int action) {
    switch (static_cast<LinkModel::Action>(action)) {
    case LinkModel::Action::NotifyParent:
        SendLinkActivatedMessageToParent();
        break;
    case LinkModel::Action::Open:
        Open();
        break;
    case LinkModel::Action::Edit:
        Edit();
        break;
    case LinkModel::Action::None:
        break;
    }
}

HBRUSH CHyperlinkCtrl::CtlColor(CDC* dc, UINT) {
    const quorvel::ContrastColors contrast = {
        ::GetSysColor(COLOR_HOTLIGHT), ::GetSysColor(COLOR_BTNTEXT), ::GetSysColor(COLOR_GRAYTEXT)};
    m_link->m_systemDisabledColor = ::GetSysColor(COLOR_BTNSHADOW);
    dc->SetTextColor(
        m_link->TextColor(IsWindowEnabled() != FALSE, ::GetCapture() == m_hWnd,
                          quorvel::IsHighContrast() || IsBackgroundDark() ? &contrast : nullptr));
    dc->SetBkMode(TRANSPARENT);
    return static_cast<HBRUSH>(::GetStockObject(HOLLOW_BRUSH));
}

// Draws the parent's background behind the control. The control is transparent, and the text drawn
// before must be erased.
void CHyperlinkCtrl::DrawParent(CDC& dc) {
    const HWND parent = ::GetParent(m_hWnd);
    CRect client;
    GetClientRect(client);
    ::FillRect(dc, &client, ::GetSysColorBrush(COLOR_BTNFACE)); // where the parent draws nothing
    CPoint origin;
    MapWindowPoints(FromHandle(parent), &origin, 1);
    POINT former = {};
    ::OffsetViewportOrgEx(dc, -origin.x, -origin.y, &former);
    ::SendMessageW(parent, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc.m_hDC), 0);
    ::SendMessageW(parent, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc.m_hDC), PRF_CLIENT);
    ::SetViewportOrgEx(dc, former.x, former.y, nullptr);
}

void CHyperlinkCtrl::OnPaint() {
    CPaintDC dc(this);
    DrawParent(dc);
    CString text;
    GetWindowText(text);
    CtlColor(&dc, CTLCOLOR_STATIC);
    CFont* const former = dc.SelectObject(&DisplayFont());
    CRect rect = GetDisplayTextRect();
    dc.DrawText(text, rect, FormatOf(GetStyle()));
    dc.SelectObject(former);
    if (HasTabStop() && ::GetFocus() == m_hWnd) {
        dc.SetTextColor(0); // the frame uses both colours
        dc.SetBkColor(0xFFFFFF);
        dc.DrawFocusRect(GetFocusRect());
    }
}

BOOL CHyperlinkCtrl::OnEraseBkgnd(CDC*) {
    return TRUE; // OnPaint draws the background
}

BOOL CHyperlinkCtrl::OnSetCursor(CWnd* wnd, UINT hitTest, UINT message) {
    if (!m_isTrackingMouse) {
        TRACKMOUSEEVENT track = {sizeof track, TME_LEAVE, m_hWnd, 0};
        m_isTrackingMouse = ::TrackMouseEvent(&track);
        UpdateToolTip();
        m_toolTip.Activate(TRUE);
    }
    CPoint point;
    ::GetCursorPos(&point);
    ScreenToClient(&point);
    if (!m_link->ShowsHand(HitTestText(point) != FALSE))
        return CWnd::OnSetCursor(wnd, hitTest, message);
    ::SetCursor(HandCursor());
    return TRUE;
}

void CHyperlinkCtrl::OnMouseLeave() {
    m_isTrackingMouse = FALSE;
    if (m_toolTip.m_hWnd != nullptr)
        m_toolTip.Activate(FALSE);
    CWnd::OnMouseLeave();
}

void CHyperlinkCtrl::OnLButtonDown(UINT flags, CPoint point) {
    if (!HitTestText(point)) {
        CWnd::OnLButtonDown(flags, point);
        return;
    }
    const std::shared_ptr<LinkModel> link = m_link;
    SetFocus();
    if (link->m_isDestroyed ||
        m_hWnd == nullptr) // the window that lost the focus may have destroyed it
        return;
    SetCapture();
    InvalidateCtrl();
}

void CHyperlinkCtrl::OnLButtonUp(UINT flags, CPoint point) {
    if (::GetCapture() != m_hWnd) {
        CWnd::OnLButtonUp(flags, point);
        return;
    }
    const LinkModel::Action action =
        m_link->ReleaseMouse(true, HitTestText(point) != FALSE, IsCtrlDown());
    ::ReleaseCapture();
    InvalidateCtrl();
    UpdateWindow(); // before an operation that may take long
    Perform(static_cast<int>(action));
}

void CHyperlinkCtrl::OnCaptureChanged(CWnd* wnd) {
    CWnd::OnCaptureChanged(wnd);
    InvalidateCtrl();
}

void CHyperlinkCtrl::OnKeyDown(UINT key, UINT repeats, UINT flags) {
    const bool isRepeated = (flags & KF_REPEAT) != 0;
    if (m_link->PressKey(key, isRepeated))
        InvalidateCtrl();
    else
        CWnd::OnKeyDown(key, repeats, flags);
}

void CHyperlinkCtrl::OnKeyUp(UINT key, UINT repeats, UINT flags) {
    const bool wasPressed = m_link->m_isKeyPressed;
    const LinkModel::Action action = m_link->ReleaseKey(key, IsCtrlDown());
    if (m_link->m_isKeyPressed == wasPressed) {
        CWnd::OnKeyUp(key, repeats, flags);
        return;
    }
    InvalidateCtrl();
    UpdateWindow();
    Perform(static_cast<int>(action));
}

void CHyperlinkCtrl::OnSetFocus(CWnd* former) {
    CWnd::OnSetFocus(former);
    InvalidateCtrl();
}

void CHyperlinkCtrl::OnKillFocus(CWnd* next) {
    m_link->CancelKey(); // it will be released in another window
    CWnd::OnKillFocus(next);
    InvalidateCtrl();
}

void CHyperlinkCtrl::OnEnable(BOOL enable) {
    if (!enable) {
        m_link->CancelKey();
        if (::GetCapture() == m_hWnd)
            ::ReleaseCapture();
    }
    CWnd::OnEnable(enable);
    InvalidateCtrl();
}

void CHyperlinkCtrl::OnSize(UINT kind, int width, int height) {
    CWnd::OnSize(kind, width, height);
    if (m_toolTip.m_hWnd != nullptr)
        UpdateToolTip();
    InvalidateCtrl();
}

void CHyperlinkCtrl::OnSettingChange(UINT flags, const WCHAR* section) {
    CWnd::OnSettingChange(flags, section);
    UpdateFonts();
}

void CHyperlinkCtrl::OnSysColorChange() {
    CWnd::OnSysColorChange();
    InvalidateCtrl();
}

void CHyperlinkCtrl::OnDestroy() {
    m_link->CancelKey();
    if (std::exchange(m_hasRole, false))
        quorvel::ClearAccessibleRole(m_hWnd);
    m_toolTip.DestroyWindow(); // it belongs to the top-level window, which may live on
    m_isTrackingMouse = FALSE;
    CWnd::OnDestroy();
}

// Otherwise a dialog would use Enter for its default button.
LRESULT CHyperlinkCtrl::OnGetDlgCode(WPARAM, LPARAM lParam) {
    const MSG* const message = reinterpret_cast<const MSG*>(lParam);
    const bool isEnter =
        message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
    return isEnter ? DLGC_WANTMESSAGE : 0;
}

// Without SS_NOTIFY a static text is transparent to the mouse.
LRESULT CHyperlinkCtrl::OnHitTest(WPARAM, LPARAM) {
    return HTCLIENT;
}

LRESULT CHyperlinkCtrl::OnSetFont(WPARAM, LPARAM) {
    const LRESULT result = Default();
    UpdateFonts();
    return result;
}

// Otherwise the platform's control would draw the text itself, in the parent's colours.
LRESULT CHyperlinkCtrl::OnSetText(WPARAM, LPARAM) {
    const BOOL wasVisible = ModifyStyle(WS_VISIBLE, 0);
    const LRESULT result = Default();
    if (wasVisible)
        ModifyStyle(0, WS_VISIBLE);
    if (m_toolTip.m_hWnd != nullptr)
        UpdateToolTip();
    InvalidateCtrl();
    return result;
}

void CHyperlinkCtrl::OnContextMenu(CWnd* wnd, CPoint point) {
    const bool isByKey = point.x == -1 && point.y == -1;
    CPoint inside = point;
    ScreenToClient(&inside);
    if (!m_link->HasMenu() || (!isByKey && !HitTestText(inside))) {
        CWnd::OnContextMenu(wnd, point);
        return;
    }
    if (isByKey) {
        CRect window;
        GetWindowRect(window);
        point = {window.left + kMenuOffset, window.top + kMenuOffset};
    }
    ShowMenu(point);
}

void CHyperlinkCtrl::ShowMenu(CPoint place) {
    const std::shared_ptr<LinkModel> link = m_link;
    const HWND window = m_hWnd;
    SetFocus();
    CMenu menu;
    if (link->m_isDestroyed || m_hWnd == nullptr || !menu.LoadMenu(QUORVEL_MENU_HYPERLINK))
        return;
    CMenu* const popup = menu.GetSubMenu(0);
    popup->SetDefaultItem(QUORVEL_COMMAND_LINK_OPEN);
    link->m_isMenuShowing = true;
    const BOOL command =
        popup->TrackPopupMenu(TPM_RIGHTBUTTON | TPM_RETURNCMD, place.x, place.y, this);
    link->m_isMenuShowing = false;
    if (link->m_isDestroyed || m_hWnd != window)
        return;
    if (command == QUORVEL_COMMAND_LINK_OPEN && CanOpenURI())
        Open();
    else if (command == QUORVEL_COMMAND_LINK_EDIT && CanEditURI())
        Edit();
    else if (command == QUORVEL_COMMAND_LINK_COPY && CanCopyURI())
        CopyShortcut();
}

void CHyperlinkCtrl::OnUpdatePopuphyperlinkOpen(CCmdUI* ui) {
    ui->Enable(CanOpenURI());
}
void CHyperlinkCtrl::OnUpdatePopuphyperlinkEdit(CCmdUI* ui) {
    ui->Enable(CanEditURI());
}
void CHyperlinkCtrl::OnUpdatePopuphyperlinkCopyshortcut(CCmdUI* ui) {
    ui->Enable(CanCopyURI());
}
