// CVaskSocket: an event-driven stream socket.
//
// A connect, a listen and an accept start one worker thread for the socket. The worker waits for
// network events, calls the socket's On... members, and posts every step as a status to a window.
// Host names are looked up through one hidden window, CVaskSocketWnd.
//
// One thread owns a socket. The worker calls the On... members and UpdateStatus. These may call
// Receive, Send and the other operations on the socket, Accept, Close and the accessors. The owner
// may call the accessors, Send, ShutDown and Close at any time, and everything else while no worker
// is active.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/net/vask_socket_wnd.h>
#include <quorvel/platform/sockets.h>

#include <atomic>
#include <mutex>

class CVaskSocket;
namespace quorvel {
class SocketWorker;
}

// The start parameters of a worker. Copyable. A socket passes a copy on the heap to its worker,
// which deletes it before it does anything else; if no worker can be started, the socket deletes
// it. It owns neither the address nor the socket that it points to.
class QUORVEL_API CVaskSocketThreadParams {
public:
    CVaskSocketThreadParams() = default;
    // For a host, which is looked up unless it is a dotted address, and connected to if `connect`.
    CVaskSocketThreadParams(const WCHAR* hostAddress, BOOL connect, CVaskSocket* socket);
    // Connects to the address. The address is not copied.
    CVaskSocketThreadParams(const quorvel::win32::sockaddr* address, int length,
                            CVaskSocket* socket);
    // Only waits for events.
    explicit CVaskSocketThreadParams(CVaskSocket* socket);

    // The values that a constructor sets. Whether a host name is looked up, whether the worker
    // connects, and to which address.
    BOOL GetHostByName() const { return m_getHostByName; }
    void SetGetHostByName(BOOL getHostByName) { m_getHostByName = getHostByName; }
    BOOL DoesConnect() const { return m_connect; }
    void SetConnect(BOOL connect) { m_connect = connect; }
    CString GetHostAddress() const { return m_hostAddress; }
    void SetHostAddress(const WCHAR* hostAddress) { m_hostAddress = hostAddress; }
    const quorvel::win32::sockaddr* GetSockAddr() const { return m_address; }
    void SetSockAddr(const quorvel::win32::sockaddr* address) { m_address = address; }
    int GetSockAddrLen() const { return m_addressLength; }
    void SetSockAddrLen(int length) { m_addressLength = length; }
    CVaskSocket* GetSocket() const { return m_socket; }
    void SetSocket(CVaskSocket* socket) { m_socket = socket; }

private:
    BOOL m_getHostByName = FALSE;
    BOOL m_connect = TRUE;
    CString m_hostAddress;
    const quorvel::win32::sockaddr* m_address = nullptr;
    int m_addressLength = 0;
    CVaskSocket* m_socket = nullptr;
};

// On failure, operations return FALSE or SOCKET_ERROR, set the Winsock error and show no message.
// Before Initialize, creating, connecting, listening and accepting fail with error 1.
class QUORVEL_API CVaskSocket {
public:
    // In bytes.
    static constexpr UINT DEFAULT_SEND_BUFFER_SIZE = 8192;
    static constexpr UINT DEFAULT_RECEIVE_BUFFER_SIZE = 16384;
    // The six events of a stream, FD_READ to FD_CLOSE; the SDK's FD_ALL_EVENTS has more.
    static constexpr LONG ALL_EVENTS = 63;
    // Posted to the status window: wParam is the socket; the low word of lParam is the status, the
    // high word its error (0: no error).
    //
    // The last status is posted again, with 10053 when Close cancels the worker, and with an error
    // when the worker cannot wait.
    //
    // A window's queue holds 10,000 messages. A full queue loses statuses, even statusEnded and
    // statusClosed. So an owner that waits for the end of a socket sets a timer for the window and
    // calls IsFinished for each socket when it fires. A timer's message comes only when no posted
    // message waits, but the last statuses may be posted just then. So the owner calls
    // SetStatusCallbackWnd(nullptr) and Close at one firing, and destroys the socket at the next.
    static constexpr UINT STATUS_MESSAGE = WM_APP + 1003;
    enum SocketStatus {
        statusClosed = 0,     // Close closed the handle
        statusLookingUp = 1,  // the look-up of the host starts; not for a dotted address
        statusLookedUp = 2,   // the look-up has ended
        statusConnecting = 3, // the connection is requested
        statusConnected = 4,  // connected, or failed with that error; before OnConnect
        statusListening = 5,  // Listen was called
        statusAccepting = 6,  // before OnAccept
        statusSending = 8,    // before OnSend
        statusReceiving = 9,  // before OnReceive
        statusReceived = 10,  // after OnReceive: the low 16 bits of its result, not an error
        statusOutOfBand = 11, // before OnOutOfBandData
        // The connection has ended; after OnClose, with the Winsock error at that time. When a
        // failed allocation ends the worker: without OnClose, with ERROR_NOT_ENOUGH_MEMORY (8).
        statusEnded = 14
    };

