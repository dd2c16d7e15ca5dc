// The properties of a hyperlink: its texts, flags and colours.
#include <quorvel/controls/win/hyperlink_ctrl.h>

#include "controls/link_model.h"

using quorvel::LinkModel;

CString CHyperlinkCtrl::GetDisplayText() const {
    return m_link->m_displayText;
}
BOOL CHyperlinkCtrl::IsDisplayTextEmpty() const {
    return m_link->m_displayText.IsEmpty();
}
BOOL CHyperlinkCtrl::SetWindowTextW(const WCHAR* text) {
    return CWnd::SetWindowText(text);
}

BOOL CHyperlinkCtrl::SetURI(const WCHAR* uri) {
    if (!m_link->SetUri(uri))
        return FALSE;
    UpdateToolTip();
    return TRUE;
}

CString CHyperlinkCtrl::GetURI() const {
    return m_link->Uri();
}
BOOL CHyperlinkCtrl::IsURIEmpty() const {
    return m_link->Uri().IsEmpty();
}
void CHyperlinkCtrl::ClearURI() {
    m_link->ClearUri();
    UpdateToolTip();
}

void CHyperlinkCtrl::SetFlags(DWORD flags) {
    m_link->m_flags = flags;
    UpdateToolTip();
}
DWORD CHyperlinkCtrl::GetFlags() const {
    return m_link->m_flags;
}
void CHyperlinkCtrl::SetFlag(DWORD flag) {
    SetFlags(GetFlags() | flag);
}
void CHyperlinkCtrl::ClearFlag(DWORD flag) {
    SetFlags(GetFlags() & ~flag);
}
BOOL CHyperlinkCtrl::IsFlagSet(DWORD flags) const {
    return m_link->AreSet(flags);
}

void CHyperlinkCtrl::SetCanEditDisplayText(BOOL can) {
    m_link->SetFlag(CAN_EDIT_DISPLAY_TEXT, can != FALSE);
}
BOOL CHyperlinkCtrl::CanEditDisplayText() const {
    return IsFlagSet(CAN_EDIT_DISPLAY_TEXT);
}
void CHyperlinkCtrl::SetHasURI(BOOL has) {
    m_link->SetFlag(HAS_URI, has != FALSE);
    UpdateToolTip();
}
BOOL CHyperlinkCtrl::HasURI() const {
    return IsFlagSet(HAS_URI);
}
void CHyperlinkCtrl::SetCanOpenURI(BOOL can) {
    m_link->SetFlag(CAN_OPEN_URI, can != FALSE);
}
BOOL CHyperlinkCtrl::CanOpenURI() const {
    return m_link->Can(LinkModel::Command::Open);
}
void CHyperlinkCtrl::SetCanEditURI(BOOL can) {
    m_link->SetFlag(CAN_EDIT_URI, can != FALSE);
}
BOOL CHyperlinkCtrl::CanEditURI() const {
    return m_link->Can(LinkModel::Command::Edit);
}
void CHyperlinkCtrl::SetCanCopyURI(BOOL can) {
    m_link->SetFlag(CAN_COPY_URI, can != FALSE);
}
BOOL CHyperlinkCtrl::CanCopyURI() const {
    return m_link->Can(LinkModel::Command::Copy);
}

BOOL CHyperlinkCtrl::GetModify() const {
    return m_link->m_isModified;
}
void CHyperlinkCtrl::SetModify(BOOL modified) {
    m_link->m_isModified = modified != FALSE;
}

void CHyperlinkCtrl::SetLinkColor(COLORREF color) {
    m_link->m_linkColor = color;
    InvalidateCtrl();
}
COLORREF CHyperlinkCtrl::GetLinkColor() const {
    return m_link->m_linkColor;
}
void CHyperlinkCtrl::SetActiveLinkColor(COLORREF color) {
    m_link->m_activeColor = color;
    InvalidateCtrl();
}
COLORREF CHyperlinkCtrl::GetActiveLinkColor() const {
    return m_link->m_activeColor;
}
void CHyperlinkCtrl::SetVisitedLinkColor(COLORREF color) {
    m_link->m_visitedColor = color;
}
COLORREF CHyperlinkCtrl::GetVisitedLinkColor() const {
    return m_link->m_visitedColor;
}
void CHyperlinkCtrl::SetDisabledLinkColor(COLORREF color) {
    m_link->m_disabledColor = color;
    InvalidateCtrl();
}
COLORREF CHyperlinkCtrl::GetDisabledLinkColor() const {
    return m_link->m_disabledColor.value_or(::GetSysColor(COLOR_BTNSHADOW));
}
