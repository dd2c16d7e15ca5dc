// An interface for the connection of an update check. So the checks need no sockets, and tests can
// script every answer of a server.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/net/http_file_socket.h>

#include <memory>

namespace quorvel {

typedef CHttpFileSocket Http; // its statuses are those of a connection

struct UpdateRequest {
    static constexpr std::size_t kHeaderLimit = 1 << 20;
    // For a download. It is small, so that the progress also moves on a slow line, and each piece's
    // size fits into the 16 bits of a status. A version file is requested in the same way: the two
    // downloads differ only in the use of the body.
    static constexpr UINT kReceiveBufferSize = 128;

    CString url;
    bool headerOnly = true;
    CString localFile;                      // receives the whole response unless headerOnly
    UINT receiveBufferSize = 0;             // 0: the socket's default
    UINT hostTimeOut = 30000;               // for the look-up of the host, in milliseconds
    std::size_t headerLimit = kHeaderLimit; // a longer header fails with WSAEMSGSIZE
    ULONGLONG bodyLimit = ~ULONGLONG{0};    // for a transport; the check also tests it
};

// The destructor closes it. Its statuses, those of CHttpFileSocket, arrive as calls of the check's
// OnSocketStatus. Messages are lost when the queue is full: rely on GetBytesReceived and HasEnded.
class UpdateConnection {
public:
    virtual ~UpdateConnection() = default;
    // Identifies its statuses. No other existing connection has the same value.
    virtual const void* GetSender() const = 0;
    // Both return 0 or a Winsock error, or 1 if the sockets are not initialised.
    virtual DWORD Create() = 0;
    virtual DWORD Connect(const UpdateRequest& request) = 0;
    // After this only statusClosed follows, and statuses that were already posted.
    virtual void Close() = 0;

    virtual ULONGLONG GetBytesReceived() const = 0; // includes the header
    // Whether it has ended, and its Winsock error or 0. Needed because its last status may be lost.
    virtual bool HasEnded(DWORD& error) const = 0;
    virtual bool IsHeaderParsed() const = 0;
    virtual const CHttpHeader& GetHeader() const = 0; // after it was parsed
    // An address for the next connection to the same file.
    virtual CString GetResolvedUrl() const = 0;
    // The error text for the user after it has ended; if empty, the code's own text applies.
    virtual CString GetErrorText() const { return CString(); }
};

// The source of connections, and other inputs of a check that tests replace.
class UpdateSource {
public:
    virtual ~UpdateSource() = default;
    virtual std::unique_ptr<UpdateConnection> NewConnection() = 0;
    virtual CString GetWinsockErrorText(DWORD code) = 0;
    virtual COleDateTime GetCurrentUTCTime() = 0;
    // Whether to refuse answers that no correct server sends, whatever the setting.
    virtual bool IsStrict() const { return false; }
};

} // namespace quorvel