    // Call Initialize once in a process, on the user-interface thread, which must then dispatch
    // messages, and close all sockets before Deinitialize. Both show a message when they fail,
    // except Deinitialize when there is no window to destroy.
    static BOOL Initialize();
    static BOOL Deinitialize();

    CVaskSocket();
    CVaskSocket(const CVaskSocket&) = delete;
    CVaskSocket& operator=(const CVaskSocket&) = delete;

    // Closes the socket. If the On... members use members of a derived class, its destructor must
    // call Close, since this one runs too late. Do not destroy a socket in an On... member.
    virtual ~CVaskSocket();

    // Accepts a connection into `connected`, which must not have a handle yet (otherwise 10056),
    // and starts its worker. `address` may be null.
    virtual BOOL Accept(CVaskSocket& connected, quorvel::win32::sockaddr* address = nullptr,
                        int* addressLength = nullptr);

    // Ends the worker, waits for it without a time limit, and closes the handle. The worker posts
    // its current status again with 10053; then status 0 is posted if there was a handle. The
    // socket may be used again, and closed again.
    //
    // In an On... member, on the socket's own worker, it does not wait: it closes the handle and
    // posts status 0. The worker ends when the member returns, without another status. The socket
    // may be used again after another Close on its owner's thread.
    virtual void Close();

    // Receive re-arms OnReceive. After success, including 0 bytes, the Winsock error is 0.
    virtual int Receive(void* buffer, int length, int flags = 0);    // 0: the other side has closed
    virtual int Send(const void* buffer, int length, int flags = 0); // 10035: OnSend follows

protected:
    // Called for an event of the connection, with its Winsock error. The worker ends when one
    // returns FALSE, or OnReceive returns SOCKET_ERROR; otherwise OnReceive returns the number of
    // bytes. The default does nothing and returns 1. A member must not wait for the owner's thread,
    // which may be waiting in Close. An exception ends the worker, without a status unless it
    // reports a failed allocation (std::bad_alloc, CMemoryException).
    virtual BOOL OnAccept(int errorCode);
    virtual BOOL OnClose(int errorCode);
    virtual BOOL OnConnect(int errorCode);
    virtual BOOL OnOutOfBandData(int errorCode);
    virtual BOOL OnSend(int errorCode);
    virtual int OnReceive(int errorCode);

    // Calls of the platform's operations.
    virtual BOOL ConnectHelper(const quorvel::win32::sockaddr* address, int length);
    virtual int ReceiveFromHelper(void* buffer, int length, quorvel::win32::sockaddr* address,
                                  int* addressLength, int flags);
    virtual int SendToHelper(const void* buffer, int length,
                             const quorvel::win32::sockaddr* address, int addressLength, int flags);

public:
    // Creates an IPv4 socket and binds it to the address (null: any) and port (0: any). Fails with
    // 10056 when there is a socket already. If binding fails, the socket is closed.
    BOOL Create(UINT port = 0, int type = SOCK_STREAM, LONG events = ALL_EVENTS,
                const WCHAR* address = nullptr);
    // Creates an unbound socket of that family, type and protocol. Fails with 10022 for null.
    BOOL CreateEx(const quorvel::win32::addrinfo* info, LONG events = ALL_EVENTS);
    // Takes ownership of a socket. Fails with 10056 when there is already a socket, worker or
    // event, and with 10038 for INVALID_SOCKET. On failure the caller still owns the socket.
    BOOL Attach(SOCKET socket, LONG events = ALL_EVENTS);
    // Returns the socket to the caller. INVALID_SOCKET and 10045 while a worker is active.
    SOCKET Detach();
    // Attach, and starts a worker that waits for events.
    BOOL CreateFromHandle(SOCKET socket, LONG events = ALL_EVENTS);

