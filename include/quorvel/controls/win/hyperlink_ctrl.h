// CHyperlinkCtrl: a text that is a link. Windows only, user-interface thread.
//
// Create one by subclassing a static text of a dialog (DDX_Control), or by Create with the class
// "Static"; with WS_TABSTOP the keyboard can reach it. The text is drawn with the window's
// static-text style, underlined, in the colour of its state. A link either has an address (URI) and
// opens it, or only notifies its parent; the flag HAS_URI decides that.
//
// A click or Enter activates the link when the button or key is released (for a click, over the
// text):
// - without HAS_URI the parent gets WM_COMMAND with the code LINK_ACTIVATED;
// - with Ctrl pressed, with an empty display text, and when the link must not be opened, the user
//   edits it, if that is allowed (CanEditURI);
// - otherwise the address is opened (Open).
// The menu key, Shift+F10 and a right click on the text show a menu with these commands.
//
// The host's hook decides what is opened (QuorvelSetOpenExternalLinkCallback). Without a hook these
// addresses are opened, and all others are refused with a box:
// - http, https, ftp, gopher and news addresses without quotes, angle brackets and backslashes;
// - such mailto addresses, if they name no attachment and have line breaks only in the body;
// - file:// with the path of a document on this computer: bmp, csv, doc, docx, gif, htm, html,
//   jpeg, jpg, log, md, odp, ods, odt, pdf, png, ppt, pptx, rtf, tif, tiff, txt, xls, xlsx.
// So a link with an address from elsewhere starts no program unless the host's hook allows it. A
// file:// address of a program, or on another computer, is opened only if the hook allows it.
//
// In a high-contrast scheme the system's colours replace the link's own. For screen readers the
// link has its display text as its name. It has the role of a link if the component model is
// initialised on the thread (CoInitialize).
//
// The hook and the parent may change or destroy the control while they are called.
#pragma once

#include <quorvel/framework/win/dc.h>
#include <quorvel/framework/win/message_map.h>
#include <quorvel/framework/win/tool_tip_ctrl.h>

#include <memory>

namespace quorvel {
class LinkModel;
} // namespace quorvel

class QUORVEL_API CHyperlinkCtrl : public CWnd {
    DECLARE_DYNAMIC(CHyperlinkCtrl)
public:
    enum Flags : DWORD { // what users may do with the link, and whether it has an address
        CAN_EDIT_DISPLAY_TEXT = 0x01,
        HAS_URI = 0x02,
        CAN_OPEN_URI = 0x04,
        CAN_EDIT_URI = 0x08,
        CAN_COPY_URI = 0x10, // initially all five are set
    };
    static constexpr UINT LINK_ACTIVATED = 0x83F4; // the notification code

    CHyperlinkCtrl();
    ~CHyperlinkCtrl() override;

    // Also sets the window's text, to "<empty>" if the text is empty. FALSE for null and without a
    // window. A dialog template's text is not the display text: set it with this function.
    BOOL SetDisplayText(const WCHAR* text);
    CString GetDisplayText() const;
    BOOL IsDisplayTextEmpty() const;
    BOOL SetWindowTextW(const WCHAR* text); // what is drawn; the display text stays
    BOOL SetWindowText(const WCHAR* text) { return SetWindowTextW(text); }

    // Returns FALSE and keeps the former address for null and for an invalid one (AfxIsValidURL).
    // The tip shows the first 400 characters.
    BOOL SetURI(const WCHAR* uri);
    CString GetURI() const;
    BOOL IsURIEmpty() const; // also before an address is set
    void ClearURI();         // removes the address and hides the tip

