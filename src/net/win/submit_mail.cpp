// Loads Simple MAPI for one message at a time.
#include "net/submit_mail.h"

#include <quorvel/frame/module.h>
#include <quorvel/framework/win/wait_cursor.h>

#include "net/win/mail_modal_state.h"
#include "platform/win/guarded_call.h"

#include <memory>
#include <type_traits>

namespace quorvel {

const bool kHasFrameworkMailMessages = true;

namespace {

struct FreeModule {
    void operator()(HMODULE module) const { ::FreeLibrary(module); }
};
typedef std::unique_ptr<std::remove_pointer_t<HMODULE>, FreeModule> Module;

constexpr const WCHAR* kMailLibrary = _T("MAPI32.DLL");

bool IsMailConfigured() {
    return ::GetProfileIntW(_T("Mail"), _T("MAPI"), 0) == 1;
}

// Activates the assemblies of the library's manifest while modules are loaded. Without a manifest
// the program's assemblies stay active.
class ActivationContext {
public:
    ActivationContext() {
        ACTCTXW description = {};
        description.cbSize = sizeof description;
        description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
        description.hModule = QuorvelGetInstanceHandle();
        description.lpResourceName = MAKEINTRESOURCEW(2); // ISOLATIONAWARE_MANIFEST_RESOURCE_ID
        m_context = ::CreateActCtxW(&description);
        m_isActive = m_context != INVALID_HANDLE_VALUE && ::ActivateActCtx(m_context, &m_cookie);
    }
    ActivationContext(const ActivationContext&) = delete;
    ~ActivationContext() {
        if (m_isActive)
            ::DeactivateActCtx(0, m_cookie);
        if (m_context != INVALID_HANDLE_VALUE)
            ::ReleaseActCtx(m_context);
    }

private:
    HANDLE m_context;
    ULONG_PTR m_cookie = 0;
    bool m_isActive;
};

template <class Function>
Function Find(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module, name)));
}

MailResult SendWith(LPMAPISENDMAIL sendMail, LHANDLE session, MapiMessage& message) {
    ULONG result = MAPI_E_FAILURE;
    const MailModalState modalState;
    const bool hasReturned =
        CallGuarded([&] { result = sendMail(session, 0, &message, MAPI_DIALOG, 0); });
    return hasReturned && IsMailSent(result) ? MailResult::Sent : MailResult::NotSent;
}

class Reporter {
public:
    Reporter(MailReport report, bool logsOn) : m_report(report), m_logsOn(logsOn) {}
    bool operator()(MailResult result) const {
        if (result != MailResult::Sent)
            m_report(result, m_logsOn);
        return result == MailResult::Sent;
    }

private:
    const MailReport m_report;
    const bool m_logsOn;
};

bool SubmitWithSession(const MailTexts& texts, const Reporter& report) {
    const Module library(IsMailConfigured() ? ::LoadLibraryW(kMailLibrary) : nullptr);
    if (library == nullptr)
        return report(MailResult::NotLoaded);
    const auto logon = Find<LPMAPILOGON>(library.get(), "MAPILogon");
    const auto sendMail = Find<LPMAPISENDMAIL>(library.get(), "MAPISendMail");
    const auto logoff = Find<LPMAPILOGOFF>(library.get(), "MAPILogoff");
    if (logon == nullptr || sendMail == nullptr || logoff == nullptr)
        return report(MailResult::InvalidLibrary);

    MailMessage message(texts);
    LHANDLE session = 0;
    ULONG result = MAPI_E_FAILURE;
    const bool hasReturned =
        CallGuarded([&] { result = logon(0, nullptr, nullptr, MAPI_LOGON_UI, 0, &session); });
    if (!hasReturned || result != SUCCESS_SUCCESS)
        return report(MailResult::InvalidLibrary);
    const bool isSent = report(SendWith(sendMail, session, message.Get()));
    CallGuarded([&] { logoff(session, 0, 0, 0); });
    return isSent;
}

HMODULE LoadInOwnContext() {
    const ActivationContext context;
    return ::LoadLibraryW(kMailLibrary);
}

bool SubmitWithoutSession(const MailTexts& texts, const Reporter& report) {
    const Module library(LoadInOwnContext());
    if (library == nullptr)
        return report(MailResult::NotLoaded);
    const auto sendMail = Find<LPMAPISENDMAIL>(library.get(), "MAPISendMail");
    if (sendMail == nullptr)
        return report(MailResult::InvalidLibrary);
    MailMessage message(texts);
    return report(SendWith(sendMail, 0, message.Get()));
}

} // namespace

bool SubmitMail(const MailTexts& texts, bool logsOn, MailReport report) {
    const CWaitCursor cursor;
    const Reporter reporter(report, logsOn);
    return logsOn ? SubmitWithSession(texts, reporter) : SubmitWithoutSession(texts, reporter);
}

} // namespace quorvel