    // Bind the socket to an address. A null `info` fails with 10022.
    BOOL Bind(const quorvel::win32::sockaddr* address, int length);
    BOOL BindEx(const quorvel::win32::addrinfo* info);
    // `address` is a dotted address or null for any address; otherwise 10022.
    BOOL Bind(UINT port, const WCHAR* address);

    // Connects to the host of a URL, with or without "http://", at this port. Scheme and port of
    // the URL are ignored: nothing is encrypted, not even for "https://". Fails with 10056 while a
    // worker is active, and with 10022 for a bad port or a text that is not a URL. A URL must not
    // contain control characters, nor characters that a code page of Windows converts to a blank
    // (U+2000 to U+200A and U+3000).
    BOOL Connect(const WCHAR* hostUrl, UINT port);
    // The address must stay valid until status 3.
    BOOL Connect(const quorvel::win32::sockaddr* address, int length);
    BOOL ConnectEx(const quorvel::win32::addrinfo* info);
    // For a bound socket. Posts status 5 and starts a worker unless one is active.
    BOOL Listen(int backlog = 5);
    void Cancel() { Close(); } // the same as Close
    // These call the platform's operations: shutdown, setsockopt, getsockopt, ioctlsocket.
    BOOL ShutDown(int how = SD_SEND);
    BOOL SetSockOpt(int option, const void* value, int length, int level = SOL_SOCKET);
    BOOL GetSockOpt(int option, void* value, int* length, int level = SOL_SOCKET);
    BOOL IOCtl(LONG command, DWORD* argument);

    // The forms with a text use dotted IPv4 addresses. Any other text fails with 10022.
    int ReceiveFrom(void* buffer, int length, quorvel::win32::sockaddr* address, int* addressLength,
                    int flags = 0);
    int ReceiveFromEx(void* buffer, int length, CString& address, UINT& port, int flags = 0);
    int SendTo(const void* buffer, int length, const quorvel::win32::sockaddr* address,
               int addressLength, int flags = 0);
    int SendToEx(const void* buffer, int length, const WCHAR* address, UINT port, int flags = 0);
    BOOL GetPeerName(quorvel::win32::sockaddr* address, int* length) const;
    BOOL GetPeerNameEx(CString& address, UINT& port) const;
    BOOL GetSockName(quorvel::win32::sockaddr* address, int* length) const;
    BOOL GetSockNameEx(CString& address, UINT& port) const;

    // The handle of the socket and those of its events. The socket keeps ownership.
    SOCKET GetHandle() const { return m_socket; }
    BOOL IsSocketValid() const { return m_socket != INVALID_SOCKET; }
    BOOL IsEventValid() const { return m_networkEvent != nullptr; }
    WSAEVENT GetEventHandle() const { return m_networkEvent; }
    BOOL IsCancelThreadEventValid() const { return m_cancelThreadEvent != nullptr; }
    BOOL IsThreadActive() const; // whether the worker runs
    // TRUE as soon as the worker that a connect, listen or accept started has ended, for any
    // reason, until the owner calls Close. No status follows except that of Close. GetStatus and
    // GetStatusError return the last status, even if a full queue lost its message. Owner's
    // thread.
    BOOL IsFinished() const;
    static int GetLastError(); // the Winsock error of this thread

