// CUpdateTransport: how the checks for updates fetch a file. Without one they use plain HTTP at
// port 80; a host derives its own class to use a different way.
//
// A check makes one request at a time: it calls Start, then GetProgress until the request has
// ended, or Cancel. All these calls are on the check's thread and must not block, so a transport
// works on its own thread or in small steps. The check calls GetProgress ten times a second, and
// immediately after NotifyChanged.
//
// A transport serves one check at a time and must outlive it. A request of a second check fails
// with WSAEALREADY. A check with a transport does not need CVaskSocket::Initialize.
#pragma once

#include <quorvel/framework/string.h>

#include <atomic>

namespace quorvel {
class TransportConnection;
} // namespace quorvel

class QUORVEL_API CUpdateTransport {
public:
    struct Request {               // the file to fetch
        CString url;               // from the settings, with scheme and port
        BOOL headerOnly = FALSE;   // only the status code and the fields are wanted
        CString fileName;          // an existing, empty file; empty for headerOnly
        ULONGLONG bodyLimit = 0;   // a longer body ends the request with WSAEMSGSIZE
        DWORD hostTimeOut = 30000; // for the look-up of the host, in milliseconds
    };
    struct Progress {             // how far a request is, and how it ended
        BOOL isConnected = FALSE; // to the site
        UINT statusCode = 0;      // the HTTP status of the answer: 200 is success; 0: unknown
        ULONGLONG received = 0;   // bytes of the body written to the file
        ULONGLONG expected = 0;   // the final value of `received`; 0: unknown
        BOOL hasEnded = FALSE;    // the file is then closed
        // Valid after the end: 0 when the complete answer has arrived, otherwise a Winsock error
        // (10000 and above) or a system error; and the text for the user. An empty text means the
        // text of the code.
        DWORD error = 0;
        CString errorText;
    };

    CUpdateTransport() = default;
    CUpdateTransport(const CUpdateTransport&) = delete;
    CUpdateTransport& operator=(const CUpdateTransport&) = delete;
    virtual ~CUpdateTransport();

    // Starts a request; the one before has ended or was cancelled. GetProgress reports
    // errors.
    virtual void Start(const Request& request) = 0;
    // Returns within 100 ms. Afterwards the file is closed and no thread writes to it.
    virtual void Cancel() = 0;
    virtual Progress GetProgress() const = 0; // of the last request
    // A field of the answer, ignoring letter case, as soon as there is a status code. If it is
    // missing, returns FALSE and leaves the value unchanged. The checks read "Last-Modified".
    virtual BOOL GetHeaderField(const WCHAR* name, CString& value) const = 0;

protected:
    // The transport calls this when its progress has changed. Any thread, also after the request.
    void NotifyChanged();

private:
    friend class quorvel::TransportConnection;
    std::atomic<HWND> m_window{nullptr}; // of the check that has a request
    std::atomic<bool> m_isNotified{false};
};
