#include <quorvel/framework/win/dialog.h>

#include <quorvel/framework/app.h>
#include <quorvel/framework/extension_module.h>

#include "framework/common_controls.h"
#include "framework/handler_exception.h"
#include "framework/message_box_owner.h"
#include "framework/win/dialog_template.h"

#include <optional>

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
ON_MESSAGE(WM_KICKIDLE, &CDialog::OnKickIdle)
ON_WM_INITMENUPOPUP()
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

namespace {

// The object gets the messages before this procedure, but the platform requires a procedure.
INT_PTR CALLBACK DialogProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

bool IsKey(const MSG& message) {
    return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
}

} // namespace

namespace quorvel {

DialogTemplate FindDialogTemplate(const WCHAR* name) {
    const HINSTANCE module = AfxFindResourceHandle(name, RT_DIALOG);
    const HRSRC resource = ::FindResourceW(module, name, RT_DIALOG);
    const HGLOBAL loaded = resource != nullptr ? ::LoadResource(module, resource) : nullptr;
    return {static_cast<const DLGTEMPLATE*>(loaded != nullptr ? ::LockResource(loaded) : nullptr),
            module};
}

HWND ModalOwner(HWND parent) {
    return ::IsWindow(parent) ? ::GetAncestor(parent, GA_ROOT) : MessageBoxOwner();
}

void HideBeforeOwner(HWND window) {
    ::SetWindowPos(window, nullptr, 0, 0, 0, 0,
                   SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
}

void ActivateOwner(HWND window, HWND owner) {
    if (::GetActiveWindow() == window && ::IsWindow(owner))
        ::SetActiveWindow(owner);
}

} // namespace quorvel

CDialog::CDialog() : m_lpszTemplateName(nullptr), m_pParentWnd(nullptr) {}

CDialog::CDialog(const WCHAR* templateName, CWnd* parent)
    : m_lpszTemplateName(templateName), m_pParentWnd(parent) {
    if (!IS_INTRESOURCE(templateName)) {
        m_templateText = templateName;
        m_lpszTemplateName = m_templateText;
    }
}

CDialog::CDialog(UINT templateId, CWnd* parent) : CDialog(MAKEINTRESOURCEW(templateId), parent) {}

CDialog::~CDialog() = default;

BOOL CDialog::InitModalIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent) {
    if (dialogTemplate == nullptr || m_template != nullptr || m_lpszTemplateName != nullptr ||
        m_hWnd != nullptr)
        return FALSE;
    m_template = dialogTemplate;
    m_pParentWnd = parent;
    return TRUE;
}

INT_PTR CDialog::DoModal() {
    if (m_hWnd != nullptr || m_modal != Modal::None) {
        ::SetLastError(ERROR_ALREADY_EXISTS);
        return -1;
    }
    const quorvel::DialogTemplate found =
        m_template != nullptr ? quorvel::DialogTemplate{m_template, AfxGetResourceHandle()}
                              : quorvel::FindDialogTemplate(m_lpszTemplateName);
    if (found.dialog == nullptr)
        return -1;
    const HWND owner = quorvel::ModalOwner(SafeHwndOf(m_pParentWnd));
    std::optional<quorvel::DisabledWindow> disabled(owner);
    m_modal = Modal::Running; // EndDialog has an effect from here on
    m_modalResult = -1;
    DWORD error = ERROR_SUCCESS;
    const BOOL isCreated = CreateFrom(found.dialog, owner, found.module);
    if (isCreated && m_modal == Modal::Running)
        RunModalLoop(MLF_SHOWONIDLE);
    else if (m_modal == Modal::Running)
        error = ::GetLastError();
    m_modal = Modal::None;
    if (m_hWnd != nullptr)
        quorvel::HideBeforeOwner(m_hWnd);
    disabled.reset();
    quorvel::ActivateOwner(m_hWnd, owner);
    if (m_hWnd != nullptr)
        DestroyWindow();
    if (error != ERROR_SUCCESS)
        ::SetLastError(error);
    return m_modalResult;
}

