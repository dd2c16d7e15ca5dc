// The mail library of the tests. Variants lack entry points: with MAIL_PROVIDER_SENDS it has only
// MAPISendMail, with MAIL_PROVIDER_IS_EMPTY not even that.
#include "net/win/mail_provider.h"

#include <cwchar>

namespace {

MailProvider* Asked() {
    WCHAR address[32] = L"";
    ::GetEnvironmentVariableW(kMailProviderVariable, address, 32);
    return reinterpret_cast<MailProvider*>(
        static_cast<ULONG_PTR>(::wcstoull(address, nullptr, 16)));
}

} // namespace

extern "C" {

#if !defined(MAIL_PROVIDER_IS_EMPTY)
__declspec(dllexport) ULONG WINAPI
    MAPISendMail(LHANDLE session, ULONG_PTR window, lpMapiMessage message, FLAGS flags, ULONG) {
    return Asked()->Send(session, window, message, flags);
}
#endif

#if !defined(MAIL_PROVIDER_IS_EMPTY) && !defined(MAIL_PROVIDER_SENDS)
__declspec(dllexport) ULONG WINAPI
    MAPILogon(ULONG_PTR, LPSTR profile, LPSTR password, FLAGS flags, ULONG, LPLHANDLE session) {
    return Asked()->Logon(profile, password, flags, session);
}
__declspec(dllexport) ULONG WINAPI MAPILogoff(LHANDLE session, ULONG_PTR, FLAGS, ULONG) {
    return Asked()->Logoff(session);
}
#endif

// One explicit export, so that the linker does not export everything.
__declspec(dllexport) int MailProviderVersion() {
    return Asked() != nullptr;
}

} // extern "C"
