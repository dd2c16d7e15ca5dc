// The interface that the mail library of the tests calls: an object of the test. An environment
// variable holds its address.
#pragma once

#include <quorvel/platform/platform.h>

#include <mapi.h>

inline constexpr const WCHAR* kMailProviderVariable = _T("QUORVEL_MAIL_PROVIDER");

class MailProvider {
public:
    virtual ULONG Logon(LPSTR profile, LPSTR password, FLAGS flags, LPLHANDLE session) = 0;
    virtual ULONG Send(LHANDLE session, ULONG_PTR window, MapiMessage* message, FLAGS flags) = 0;
    virtual ULONG Logoff(LHANDLE session) = 0;

protected:
    virtual ~MailProvider() = default;
};
