// The connection that a check for updates is made with, behind an interface: the checks decide
// without sockets, and their tests script every answer of a server.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/net/http_file_socket.h>

#include <memory>

namespace quorvel {

typedef CHttpFileSocket Http; // whose statuses a connection has

struct UpdateRequest {
    static constexpr std::size_t kHeaderLimit = 1 << 20;
    // For a download. Small, so that the progress moves on a slow line, and so that the count of
    // every piece fits into the 16 bits that a status has for it. A version file is asked for in
    // the same way: the two downloads differ in nothing but what becomes of the body.
    static constexpr UINT kReceiveBufferSize = 128;

    CString url;
    bool headerOnly = true;
    CString localFile;                      // receives the whole response unless headerOnly is set
    UINT receiveBufferSize = 0;             // 0: the socket's default
    UINT hostTimeOut = 30000;               // of the look-up of the host, in milliseconds
    std::size_t headerLimit = kHeaderLimit; // a longer header ends it with WSAEMSGSIZE
    ULONGLONG bodyLimit = ~ULONGLONG{0};    // of a transport; the check itself looks as well
};

// Destroying it closes it. Its statuses, those of CHttpFileSocket, arrive as calls of the check's
// OnSocketStatus. A full queue may lose any of them: rely on GetBytesReceived and HasEnded.
class UpdateConnection {
public:
    virtual ~UpdateConnection() = default;
    // By which its statuses name it; that of no other connection that exists.
    virtual const void* GetSender() const = 0;
    // Both give 0 or a Winsock error, 1 when the sockets were not set up.
    virtual DWORD Create() = 0;
    virtual DWORD Connect(const UpdateRequest& request) = 0;
    // No status follows but statusClosed, behind those that are on their way.
    virtual void Close() = 0;

    virtual ULONGLONG GetBytesReceived() const = 0; // header and all
    // Whether it has ended, and with which Winsock error or 0: its last status may have been lost.
    virtual bool HasEnded(DWORD& error) const = 0;
    virtual bool IsHeaderParsed() const = 0;
    virtual const CHttpHeader& GetHeader() const = 0; // once it is parsed
    // An address for the next connection to the same file.
    virtual CString GetResolvedUrl() const = 0;
    // What the user reads of the error with which it has ended; empty: the text of the code.
    virtual CString GetErrorText() const { return CString(); }
};

// Where connections come from, and what else of a check a test wants to fix.
class UpdateSource {
public:
    virtual ~UpdateSource() = default;
    virtual std::unique_ptr<UpdateConnection> NewConnection() = 0;
    virtual CString GetWinsockErrorText(DWORD code) = 0;
    virtual COleDateTime GetCurrentUTCTime() = 0;
    // Whether answers that no healthy server gives are refused in any case.
    virtual bool IsStrict() const { return false; }
};

} // namespace quorvel