BOOL CDialog::Create(const WCHAR* templateName, CWnd* parent) {
    const quorvel::DialogTemplate found = quorvel::FindDialogTemplate(templateName);
    return found.dialog != nullptr &&
           CreateFrom(found.dialog, SafeHwndOf(parent != nullptr ? parent : AfxGetMainWnd()),
                      found.module);
}

BOOL CDialog::CreateIndirect(const DLGTEMPLATE* dialogTemplate, CWnd* parent) {
    return dialogTemplate != nullptr &&
           CreateFrom(dialogTemplate, SafeHwndOf(parent != nullptr ? parent : AfxGetMainWnd()),
                      AfxGetResourceHandle());
}

BOOL CDialog::CreateFrom(const DLGTEMPLATE* dialogTemplate, HWND parent, HINSTANCE module) {
    if (m_hWnd != nullptr) {
        ::SetLastError(ERROR_ALREADY_EXISTS);
        return FALSE;
    }
    quorvel::RegisterCommonControls();
    m_opening = m_modal == Modal::None ? Opening::Running : Opening::No;
    AfxHookWindowCreate(this);
    const HWND window =
        ::CreateDialogIndirectParamW(module, dialogTemplate, parent, DialogProcedure, 0);
    if (!AfxUnhookWindowCreate()) {
        PostNcDestroy(); // it failed before a window existed that would get WM_NCDESTROY
        return FALSE;
    }
    return ::IsWindow(window); // otherwise this object may have been deleted
}

LRESULT CDialog::HandleInitDialog(WPARAM wParam, LPARAM lParam) {
    const HWND window = m_hWnd;
    BOOL setsFocus = FALSE;
    bool isWhole = true;
    try {
        setsFocus = OnInitDialog();
    } catch (...) { // a dialog that failed to initialize is closed
        quorvel::EndHandlerException({window, WM_INITDIALOG, wParam, lParam, 0, {}});
        isWhole = false;
    }
    if (FromHandlePermanent(window) != this) // OnInitDialog destroyed it
        return FALSE;
    if (!isWhole)
        EndDialog(-1);
    isWhole = isWhole && m_modal != Modal::Ended && m_opening != Opening::Ended;
    m_opening = Opening::No;
    if (isWhole)
        return setsFocus;
    // Destroys it now, because the platform shows a dialog of style WS_VISIBLE after this message.
    DestroyWindow(); // this object may be deleted now
    return FALSE;
}

BOOL CDialog::OnInitDialog() {
    if (UpdateData(FALSE))
        return TRUE;
    EndDialog(-1);
    return FALSE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

void CDialog::EndDialog(int result) {
    if (m_modal != Modal::None)
        EndModalLoop(result);
    else if (m_opening != Opening::No)
        m_opening = Opening::Ended;
    else if (m_hWnd != nullptr)
        ShowWindow(SW_HIDE);
}

LRESULT CDialog::OnKickIdle(WPARAM, LPARAM) {
    UpdateDialogControls(this, FALSE);
    return FALSE;
}

BOOL CDialog::LoadAccelTable(const WCHAR* name) {
    const HACCEL table = ::LoadAcceleratorsW(AfxFindResourceHandle(name, RT_ACCELERATOR), name);
    if (table == nullptr)
        return FALSE;
    m_accelerators = table;
    return TRUE;
}

BOOL CDialog::TranslateAccelerators(MSG* message) {
    // Excludes the keys of a dialog that this one owns; its messages come here too.
    return m_accelerators != nullptr && IsKey(*message) &&
           (message->hwnd == m_hWnd || ::IsChild(m_hWnd, message->hwnd)) &&
           ::TranslateAcceleratorW(m_hWnd, m_accelerators, message);
}

BOOL CDialog::PreTranslateMessage(MSG* message) {
    if (CWnd::PreTranslateMessage(message) || TranslateAccelerators(message))
        return TRUE;
    const bool isMouse = message->message >= WM_MOUSEFIRST && message->message <= WM_MOUSELAST;
    return (isMouse || IsKey(*message)) && ::IsDialogMessageW(m_hWnd, message);
}
