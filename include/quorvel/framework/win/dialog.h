// CDialog: a dialog box from a template. Windows only. Use an object on one thread.
//
// The template is searched along the resource chain (extension_module.h), so the dialog of a
// language library is used.
//
// DoModal runs a message loop. PreTranslateMessage of each message's window and of its parents is
// called first; then the dialog's keys are handled (Tab, Enter, Escape). Idle time calls the
// ON_UPDATE_COMMAND_UI handlers of the controls. The owner is disabled during the loop; after it,
// it is enabled and activated. A dialog ends in these ways:
// - EndDialog(result), which OnOK and OnCancel call: DoModal returns the result.
// - DoModal returns -1 when there is no template (the last error has the reason), when the dialog
//   cannot be created from it (a control's class is missing), when OnInitDialog throws an
//   exception, when the owner is destroyed, when DestroyWindow destroys the dialog, and when
//   WM_QUIT is posted to the thread.
// - A second DoModal, or one of an object that has a window, returns -1 at once with
//   ERROR_ALREADY_EXISTS and does not affect the existing dialog.
// An exception in a handler or in PreTranslateMessage is passed to the application's
// ProcessWndProcException. The dialog stays open.
#pragma once

#include <quorvel/framework/win/data_exchange.h>
#include <quorvel/framework/win/message_map.h>

class QUORVEL_API CDialog : public CWnd {
    DECLARE_DYNAMIC(CDialog)
public:
    // Without a template: for Create or InitModalIndirect. The owner of a modal dialog is the
    // parent or the top-level window that contains it; for null, or a parent without a window, it
    // is the thread's active window.
    CDialog();
    explicit CDialog(const WCHAR* templateName, CWnd* parent = nullptr);
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    ~CDialog() override;

    // A modal dialog from a template in memory, which must outlive DoModal. Returns FALSE when this
    // object has a template or a window.
    BOOL InitModalIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr);
    virtual INT_PTR DoModal(); // the result of EndDialog, or -1

    // Creates a modeless dialog; the caller shows it, unless its template does. A null parent means
    // the application's main window. Returns FALSE for the reasons for which DoModal returns -1,
    // and when OnInitDialog calls EndDialog. In a derived class OnOK and OnCancel call
    // DestroyWindow: those of this class only hide the window.
    BOOL Create(const WCHAR* templateName, CWnd* parent = nullptr);
    BOOL Create(UINT templateId, CWnd* parent = nullptr) {
        return Create(MAKEINTRESOURCEW(templateId), parent);
    }
    BOOL CreateIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr);

    // Ends DoModal. A modeless dialog is hidden. If it is called in OnInitDialog, the dialog is
    // never shown; it is destroyed when OnInitDialog returns.
    void EndDialog(int result);

    // Loads accelerators along the resource chain. They become commands of this dialog before any
    // other key handling. Returns FALSE and keeps the old table when there is no such table.
    BOOL LoadAccelTable(const WCHAR* name);
    BOOL LoadAccelTable(UINT id) { return LoadAccelTable(MAKEINTRESOURCEW(id)); }

    // Set the focus to the next, the previous or the given control.
    void NextDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 0, FALSE); }
    void PrevDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 1, FALSE); }
    void GotoDlgCtrl(CWnd* control) {
        SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control->m_hWnd), TRUE);
    }
    // DM_SETDEFID and DM_GETDEFID. The result has DC_HASDEFID in its high word and the id below it.
    void SetDefID(UINT id) { SendMessage(DM_SETDEFID, id); }
    DWORD GetDefID() const { return static_cast<DWORD>(SendMessage(DM_GETDEFID)); }
    // Converts dialog units to pixels.
    void MapDialogRect(RECT* rect) const { ::MapDialogRect(m_hWnd, rect); }

    // Handles the accelerators, then the keys of a dialog.
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    // Called before the dialog is shown. TRUE sets the focus to the first control. The default
    // loads the controls with UpdateData(FALSE) and ends the dialog with -1 when that fails.
    virtual BOOL OnInitDialog();
    virtual void OnOK(); // validates with UpdateData(TRUE), and ends with IDOK when that succeeds
    virtual void OnCancel(); // also Escape, Alt+F4 and the close box; ends with IDCANCEL

    LRESULT OnKickIdle(WPARAM wParam, LPARAM lParam);
    // TRUE when the message is a key of this dialog's accelerators; its command was then sent.
    BOOL TranslateAccelerators(MSG* message);
    DECLARE_MESSAGE_MAP()

    const WCHAR* m_lpszTemplateName; // a number, m_templateText, or null without a template
    CWnd* m_pParentWnd;              // not owned

private:
    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    BOOL CreateFrom(const DLGTEMPLATE* dialogTemplate, HWND parent, HINSTANCE module);

    CString m_templateText;
    const DLGTEMPLATE* m_template = nullptr; // in the caller's memory
    HACCEL m_accelerators = nullptr;         // a resource; not freed
    enum class Opening { No, Running, Ended };
    Opening m_opening = Opening::No; // a modeless dialog until its OnInitDialog has returned
};
