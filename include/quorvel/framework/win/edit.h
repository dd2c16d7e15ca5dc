// CEdit: an edit control. Windows only, on its window's thread. The class has no data members, so
// the result of CWnd::GetDlgItem for an edit control may be cast to it.
#pragma once

#include <quorvel/framework/wnd.h>

class QUORVEL_API CEdit : public CWnd {
    DECLARE_DYNAMIC(CEdit)
public:
    // As CWnd::Create, with the window class of the control.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(_T("Edit"), nullptr, style, rect, parent, id);
    }

    // The selection, by the control's messages (EM_..., WM_...). Positions count characters.
    void GetSel(int& first, int& last) const {
        SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    }
    void SetSel(int first, int last, BOOL noScroll = FALSE) {
        SendMessage(EM_SETSEL, static_cast<WPARAM>(first), last);
        if (!noScroll)
            SendMessage(EM_SCROLLCARET);
    }
    void ReplaceSel(const WCHAR* text, BOOL canUndo = FALSE) {
        SendMessage(EM_REPLACESEL, static_cast<WPARAM>(canUndo), reinterpret_cast<LPARAM>(text));
    }
    void Clear() { SendMessage(WM_CLEAR); }
    void Copy() { SendMessage(WM_COPY); }
    void Cut() { SendMessage(WM_CUT); }
    void Paste() { SendMessage(WM_PASTE); }
    BOOL CanUndo() const { return static_cast<BOOL>(SendMessage(EM_CANUNDO)); }
    BOOL Undo() { return static_cast<BOOL>(SendMessage(EM_UNDO)); }

    // The text, by the control's messages. SetReadOnly returns FALSE on failure.
    BOOL GetModify() const { return static_cast<BOOL>(SendMessage(EM_GETMODIFY)); }
    void SetModify(BOOL modified = TRUE) {
        SendMessage(EM_SETMODIFY, static_cast<WPARAM>(modified));
    }
    void SetLimitText(UINT maxChars) { SendMessage(EM_SETLIMITTEXT, maxChars); }
    UINT GetLimitText() const { return static_cast<UINT>(SendMessage(EM_GETLIMITTEXT)); }
    BOOL SetReadOnly(BOOL readOnly = TRUE) {
        return static_cast<BOOL>(SendMessage(EM_SETREADONLY, static_cast<WPARAM>(readOnly)));
    }
    void SetPasswordChar(WCHAR character) { SendMessage(EM_SETPASSWORDCHAR, character); }
    void SetMargins(UINT left, UINT right) {
        SendMessage(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(left, right));
    }
    // Shown while the edit is empty. Needs the themed common controls.
    BOOL SetCueBanner(const WCHAR* text, BOOL withFocus = FALSE) {
        return static_cast<BOOL>(SendMessage(EM_SETCUEBANNER, static_cast<WPARAM>(withFocus),
                                             reinterpret_cast<LPARAM>(text)));
    }

    // The lines of a multi-line edit; -1 means the line with the caret.
    int GetLineCount() const { return static_cast<int>(SendMessage(EM_GETLINECOUNT)); }
    int LineFromChar(int position = -1) const {
        return static_cast<int>(SendMessage(EM_LINEFROMCHAR, static_cast<WPARAM>(position)));
    }
    int LineIndex(int line = -1) const {
        return static_cast<int>(SendMessage(EM_LINEINDEX, static_cast<WPARAM>(line)));
    }
    void LineScroll(int lines, int chars = 0) {
        SendMessage(EM_LINESCROLL, static_cast<WPARAM>(chars), lines);
    }
    int GetFirstVisibleLine() const {
        return static_cast<int>(SendMessage(EM_GETFIRSTVISIBLELINE));
    }
};
