#include <quorvel/framework/app.h>

#include <quorvel/framework/exceptions.h>
#include <quorvel/framework/string.h>

#include "framework/handler_exception.h"
#include "framework/message_box_owner.h"
#include "platform/win32.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <utility>

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

namespace {

constinit CWinApp* s_app = nullptr;

// The name of the program file, without folder and extension.
CString ProgramName() {
    CString path;
    DWORD size = MAX_PATH;
    DWORD length;
    while ((length = GetModuleFileNameW(nullptr, path.GetBuffer(static_cast<int>(size)), size)) ==
           size)
        size *= 2; // the path was cut
    path.ReleaseBuffer(static_cast<int>(length));
    const int separator = std::max(path.ReverseFind('\\'), path.ReverseFind('/'));
    const int dot = path.ReverseFind('.');
    return dot > separator + 1 ? path.Mid(separator + 1, dot - separator - 1)
                               : path.Mid(separator + 1);
}

const WCHAR* Duplicate(const CString& text) {
    const std::size_t bytes = (static_cast<std::size_t>(text.GetLength()) + 1) * sizeof(WCHAR);
    void* copy = std::malloc(bytes);
    if (copy == nullptr)
        AfxThrowMemoryException();
    return static_cast<const WCHAR*>(std::memcpy(copy, text.GetString(), bytes));
}

int ShowMessageBox(const WCHAR* text, UINT type) {
    return MessageBoxW(quorvel::MessageBoxOwner(), text, AfxGetAppName(), type);
}

} // namespace

CWinApp::CWinApp(const WCHAR* appName)
    : m_hInstance(GetModuleHandleW(nullptr)),
      m_pszAppName(Duplicate(appName != nullptr ? CString(appName) : ProgramName())),
      m_pszRegistryKey(nullptr), m_pszProfileName(nullptr) {
    s_app = this;
}

CWinApp::~CWinApp() {
    if (s_app == this)
        s_app = nullptr;
    for (const WCHAR* const owned : {m_pszAppName, m_pszRegistryKey, m_pszProfileName})
        std::free(const_cast<WCHAR*>(owned));
}

void CWinApp::SetRegistryKey(const WCHAR* registryKey) {
    if (registryKey == nullptr)
        return;
    const WCHAR* const key = Duplicate(registryKey);
    std::free(const_cast<WCHAR*>(std::exchange(m_pszRegistryKey, key)));
    const WCHAR* const profile = Duplicate(m_pszAppName);
    std::free(const_cast<WCHAR*>(std::exchange(m_pszProfileName, profile)));
}

void CWinApp::SetRegistryKey(UINT textId) {
    CString text;
    if (text.LoadString(textId))
        SetRegistryKey(text);
}

int CWinApp::DoMessageBox(const WCHAR* prompt, UINT type, UINT) {
    return ShowMessageBox(prompt, type);
}

LRESULT CWinApp::ProcessWndProcException(CException* exception, const MSG* message) {
    return quorvel::DefaultWndProcException(exception, message);
}

CWinApp* AfxGetApp() {
    return s_app;
}

CWnd* AfxGetMainWnd() {
    return s_app != nullptr ? s_app->m_pMainWnd : nullptr;
}

HINSTANCE AfxGetInstanceHandle() {
    return s_app != nullptr ? s_app->m_hInstance : GetModuleHandleW(nullptr);
}

const WCHAR* AfxGetAppName() {
    if (s_app != nullptr)
        return s_app->m_pszAppName;
    static const CString& s_programName = *new CString(ProgramName()); // destructors use it, too
    return s_programName;
}

int AfxMessageBox(const WCHAR* text, UINT type, UINT helpId) {
    return s_app != nullptr ? s_app->DoMessageBox(text, type, helpId) : ShowMessageBox(text, type);
}

int AfxMessageBox(UINT textId, UINT type, UINT helpId) {
    CString text;
    if (!text.LoadString(textId))
        return 0;
    return AfxMessageBox(text, type, helpId == static_cast<UINT>(-1) ? textId : helpId);
}
