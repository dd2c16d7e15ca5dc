#include <quorvel/framework/win/property_page.h>

#include <quorvel/framework/win/property_sheet.h>

#include "framework/handler_exception.h"
#include "framework/win/dialog_template.h"

#include <utility>

IMPLEMENT_DYNAMIC(CPropertyPage, CDialog)

namespace {

void LoadWhenGiven(CString& text, UINT id) {
    if (id != 0)
        text.LoadString(id);
}

// The title comes after the menu and the class. Each of these is a text, or 0xffff and a number.
bool HasTitle(const DLGTEMPLATE& dialog) {
    constexpr std::size_t kSizeOfExtendedHeader = 26;
    const WORD* const start = reinterpret_cast<const WORD*>(&dialog);
    const bool isExtended = start[0] == 1 && start[1] == 0xffff;
    const WORD* at = start + (isExtended ? kSizeOfExtendedHeader : sizeof dialog) / sizeof(WORD);
    for (int i = 0; i < 2; ++i) {
        if (*at == 0xffff)
            at += 2;
        else
            while (*at++ != 0)
                continue;
    }
    return *at != 0;
}

} // namespace

CPropertyPage::CPropertyPage(UINT templateId, UINT captionId, UINT headerTitleId,
                             UINT headerSubTitleId)
    : CPropertyPage(MAKEINTRESOURCEW(templateId), captionId) {
    LoadWhenGiven(m_strHeaderTitle, headerTitleId);
    LoadWhenGiven(m_strHeaderSubTitle, headerSubTitleId);
}

CPropertyPage::CPropertyPage(const WCHAR* templateName, UINT captionId)
    : CDialog(templateName), m_psp{} {
    m_psp.dwSize = PROPSHEETPAGEW_V2_SIZE; // common controls before version 6 accept this
    LoadWhenGiven(m_strCaption, captionId);
}

CPropertyPage::~CPropertyPage() = default;

BOOL CPropertyPage::Prepare(PROPSHEETPAGEW& record, const WCHAR* wizardTitle, bool withHeader) {
    const quorvel::DialogTemplate found = quorvel::FindDialogTemplate(m_lpszTemplateName);
    if (found.dialog == nullptr)
        return FALSE;
    m_wasActive = false;
    record = m_psp;
    record.dwFlags |= HasHelp() ? PSP_DLGINDIRECT | PSP_HASHELP : PSP_DLGINDIRECT;
    record.pResource = const_cast<DLGTEMPLATE*>(found.dialog);
    record.hInstance = found.module;
    record.pfnDlgProc = Procedure;
    record.lParam = reinterpret_cast<LPARAM>(this);
    if (!m_strCaption.IsEmpty()) {
        record.dwFlags |= PSP_USETITLE;
        record.pszTitle = m_strCaption;
    } else if (wizardTitle != nullptr && !HasTitle(*found.dialog)) {
        record.dwFlags |= PSP_USETITLE;
        record.pszTitle = wizardTitle;
    }
    if (withHeader && m_strHeaderTitle.IsEmpty())
        record.dwFlags |= PSP_HIDEHEADER;
    if (withHeader && !m_strHeaderTitle.IsEmpty()) {
        record.dwFlags |= PSP_USEHEADERTITLE | PSP_USEHEADERSUBTITLE;
        record.pszHeaderTitle = m_strHeaderTitle;
        record.pszHeaderSubTitle = m_strHeaderSubTitle;
    }
    return TRUE;
}

// Subclasses the complete window. A creation hook could not detect that the sheet failed to create
// the window, and would then catch another one.
INT_PTR CALLBACK CPropertyPage::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_INITDIALOG)
        return FALSE;
    CPropertyPage* const page =
        reinterpret_cast<CPropertyPage*>(reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam);
    try {
        if (!page->SubclassWindow(window))
            return FALSE;
    } catch (...) { // from PreSubclassWindow
        quorvel::EndHandlerException({window, message, wParam, lParam, 0, {}});
        return FALSE;
    }
    return page->SendMessage(message, wParam, lParam);
}

CPropertySheet* CPropertyPage::GetParentSheet() const {
    CWnd* const parent = m_hWnd != nullptr ? FromHandlePermanent(::GetParent(m_hWnd)) : nullptr;
    return dynamic_cast<CPropertySheet*>(parent);
}

void CPropertyPage::SetModified(BOOL changed) {
    if (m_hWnd != nullptr)
        ::SendMessageW(::GetParent(m_hWnd), changed ? PSM_CHANGED : PSM_UNCHANGED,
                       reinterpret_cast<WPARAM>(m_hWnd), 0);
}

void CPropertyPage::CancelToClose() {
    if (m_hWnd != nullptr)
        ::PostMessageW(::GetParent(m_hWnd), PSM_CANCELTOCLOSE, 0, 0);
}

LRESULT CPropertyPage::QuerySiblings(WPARAM wParam, LPARAM lParam) {
    return m_hWnd != nullptr
               ? ::SendMessageW(::GetParent(m_hWnd), PSM_QUERYSIBLINGS, wParam, lParam)
               : 0;
}

BOOL CPropertyPage::OnSetActive() {
    return !std::exchange(m_wasActive, true) || UpdateData(FALSE);
}

BOOL CPropertyPage::OnKillActive() {
    return UpdateData();
}

BOOL CPropertyPage::OnApply() {
    OnOK();
    return TRUE;
}

void CPropertyPage::OnReset() {
    OnCancel();
}

BOOL CPropertyPage::OnQueryCancel() {
    return TRUE;
}

LRESULT CPropertyPage::OnWizardBack() {
    return 0;
}
LRESULT CPropertyPage::OnWizardNext() {
    return 0;
}
BOOL CPropertyPage::OnWizardFinish() {
    return TRUE;
}
BOOL CPropertyPage::HasHelp() {
    return FALSE;
}
void CPropertyPage::OnHelp() {}

void CPropertyPage::OnOK() {}
void CPropertyPage::OnCancel() {}

BOOL CPropertyPage::PreTranslateMessage(MSG* message) {
    return CWnd::PreTranslateMessage(message) || TranslateAccelerators(message);
}

BOOL CPropertyPage::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (CDialog::OnNotify(wParam, lParam, result))
        return TRUE;
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (header.hwndFrom != ::GetParent(m_hWnd))
        return FALSE;
    BOOL known = TRUE;
    try {
        const LRESULT answer = AnswerSheet(header, known);
        if (known)
            *result = answer;
    } catch (...) {
        quorvel::EndHandlerException({m_hWnd, WM_NOTIFY, wParam, lParam, 0, {}});
        *result = header.code == PSN_APPLY ? LRESULT{PSNRET_INVALID} : -1; // refused
    }
    return known;
}

LRESULT CPropertyPage::AnswerSheet(const NMHDR& header, BOOL& known) {
    switch (header.code) {
    case PSN_SETACTIVE:
        return OnSetActive() ? 0 : -1;
    case PSN_KILLACTIVE:
        return !OnKillActive();
    case PSN_APPLY:
        return OnApply() ? PSNRET_NOERROR : PSNRET_INVALID;
    case PSN_QUERYCANCEL:
        return !OnQueryCancel();
    case PSN_RESET:
        OnReset();
        return 0;
    case PSN_WIZBACK:
        return OnWizardBack();
    case PSN_WIZNEXT:
        return OnWizardNext();
    case PSN_WIZFINISH:
        return !OnWizardFinish();
    case PSN_HELP:
        OnHelp();
        return 0;
    default:
        known = FALSE;
        return 0;
    }
}
