// CHttpsUpdateTransport: the transport of the checks for updates over HTTPS, and HTTP.
//
// It is WinHTTP on Windows and libcurl on Linux, loaded by the first request: without them that
// fails with a message. The system's certificate stores say which servers are trusted, and the
// system's settings whether there is a proxy; on Linux these are libcurl's own ("https_proxy" and
// so on), and a file named by SSL_CERT_FILE replaces the store. TLS is 1.2 or later.
//
// At most five redirections are followed, to "https:" from everywhere, to "http:" from "http:"
// alone. A fault of the certificate ends the request with the system's text. That of Windows and of
// libcurl says whether it is the name, the time or the issuer; Wine does not say it. A body that is
// shorter than announced is an error. Chunks are put together; on Linux gzip is asked for and
// decoded.
//
// One object serves one check at a time, on its thread. Requests run on a thread of their own. One
// that is cancelled may need its time-outs to end it, without file and without effect; on Windows
// the library therefore stays loaded after the first request.
#pragma once

#include <quorvel/update/update_transport.h>

#include <memory>

class QUORVEL_API CHttpsUpdateTransport : public CUpdateTransport {
public:
    CHttpsUpdateTransport();
    ~CHttpsUpdateTransport() override; // cancels

    // In milliseconds, 30000 each at first: to be connected, and without any byte after that. For
    // requests to come; FALSE, and no change, for 0.
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
