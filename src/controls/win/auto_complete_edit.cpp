#include <quorvel/controls/win/auto_complete_edit.h>

#include <quorvel/framework/win/message_map.h>

#include "platform/win32.h"

#include <initguid.h>
#include <shldisp.h>
#include <shlguid.h>

#include <new>
#include <utility>

IMPLEMENT_DYNAMIC(CAutoCompleteEdit, CVaskEdit)

BEGIN_MESSAGE_MAP(CAutoCompleteEdit, CVaskEdit)
ON_WM_DESTROY()
ON_WM_GETDLGCODE()
END_MESSAGE_MAP()

namespace {

// The auto-completion's second interface for the duration of a call; null if it is missing.
class Options {
public:
    explicit Options(IAutoComplete* object) {
        if (object == nullptr ||
            FAILED(object->QueryInterface(IID_IAutoComplete2, reinterpret_cast<void**>(&m_object))))
            m_object = nullptr;
    }
    Options(const Options&) = delete;
    ~Options() {
        if (m_object != nullptr)
            m_object->Release();
    }
    explicit operator bool() const { return m_object != nullptr; }
    IAutoComplete2* operator->() const { return m_object; }

private:
    IAutoComplete2* m_object = nullptr;
};

// The drop-down is a top-level window of this thread, of the first class on Windows, of the second
// class under Wine. A dialog that contains a list box is of neither class.
BOOL CALLBACK FindDropDown(HWND window, LPARAM found) {
    WCHAR name[32];
    const CString className(name, ::GetClassNameW(window, name, 32));
    const bool isOne = className == _T("Auto-Suggest Dropdown") ||
                       (className == _T("Static") &&
                        ::FindWindowExW(window, nullptr, L"ListBox", nullptr) != nullptr);
    if (!isOne || !::IsWindowVisible(window))
        return TRUE;
    *reinterpret_cast<bool*>(found) = true;
    return FALSE;
}

bool IsDropDownShowing() {
    bool isShowing = false;
    ::EnumThreadWindows(::GetCurrentThreadId(), FindDropDown, reinterpret_cast<LPARAM>(&isShowing));
    return isShowing;
}

} // namespace

CAutoCompleteEdit::CAutoCompleteEdit() : m_list(new (std::nothrow) CAutoCompleteMRUList) {
    if (m_list != nullptr)
        m_list->AddRef();
}

CAutoCompleteEdit::~CAutoCompleteEdit() {
    Unbind();
    if (m_list != nullptr)
        m_list->Release(); // last, because the auto-completion may hold no reference
}

void CAutoCompleteEdit::PreSubclassWindow() {
    CVaskEdit::PreSubclassWindow();
    if (m_bound != m_hWnd) // it was detached from another window
        Unbind();
    Bind(DEFAULT_OPTIONS, nullptr);
}

BOOL CAutoCompleteEdit::Bind(DWORD options, const WCHAR* quickComplete) {
    if (m_hWnd == nullptr || m_autoComplete != nullptr)
        return FALSE;
    constexpr DWORD kAnyServer =
        CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER;
    if (FAILED(::CoCreateInstance(CLSID_AutoComplete, nullptr, kAnyServer, IID_IAutoComplete,
                                  reinterpret_cast<void**>(&m_autoComplete)))) {
        m_autoComplete = nullptr;
        return FALSE;
    }
    m_bound = m_hWnd;
    m_options = options;
    SetOptions(options);
    return m_autoComplete->Init(m_hWnd, m_list, nullptr, quickComplete) == S_OK;
}

BOOL CAutoCompleteEdit::ReleaseAutoCompleteObject() {
    IAutoComplete* const object = std::exchange(m_autoComplete, nullptr);
    if (object == nullptr)
        return FALSE;
    object->Release();
    return TRUE;
}

BOOL CAutoCompleteEdit::Unbind() {
    return ReleaseAutoCompleteObject();
}

void CAutoCompleteEdit::OnDestroy() {
    Unbind();
    const HWND window = m_hWnd;
    const LONG_PTR procedure = ::GetWindowLongPtrW(window, GWLP_WNDPROC);
    CVaskEdit::OnDestroy();
    if (::GetWindowLongPtrW(window, GWLP_WNDPROC) == procedure)
        return;
    // Under Wine the auto-completion restores the former window procedure, so this object does not
    // get the window's last message.
    Detach();
    PostNcDestroy();
}

