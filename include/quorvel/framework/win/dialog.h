// CDialog: a dialog box from a template. Windows only; an object is used on one thread.
//
// A template is found along the resource chain (extension_module.h), so that the dialog of a
// language library is shown.
//
// DoModal runs a loop of its own: each message is offered to PreTranslateMessage of its window and
// of that window's parents, then keys are handled as the dialog's (Tab, Enter, Escape), and idle
// time calls the ON_UPDATE_COMMAND_UI handlers for the controls. Meanwhile the owner is disabled;
// at the end it is enabled and becomes active. How a dialog ends:
// - EndDialog(result), which OnOK and OnCancel call: DoModal returns the result.
// - -1 when there is no template or no dialog could be made of it (a control's class is missing),
//   when OnInitDialog throws an exception, when the owner is destroyed or the dialog's window by
//   DestroyWindow, and when the thread is posted WM_QUIT. The platform's last error says why a
//   template was not found.
// - A second DoModal, or one of an object that has a window, is -1 at once with
//   ERROR_ALREADY_EXISTS and leaves the dialog that is there alone.
// An exception in a handler or in PreTranslateMessage ends in the application's
// ProcessWndProcException; the dialog stays.
#pragma once

#include <quorvel/framework/win/data_exchange.h>
#include <quorvel/framework/win/message_map.h>

class QUORVEL_API CDialog : public CWnd {
    DECLARE_DYNAMIC(CDialog)
public:
    // Without a template: for Create or InitModalIndirect. The parent, or the top-level window that
    // it is in, owns a modal dialog. Null, or a parent without a window: the thread's active
    // window.
    CDialog();
    explicit CDialog(const WCHAR* templateName, CWnd* parent = nullptr);
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    ~CDialog() override;

    // A modal dialog from a template in memory, which must outlive DoModal. FALSE when this object
    // has a template or a window.
    BOOL InitModalIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr);
    virtual INT_PTR DoModal();

    // A modeless dialog, which the caller shows unless its template does. A null parent is the
    // application's main window. FALSE for the reasons that DoModal is -1 for, and when
    // OnInitDialog calls EndDialog. OnOK and OnCancel of a derived class call DestroyWindow: those
    // of this class only hide the window.
    BOOL Create(const WCHAR* templateName, CWnd* parent = nullptr);
    BOOL Create(UINT templateId, CWnd* parent = nullptr) {
        return Create(MAKEINTRESOURCEW(templateId), parent);
    }
    BOOL CreateIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent = nullptr);

    // Ends DoModal. A modeless dialog is hidden. Called in OnInitDialog, the dialog is never shown:
    // it is destroyed when OnInitDialog returns.
    void EndDialog(int result);

    // Accelerators, found along the resource chain, that become commands of this dialog before any
    // other key handling. FALSE when there is no such table; the former one then stays.
    BOOL LoadAccelTable(const WCHAR* name);
    BOOL LoadAccelTable(UINT id) { return LoadAccelTable(MAKEINTRESOURCEW(id)); }

    void NextDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 0, FALSE); }
    void PrevDlgCtrl() const { ::SendMessageW(m_hWnd, WM_NEXTDLGCTL, 1, FALSE); }
    void GotoDlgCtrl(CWnd* control) {
        SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control->m_hWnd), TRUE);
    }
    void SetDefID(UINT id) { SendMessage(DM_SETDEFID, id); }
    DWORD GetDefID() const { return static_cast<DWORD>(SendMessage(DM_GETDEFID)); }
    void MapDialogRect(RECT* rect) const { ::MapDialogRect(m_hWnd, rect); }

    // Accelerators, then the keys of a dialog.
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    // Before the dialog is shown. TRUE: the first control gets the focus. The default loads the
    // controls with UpdateData(FALSE) and ends the dialog with -1 when that fails.
    virtual BOOL OnInitDialog();
    virtual void OnOK(); // validates with UpdateData(TRUE), and ends with IDOK when that succeeds
    virtual void OnCancel(); // also Escape, Alt+F4 and the close box; ends with IDCANCEL

    LRESULT OnKickIdle(WPARAM wParam, LPARAM lParam);
    // TRUE when the message is a key of this dialog's accelerators, whose command was sent.
    BOOL TranslateAccelerators(MSG* message);
    DECLARE_MESSAGE_MAP()

    const WCHAR* m_lpszTemplateName; // a number, or m_templateText; null when there is none
    CWnd* m_pParentWnd;              // not owned

private:
    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);
    BOOL CreateFrom(const DLGTEMPLATE* dialogTemplate, HWND parent, HINSTANCE module);

    CString m_templateText;
    const DLGTEMPLATE* m_template = nullptr; // in the caller's memory
    HACCEL m_accelerators = nullptr;         // a resource, which is not freed
    enum class Opening { No, Running, Ended };
    Opening m_opening = Opening::No; // a modeless dialog until its OnInitDialog has returned
};