    // One or more of the flags. The tip follows a change; the text is not drawn again.
    void SetFlags(DWORD flags);
    DWORD GetFlags() const;
    void SetFlag(DWORD flag);
    void ClearFlag(DWORD flag);
    BOOL IsFlagSet(DWORD flags) const; // whether all are set
    void SetCanEditDisplayText(BOOL can);
    BOOL CanEditDisplayText() const;
    void SetHasURI(BOOL has);
    BOOL HasURI() const;
    // The setters change their flag. The getters also require HAS_URI.
    void SetCanOpenURI(BOOL can);
    BOOL CanOpenURI() const;
    void SetCanEditURI(BOOL can);
    BOOL CanEditURI() const;
    void SetCanCopyURI(BOOL can);
    BOOL CanCopyURI() const;

    // Returns FALSE when the link cannot be opened (CanOpenURI), is refused, or is already being
    // opened or edited. TRUE when it was passed to the system; a box reports a failure.
    BOOL Open();
    // Shows the edit dialog and takes its texts. Returns FALSE when the user cancelled, while the
    // link is already being opened or edited, and without a window.
    BOOL Edit();
    BOOL CopyShortcut(); // copies the address; FALSE if it is empty

    // Whether the user has edited the link.
    BOOL GetModify() const;
    void SetModify(BOOL modified = TRUE);

    // Default colours: blue, red while pressed, purple (for hosts that draw visited links), and the
    // system's current COLOR_BTNSHADOW when disabled.
    void SetLinkColor(COLORREF color);
    COLORREF GetLinkColor() const;
    void SetActiveLinkColor(COLORREF color);
    COLORREF GetActiveLinkColor() const;
    void SetVisitedLinkColor(COLORREF color);
    COLORREF GetVisitedLinkColor() const;
    void SetDisabledLinkColor(COLORREF color);
    COLORREF GetDisabledLinkColor() const;

    // Client coordinates; empty without a text. The focus rectangle surrounds the text.
    CRect GetDisplayTextRect() const;
    BOOL HitTestText(CPoint point) const;
    CRect GetFocusRect() const;
    // Do nothing without a window; HasTabStop then returns FALSE.
    void InvalidateFocusRect();
    void InvalidateCtrl();
    BOOL HasTabStop() const;
    // Creates the underlined font from the window's. Also called when the window's font or the
    // system's settings change.
    void UpdateFonts();

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    void SendLinkActivatedMessageToParent(); // WM_COMMAND with LINK_ACTIVATED

    HBRUSH CtlColor(CDC* dc, UINT control); // the colour of the link's state, no background
    void OnPaint();
    BOOL OnEraseBkgnd(CDC* dc);
    BOOL OnSetCursor(CWnd* wnd, UINT hitTest, UINT message);
    void OnMouseLeave();
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnCaptureChanged(CWnd* wnd);
    void OnKeyDown(UINT key, UINT repeats, UINT flags);
    void OnKeyUp(UINT key, UINT repeats, UINT flags);
    void OnSetFocus(CWnd* former);
    void OnKillFocus(CWnd* next);
    void OnEnable(BOOL enable);
    void OnSize(UINT kind, int width, int height);
    void OnContextMenu(CWnd* wnd, CPoint point);
    void OnSettingChange(UINT flags, const WCHAR* section);
    void OnSysColorChange();
    void OnDestroy();
    LRESULT OnGetDlgCode(WPARAM wParam, LPARAM lParam);
    LRESULT OnHitTest(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetFont(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetText(WPARAM wParam, LPARAM lParam);
    void OnUpdatePopuphyperlinkOpen(CCmdUI* ui);
    void OnUpdatePopuphyperlinkEdit(CCmdUI* ui);
    void OnUpdatePopuphyperlinkCopyshortcut(CCmdUI* ui);
    DECLARE_MESSAGE_MAP()

private:
    CFont& DisplayFont() const;
    void DrawParent(CDC& dc);
    void UpdateToolTip();
    void ShowMenu(CPoint place);
    void Perform(int action); // an action of quorvel::LinkModel

    const std::shared_ptr<quorvel::LinkModel> m_link; // outlives the control during its calls
    BOOL m_isTrackingMouse = FALSE;
    bool m_hasRole = false; // the role "link", for screen readers
    mutable CFont m_font;
    CToolTipCtrl m_toolTip;
};