BOOL CAutoCompleteEdit::SetOptions(DWORD options) {
    const Options object(m_autoComplete);
    return object && object->SetOptions(options) == S_OK;
}

BOOL CAutoCompleteEdit::GetOptions(DWORD& options) const {
    options = 0;
    const Options object(m_autoComplete);
    return object && object->GetOptions(&options) == S_OK;
}

BOOL CAutoCompleteEdit::EnableAutoCompletion(BOOL enable) {
    if (m_autoComplete == nullptr)
        return FALSE;
    if (!enable)
        return SetOptions(ACO_NONE);
    return SetOptions(m_options != 0 ? m_options : DEFAULT_OPTIONS);
}

BOOL CAutoCompleteEdit::IsAutoCompletionEnabled() const {
    DWORD options = 0;
    return GetOptions(options) && options != 0;
}

BOOL CAutoCompleteEdit::AddMRUListEntry(const WCHAR* text) {
    return m_list != nullptr && text != nullptr && text[0] != 0 && m_list->AddElement(text);
}

BOOL CAutoCompleteEdit::AddActiveTextToMRUList() {
    if (m_hWnd == nullptr)
        return FALSE;
    CString text;
    GetWindowText(text);
    return AddMRUListEntry(text);
}

BOOL CAutoCompleteEdit::RemoveMRUListEntry(const WCHAR* text) {
    return m_list != nullptr && text != nullptr && m_list->RemoveElement(text);
}

BOOL CAutoCompleteEdit::ClearMRUList() {
    if (m_list == nullptr)
        return FALSE;
    m_list->RemoveAllElements();
    return TRUE;
}

BOOL CAutoCompleteEdit::SetMRUListSizeLimit(UINT limit) {
    return m_list != nullptr && m_list->SetSizeLimit(limit);
}

UINT CAutoCompleteEdit::GetMRUListSizeLimit() const {
    return m_list != nullptr ? m_list->GetSizeLimit() : 0;
}

BOOL CAutoCompleteEdit::SaveState(const CRegistryPath& path) {
    HKEY key = nullptr;
    return path.IsValid() && path.CreateSubKey(key) == ERROR_SUCCESS && SaveState(key, TRUE);
}

BOOL CAutoCompleteEdit::LoadState(const CRegistryPath& path) {
    HKEY key = nullptr;
    return path.IsValid() && path.OpenSubKey(key) == ERROR_SUCCESS && LoadState(key, TRUE);
}

BOOL CAutoCompleteEdit::SaveState(HKEY key, BOOL closeKey) {
    if (m_list != nullptr)
        return m_list->SaveState(key, closeKey);
    if (closeKey && key != nullptr)
        ::RegCloseKey(key);
    return FALSE;
}

BOOL CAutoCompleteEdit::LoadState(HKEY key, BOOL closeKey) {
    if (m_list != nullptr)
        return m_list->LoadState(key, closeKey);
    if (closeKey && key != nullptr)
        ::RegCloseKey(key);
    return FALSE;
}

BOOL CAutoCompleteEdit::SaveState(const WCHAR* section) {
    return m_list != nullptr && m_list->SaveState(section);
}

BOOL CAutoCompleteEdit::LoadState(const WCHAR* section) {
    return m_list != nullptr && m_list->LoadState(section);
}

UINT CAutoCompleteEdit::OnGetDlgCode() {
    const MSG asked = *GetCurrentMessage();
    UINT code = CVaskEdit::OnGetDlgCode();
    // A dialog would take these two keys as Cancel and OK, although they are meant for the
    // drop-down.
    const MSG* const key = reinterpret_cast<const MSG*>(asked.lParam);
    if (asked.message == WM_GETDLGCODE && key != nullptr && key->message == WM_KEYDOWN &&
        (asked.wParam == VK_ESCAPE || asked.wParam == VK_RETURN) && IsDropDownShowing())
        code |= DLGC_WANTMESSAGE;
    return code;
}
