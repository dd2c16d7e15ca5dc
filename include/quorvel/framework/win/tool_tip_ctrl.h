// CToolTipCtrl: tool tips, or balloons (TTS_BALLOON). Windows only, on its window's thread.
//
// A tool is a whole window, or a rectangle of a window (with a non-zero id). The tip is shown only
// if the control gets the mouse messages of the tool: call RelayEvent in PreTranslateMessage.
#pragma once

#include <quorvel/framework/wnd.h>

class QUORVEL_API CToolTipCtrl : public CWnd {
    DECLARE_DYNAMIC(CToolTipCtrl)
public:
    // A top-level window above the others. The parent must not be null.
    BOOL Create(CWnd* parent, DWORD style = 0);

    // A null rectangle means the whole window. The text is copied; LPSTR_TEXTCALLBACK asks the
    // parent with TTN_NEEDTEXT each time.
    BOOL AddTool(CWnd* wnd, const WCHAR* text = LPSTR_TEXTCALLBACKW, const RECT* rect = nullptr,
                 UINT_PTR id = 0);
    BOOL AddTool(CWnd* wnd, UINT textId, const RECT* rect = nullptr, UINT_PTR id = 0);
    // The tool is the window, or the rectangle with that id. Ignored when there is no such tool.
    void DelTool(CWnd* wnd, UINT_PTR id = 0);
    void UpdateTipText(const WCHAR* text, CWnd* wnd, UINT_PTR id = 0);
    void SetToolRect(CWnd* wnd, UINT_PTR id, const RECT* rect);
    int GetToolCount() const {
        return static_cast<int>(SendMessage(TTM_GETTOOLCOUNT));
    } // all tools

    // Send the control's messages (TTM_...). Pop hides the tip; delays are of the kind TTDT_....
    void Activate(BOOL active) { SendMessage(TTM_ACTIVATE, static_cast<WPARAM>(active)); }
    void RelayEvent(MSG* message) {
        SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(message));
    }
    void Pop() { SendMessage(TTM_POP); }
    void SetDelayTime(DWORD which, int milliseconds) {
        SendMessage(TTM_SETDELAYTIME, which, MAKELPARAM(milliseconds, 0));
    }
    // The width at which long texts break into lines; -1, the default: one line.
    int SetMaxTipWidth(int width) {
        return static_cast<int>(SendMessage(TTM_SETMAXTIPWIDTH, 0, width));
    }
    BOOL SetTitle(UINT icon, const WCHAR* title) { // TTI_NONE, TTI_WARNING ...
        return static_cast<BOOL>(SendMessage(TTM_SETTITLEW, icon, reinterpret_cast<LPARAM>(title)));
    }
};
