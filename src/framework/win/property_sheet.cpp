#include <quorvel/framework/win/property_sheet.h>

#include "framework/common_controls.h"
#include "framework/handler_exception.h"
#include "framework/win/dialog_template.h"

#include <algorithm>
#include <optional>

IMPLEMENT_DYNAMIC(CPropertySheet, CWnd)

BEGIN_MESSAGE_MAP(CPropertySheet, CWnd)
ON_MESSAGE(WM_INITDIALOG, &CPropertySheet::HandleInitDialog)
ON_MESSAGE(WM_KICKIDLE, &CPropertySheet::OnKickIdle)
ON_MESSAGE(PSM_PRESSBUTTON, &CPropertySheet::OnPressButton)
ON_WM_SYSCOMMAND()
END_MESSAGE_MAP()

CPropertySheet::CPropertySheet() : CPropertySheet(_T("")) {}

CPropertySheet::CPropertySheet(const WCHAR* caption, CWnd* parent, UINT selectPage)
    : m_psh{}, m_pParentWnd(parent), m_caption(caption) {
    m_psh.dwSize = sizeof m_psh;
    m_psh.nStartPage = selectPage;
}

CPropertySheet::CPropertySheet(UINT captionId, CWnd* parent, UINT selectPage)
    : CPropertySheet(_T(""), parent, selectPage) {
    m_caption.LoadString(captionId);
}

CPropertySheet::~CPropertySheet() = default;

INT_PTR CPropertySheet::DoModal() {
    if (m_hWnd != nullptr || m_modal != Modal::None) {
        ::SetLastError(ERROR_ALREADY_EXISTS);
        return -1;
    }
    const HWND owner = quorvel::ModalOwner(SafeHwndOf(m_pParentWnd));
    std::optional<quorvel::DisabledWindow> disabled(owner);
    m_modal = Modal::Running; // EndDialog has an effect from here on
    m_modalResult = -1;
    if (CreateSheet(owner) && m_modal == Modal::Running)
        RunModalLoop(MLF_SHOWONIDLE);
    m_modal = Modal::None;
    if (m_hWnd != nullptr)
        quorvel::HideBeforeOwner(m_hWnd);
    disabled.reset();
    quorvel::ActivateOwner(m_hWnd, owner);
    if (m_hWnd != nullptr)
        DestroyWindow();
    return m_modalResult;
}

BOOL CPropertySheet::Create(CWnd* parent) {
    return m_hWnd == nullptr && CreateSheet(SafeHwndOf(parent));
}

BOOL CPropertySheet::CreateSheet(HWND owner) {
    std::vector<HPROPSHEETPAGE> pages;
    for (CPropertyPage* const page : m_pages)
        if (const HPROPSHEETPAGE made = MakePage(*page))
            pages.push_back(made);
    if (pages.empty() || pages.size() < m_pages.size()) {
        std::for_each(pages.begin(), pages.end(), ::DestroyPropertySheetPage);
        return FALSE;
    }
    m_pressed = IDCANCEL;
    m_initialized = false;
    PROPSHEETHEADERW header = m_psh;
    header.dwFlags = (header.dwFlags & ~DWORD{PSH_PROPSHEETPAGE}) | PSH_MODELESS;
    header.hwndParent = owner;
    header.pszCaption = m_caption;
    header.nPages = static_cast<UINT>(pages.size());
    header.phpage = pages.data();
    quorvel::RegisterCommonControls();
    AfxHookWindowCreate(this);
    const INT_PTR sheet = ::PropertySheetW(&header);
    if (!AfxUnhookWindowCreate()) {
        PostNcDestroy(); // it failed before a window existed that would get WM_NCDESTROY
        return FALSE;
    }
    if (sheet != 0 && sheet != -1 && m_hWnd != nullptr && m_initialized)
        return TRUE;
    DestroyWindow();
    return FALSE;
}

HPROPSHEETPAGE CPropertySheet::MakePage(CPropertyPage& page) const {
    PROPSHEETPAGEW record = {};
    return page.Prepare(record, IsWizard() ? m_caption.GetString() : nullptr,
                        (m_psh.dwFlags & PSH_WIZARD97) != 0)
               ? ::CreatePropertySheetPageW(&record)
               : nullptr;
}

LRESULT CPropertySheet::HandleInitDialog(WPARAM wParam, LPARAM lParam) {
    const LRESULT result = Default(); // creates the buttons and the first page
    try {
        OnInitDialog();
        m_initialized = true;
    } catch (...) { // the caller destroys the sheet when creation is complete
        quorvel::EndHandlerException({m_hWnd, WM_INITDIALOG, wParam, lParam, 0, {}});
    }
    return result;
}

BOOL CPropertySheet::OnInitDialog() {
    return TRUE;
}

