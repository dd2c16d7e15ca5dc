// CHttpsUpdateTransport: fetches updates over HTTPS or HTTP.
//
// The first request loads WinHTTP on Windows or libcurl on Linux; if it is missing, the request
// fails with a message. The system's certificate stores decide which servers are trusted, and its
// settings name the proxy. On Linux libcurl uses its own: variables like "https_proxy", and a file
// named by SSL_CERT_FILE instead of the store. TLS is 1.2 or later.
//
// Follows at most five redirections: to "https:" from any address, to "http:" only from
// "http:". A certificate error ends the request with the system's text. On Windows and with
// libcurl the text names the cause (name, time or issuer); Wine does not name it. A body that
// is shorter than announced is an error. Chunks are joined. On Linux gzip is requested and
// decoded.
//
// One object serves one check at a time, on the check's thread. Requests run on their own threads.
// A cancelled request may run until its time-out, without a file and without effect; for that
// reason, on Windows, the library stays loaded after the first request.
#pragma once

#include <quorvel/update/update_transport.h>

#include <memory>

class QUORVEL_API CHttpsUpdateTransport : public CUpdateTransport {
public:
    CHttpsUpdateTransport();
    ~CHttpsUpdateTransport() override; // cancels

    // In milliseconds, 30000 each by default: `connect` to connect, `stall` between two bytes after
    // that. Applies to later requests. For 0 returns FALSE and changes nothing.
    BOOL SetTimeOuts(DWORD connect, DWORD stall);

    void Start(const Request& request) override;
    void Cancel() override;
    Progress GetProgress() const override;
    BOOL GetHeaderField(const WCHAR* name, CString& value) const override;

private:
    struct Job;
    void OnChanged() { NotifyChanged(); }
    static void Run(const std::shared_ptr<Job>& job);

    DWORD m_connectTimeOut = 30000;
    DWORD m_stallTimeOut = 30000;
    std::shared_ptr<Job> m_job; // shared with its thread; never null
};
