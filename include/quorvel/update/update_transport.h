// CUpdateTransport: how the checks for updates fetch a file. A host derives its own to reach a site
// in another way than the checks do by themselves, which is plain HTTP at port 80.
//
// A check makes one request at a time: Start, then GetProgress until it says that the request has
// ended, or Cancel. It makes all these calls on its own thread, which must not be blocked, so a
// transport works on a thread of its own or in small steps. The checks look ten times a second, and
// at once after NotifyChanged.
//
// A transport belongs to one check at a time and must outlive it. A request of a second check fails
// with WSAEALREADY. CVaskSocket::Initialize is not needed for a check with a transport.
#pragma once

#include <quorvel/framework/string.h>

#include <atomic>

namespace quorvel {
class TransportConnection;
} // namespace quorvel

class QUORVEL_API CUpdateTransport {
public:
    struct Request {
        CString url;               // of the settings, with its scheme and port
        BOOL headerOnly = FALSE;   // only the status code and the fields are wanted
        CString fileName;          // an empty file for the body; none with headerOnly
        ULONGLONG bodyLimit = 0;   // a longer body ends the request with WSAEMSGSIZE
        DWORD hostTimeOut = 30000; // of finding the host, in milliseconds
    };
    struct Progress {
        BOOL isConnected = FALSE; // to the site
        UINT statusCode = 0;      // the answer's, as of HTTP: 200 is success; 0 until it is known
        ULONGLONG received = 0;   // bytes of the body, as they were written to the file
        ULONGLONG expected = 0;   // bytes of the whole body, as they will be written; 0: unknown
        BOOL hasEnded = FALSE;    // the file is then closed
        // Only once it has ended: 0 when every byte of the answer has come, or else a Winsock error
        // (10000 and above) or a system error, and what the user reads of it. Without a text that
        // is the text of the code.
        DWORD error = 0;
        CString errorText;
    };

    CUpdateTransport() = default;
    CUpdateTransport(const CUpdateTransport&) = delete;
    CUpdateTransport& operator=(const CUpdateTransport&) = delete;
    virtual ~CUpdateTransport();

    // Forgets the request before, which has ended or was cancelled. What prevents this one is found
    // in its progress.
    virtual void Start(const Request& request) = 0;
    // Returns within 100 ms. From then on the file is closed and nobody writes to it.
    virtual void Cancel() = 0;
    virtual Progress GetProgress() const = 0;
    // A field of the answer by its name in any letter case, once there is a status code. FALSE, and
    // the value as it was, when the answer does not have it. The checks ask for "Last-Modified".
    virtual BOOL GetHeaderField(const WCHAR* name, CString& value) const = 0;

protected:
    // The progress has changed. Any thread, also after the request.
    void NotifyChanged();

private:
    friend class quorvel::TransportConnection;
    std::atomic<HWND> m_window{nullptr}; // of the check that has a request
    std::atomic<bool> m_isNotified{false};
};