BOOL CPropertySheet::IsClosed() const {
    return m_hWnd == nullptr || SendMessage(PSM_GETCURRENTPAGEHWND) == 0;
}

// The platform closes a sheet by removing its current page and does not report which button did it.
BOOL CPropertySheet::ContinueModal() {
    if (!CWnd::ContinueModal())
        return FALSE;
    if (!IsClosed())
        return TRUE;
    EndModalLoop(m_pressed);
    return FALSE;
}

void CPropertySheet::EndDialog(int result) {
    if (m_modal != Modal::None)
        EndModalLoop(result);
    else if (m_hWnd != nullptr)
        ShowWindow(SW_HIDE);
}

BOOL CPropertySheet::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (CWnd::OnCommand(wParam, lParam))
        return TRUE;
    const int id = LOWORD(wParam);
    if (id == IDOK || id == IDCANCEL || id == ID_WIZFINISH)
        m_pressed = id;
    return FALSE;
}

void CPropertySheet::OnSysCommand(UINT id, LPARAM) {
    if ((id & 0xfff0) == SC_CLOSE) // the system uses the low four bits
        m_pressed = IDCANCEL;
    Default();
}

LRESULT CPropertySheet::OnPressButton(WPARAM button, LPARAM) {
    m_pressed = button == PSBTN_OK ? IDOK : button == PSBTN_FINISH ? ID_WIZFINISH : IDCANCEL;
    return Default();
}

LRESULT CPropertySheet::OnKickIdle(WPARAM wParam, LPARAM lParam) {
    CPropertyPage* const page = GetActivePage();
    return page != nullptr && page->m_hWnd != nullptr
               ? page->SendMessage(WM_KICKIDLE, wParam, lParam)
               : FALSE;
}

BOOL CPropertySheet::PreTranslateMessage(MSG* message) {
    if (CWnd::PreTranslateMessage(message))
        return TRUE;
    const bool isInput = (message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST) ||
                         (message->message >= WM_MOUSEFIRST && message->message <= WM_MOUSELAST);
    return isInput && SendMessage(PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(message)) != 0;
}

CPropertyPage* CPropertySheet::GetPage(int position) const {
    return position >= 0 && position < GetPageCount() ? m_pages[static_cast<std::size_t>(position)]
                                                      : nullptr;
}

int CPropertySheet::GetPageIndex(const CPropertyPage* page) const {
    const auto found = std::find(m_pages.begin(), m_pages.end(), page);
    return found != m_pages.end() ? static_cast<int>(found - m_pages.begin()) : -1;
}

int CPropertySheet::GetActiveIndex() const {
    if (m_hWnd == nullptr)
        return static_cast<int>(m_psh.nStartPage);
    const HWND window = reinterpret_cast<HWND>(SendMessage(PSM_GETCURRENTPAGEHWND));
    const auto found = std::find_if(m_pages.begin(), m_pages.end(), [&](const CPropertyPage* page) {
        return window != nullptr && page->m_hWnd == window;
    });
    return found != m_pages.end() ? static_cast<int>(found - m_pages.begin()) : -1;
}

BOOL CPropertySheet::SetActivePage(int position) {
    if (GetPage(position) == nullptr)
        return FALSE;
    if (m_hWnd == nullptr)
        m_psh.nStartPage = static_cast<UINT>(position);
    else if (!SendMessage(PSM_SETCURSEL, static_cast<WPARAM>(position)))
        return FALSE;
    return TRUE;
}

void CPropertySheet::AddPage(CPropertyPage* page) {
    if (page == nullptr)
        return;
    if (m_hWnd != nullptr) {
        const HPROPSHEETPAGE made = MakePage(*page);
        if (made == nullptr)
            return;
        SendMessage(PSM_ADDPAGE, 0, reinterpret_cast<LPARAM>(made));
    }
    m_pages.push_back(page);
}

void CPropertySheet::RemovePage(CPropertyPage* page) {
    RemovePage(GetPageIndex(page));
}

void CPropertySheet::RemovePage(int position) {
    if (GetPage(position) == nullptr)
        return;
    m_pages.erase(m_pages.begin() + position);
    if (m_hWnd != nullptr)
        SendMessage(PSM_REMOVEPAGE, static_cast<WPARAM>(position));
}

void CPropertySheet::SetTitle(const WCHAR* text, UINT style) {
    m_caption = text;
    if (style != 0)
        m_psh.dwFlags |= style;
    if (m_hWnd != nullptr)
        SendMessage(PSM_SETTITLEW, style, reinterpret_cast<LPARAM>(text));
}

// Posts the message, because the platform sets its own buttons after PSN_SETACTIVE.
void CPropertySheet::SetWizardButtons(DWORD flags) {
    PostMessage(PSM_SETWIZBUTTONS, 0, static_cast<LPARAM>(flags));
}