    // The last status. SetStatus also sets the error to 0; it posts no message.
    int GetStatus() const { return m_status; }
    void SetStatus(int status) {
        m_statusError = 0;
        m_status = status;
    }
    // The error that UpdateStatus stored with the status; for statusReceived the full count.
    int GetStatusError() const { return m_statusError; }
    void SetStatusCallbackWnd(HWND window) { m_statusWnd = window; } // null: no messages
    // Stores the status and its error, and posts both.
    void UpdateStatus(int status, int error);
    // Posts the status without storing it. Does not change the Winsock error.
    void PostCallbackStatusChangeMessage(int status, int error);

    CString GetHostURL() const { return m_hostUrl; }       // the argument of Connect
    CString GetHostServer() const { return m_hostServer; } // the server part of it
    CString GetHostServerIP() const;                       // the result of the look-up
    CString GetHostObject() const { return m_hostObject; } // the part after the server
    UINT GetHostPort() const { return m_hostPort; }        // the argument of Connect
    // The time-out of a host look-up in milliseconds; 0, the default, means no time-out.
    UINT GetGetHostTimeOut() const { return m_getHostTimeOut; }
    void SetGetHostTimeOut(UINT timeOut) { m_getHostTimeOut = timeOut; }
    // For derived classes; not used here.
    UINT GetSendTimeOut() const { return m_sendTimeOut; }
    void SetSendTimeOut(UINT timeOut) { m_sendTimeOut = timeOut; }
    UINT GetReceiveTimeOut() const { return m_receiveTimeOut; }
    void SetReceiveTimeOut(UINT timeOut) { m_receiveTimeOut = timeOut; }
    UINT GetSendBufferSize() const { return m_sendBufferSize; }
    // Deliberate: in both, 0 means DEFAULT_RECEIVE_BUFFER_SIZE.
    void SetSendBufferSize(UINT size) {
        m_sendBufferSize = size != 0 ? size : DEFAULT_RECEIVE_BUFFER_SIZE;
    }
    UINT GetReceiveBufferSize() const { return m_receiveBufferSize; }
    void SetReceiveBufferSize(UINT size) {
        m_receiveBufferSize = size != 0 ? size : DEFAULT_RECEIVE_BUFFER_SIZE;
    }

protected:
    // Splits the URL into the members that describe the host. Returns FALSE and changes nothing
    // when the URL or the port is not valid.
    BOOL SetURL(const WCHAR* url, UINT port);

    // Whether Initialize succeeded, and the window that it created.
    static BOOL m_bInitialized;
    static CVaskSocketWnd m_wndSocket;

private:
    friend class quorvel::SocketWorker;
    static UINT Thread_NetworkEvents(void* params);

    BOOL CreateNetworkEvent();
    BOOL SelectEvents(LONG events);
    BOOL OpenSocket(int family, int type, int protocol, LONG events);
    BOOL StartThread(const CVaskSocketThreadParams& params);
    BOOL LaunchThread(const CVaskSocketThreadParams& params);
    bool CloseSocket();
    void CloseEvents();
    bool IsOwnWorker() const;
    void SetHostServerIP(const CString& address);

    std::atomic<SOCKET> m_socket = INVALID_SOCKET;
    CString m_hostUrl;
    CString m_hostServer;
    mutable std::mutex m_lock;
    CString m_hostServerIP; // guarded by m_lock: the worker sets it
    CString m_hostObject;
    UINT m_hostPort = 0;
    UINT m_getHostTimeOut = 0;
    UINT m_sendTimeOut = 0;
    UINT m_receiveTimeOut = 0;
    UINT m_sendBufferSize = DEFAULT_SEND_BUFFER_SIZE;
    UINT m_receiveBufferSize = DEFAULT_RECEIVE_BUFFER_SIZE;
    WSAEVENT m_networkEvent = nullptr;
    HANDLE m_cancelThreadEvent = nullptr;
    HANDLE m_workerThread = nullptr;
    std::atomic<int> m_status = 0;
    std::atomic<int> m_statusError = 0;
    std::atomic<HWND> m_statusWnd = nullptr;
    std::atomic<DWORD> m_workerId = 0;          // of the thread that runs the On... members
    std::atomic<bool> m_closedByWorker = false; // within an On... member
};
