// CVaskSocket: a stream socket that works by events.
//
// A connect, a listen and an accept start one worker thread for the socket. It waits for the
// network's events, calls the socket's On... members, and posts every step as a status to a window.
// Names of hosts are looked up through one hidden window, CVaskSocketWnd.
//
// A socket belongs to one thread, its owner. The worker calls the On... members, UpdateStatus and
// what these call: Receive, Send and the other calls of the socket, Accept, Close, the accessors.
// The owner may call the accessors, Send, ShutDown and Close at any time, everything else while no
// worker is active.
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

// What a worker is started with. Copyable. A socket hands a copy on the heap to its worker, which
// deletes it before it does anything else; when no worker can be started, the socket deletes it.
// Neither the address nor the socket in it is owned.
class QUORVEL_API CVaskSocketThreadParams {
public:
    CVaskSocketThreadParams() = default;
    // Looks the host up, unless it is a dotted address.
    CVaskSocketThreadParams(const WCHAR* hostAddress, BOOL connect, CVaskSocket* socket);
    // Connects to the address, which is not copied.
    CVaskSocketThreadParams(const quorvel::win32::sockaddr* address, int length,
                            CVaskSocket* socket);
    // Waits for events alone.
    explicit CVaskSocketThreadParams(CVaskSocket* socket);

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

// Operations give FALSE, or SOCKET_ERROR, with the reason in the Winsock error, and show no
// message. Before Initialize it is 1 for those that make a socket, connect, listen or accept.
class QUORVEL_API CVaskSocket {
public:
    static constexpr UINT DEFAULT_SEND_BUFFER_SIZE = 8192;
    static constexpr UINT DEFAULT_RECEIVE_BUFFER_SIZE = 16384;
    // The six events of a stream, FD_READ to FD_CLOSE; the SDK's FD_ALL_EVENTS has more.
    static constexpr LONG ALL_EVENTS = 63;
    // Posted to the status window: wParam is the socket, the low word of lParam the status and the
    // high word its error, 0 for none.
    //
    // The last status is posted once more, with 10053, when Close cancels the worker, and with an
    // error when the worker cannot wait.
    //
    // A window's queue holds 10,000 messages. A full queue loses statuses, statusEnded and
    // statusClosed among them. So an owner that waits for the end of a socket sets a timer for the
    // window and asks IsFinished of each socket when it fires. A timer's message comes only when no
    // posted message waits, but the last statuses may be posted just then. So the owner calls
    // SetStatusCallbackWnd(nullptr) and Close at one firing, and destroys the socket at the next.
    static constexpr UINT STATUS_MESSAGE = WM_APP + 1003;
    enum SocketStatus {
        statusClosed = 0,     // Close has closed the handle
        statusLookingUp = 1,  // the look-up of the host begins; a dotted address needs none
        statusLookedUp = 2,   // the look-up has ended
        statusConnecting = 3, // the connection was requested
        statusConnected = 4,  // there is a connection, or the error why not; before OnConnect
        statusListening = 5,  // Listen was called
        statusAccepting = 6,  // before OnAccept
        statusSending = 8,    // before OnSend
        statusReceiving = 9,  // before OnReceive
        statusReceived = 10,  // after OnReceive: the low 16 bits of its result, not an error
        statusOutOfBand = 11, // before OnOutOfBandData
        // The connection has ended: after OnClose, with the Winsock error that it left. Without
        // OnClose, and with ERROR_NOT_ENOUGH_MEMORY (8), when lack of memory has ended the worker.
        statusEnded = 14
    };

    // Once a process, on the user-interface thread, which then has to dispatch messages. Both show
    // a message where they fail; Deinitialize shows none when there is no window to destroy. All
    // sockets are to be closed before it.
    static BOOL Initialize();
    static BOOL Deinitialize();

    CVaskSocket();
    CVaskSocket(const CVaskSocket&) = delete;
    CVaskSocket& operator=(const CVaskSocket&) = delete;

    // Closes the socket. A derived class whose members the On... members use calls Close in its own
    // destructor, since they are gone in this one. Not to be called within an On... member.
    virtual ~CVaskSocket();

    // Accepts a connection for a socket that has no handle (10056); its worker is started. The
    // address may be null.
    virtual BOOL Accept(CVaskSocket& connected, quorvel::win32::sockaddr* address = nullptr,
                        int* addressLength = nullptr);

    // Ends the worker and closes the handle: waits without limit for the worker to end. Its last
    // status is the present one with 10053; then comes status 0 if there was a handle. The socket
    // may be used again, and another time closed.
    //
    // Called on the socket's own worker, within an On... member, it does not wait: it closes the
    // handle and posts status 0, and the worker ends when the member returns, with no further
    // status. The socket may be used again after another Close, on its owner's thread.
    virtual void Close();

    // A receive re-arms OnReceive; after success, 0 bytes among it, the Winsock error is 0.
    virtual int Receive(void* buffer, int length, int flags = 0);
    virtual int Send(const void* buffer, int length, int flags = 0);

protected:
    // What happened to the connection, with its Winsock error. FALSE, or SOCKET_ERROR from
    // OnReceive, ends the worker; otherwise OnReceive gives the number of bytes. The base class's
    // do nothing and give 1. A member must not wait for the owner's thread, which may be waiting in
    // Close. An exception ends the worker, without a status unless it means lack of memory
    // (std::bad_alloc, CMemoryException).
    virtual BOOL OnAccept(int errorCode);
    virtual BOOL OnClose(int errorCode);
    virtual BOOL OnConnect(int errorCode);
    virtual BOOL OnOutOfBandData(int errorCode);
    virtual BOOL OnSend(int errorCode);
    virtual int OnReceive(int errorCode);

    // The platform's calls.
    virtual BOOL ConnectHelper(const quorvel::win32::sockaddr* address, int length);
    virtual int ReceiveFromHelper(void* buffer, int length, quorvel::win32::sockaddr* address,
                                  int* addressLength, int flags);
    virtual int SendToHelper(const void* buffer, int length,
                             const quorvel::win32::sockaddr* address, int addressLength, int flags);

public:
    // A new IPv4 socket, bound to the address (null: any) and port (0: any). 10056 when there is
    // one already. After a failure to bind the socket is closed.
    BOOL Create(UINT port = 0, int type = SOCK_STREAM, LONG events = ALL_EVENTS,
                const WCHAR* address = nullptr);
    // A new socket of that family, type and protocol, unbound. 10022 for null.
    BOOL CreateEx(const quorvel::win32::addrinfo* info, LONG events = ALL_EVENTS);
    // Takes a socket over. 10056 when there is one already, a worker or an event; 10038 for
    // INVALID_SOCKET. After a failure it is still the caller's.
    BOOL Attach(SOCKET socket, LONG events = ALL_EVENTS);
    // Hands the socket back. INVALID_SOCKET and 10045 while a worker is active.
    SOCKET Detach();
    // Attach, and a worker that waits for events.
    BOOL CreateFromHandle(SOCKET socket, LONG events = ALL_EVENTS);

    BOOL Bind(const quorvel::win32::sockaddr* address, int length);
    BOOL BindEx(const quorvel::win32::addrinfo* info);
    // A dotted address, null for any; otherwise 10022.
    BOOL Bind(UINT port, const WCHAR* address);

    // Connects to the host of a URL, or of one without "http://", at this port. The scheme and the
    // port in the URL are ignored: nothing is encrypted, for "https://" neither. 10056 while a
    // worker is active, 10022 for a text that is no URL and for a bad port. A URL with a character
    // that a code page of Windows turns into a blank (U+2000 to U+200A and U+3000) or a control
    // character is no URL.
    BOOL Connect(const WCHAR* hostUrl, UINT port);
    // The address stays valid until status 3.
    BOOL Connect(const quorvel::win32::sockaddr* address, int length);
    BOOL ConnectEx(const quorvel::win32::addrinfo* info);
    // Of a bound socket. Reports status 5 and starts a worker, unless one is active.
    BOOL Listen(int backlog = 5);
    void Cancel() { Close(); }

    BOOL ShutDown(int how = SD_SEND);
    BOOL SetSockOpt(int option, const void* value, int length, int level = SOL_SOCKET);
    BOOL GetSockOpt(int option, void* value, int* length, int level = SOL_SOCKET);
    BOOL IOCtl(LONG command, DWORD* argument);

    // The forms with a text take and give dotted IPv4 addresses: 10022 for another text.
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

    SOCKET GetHandle() const { return m_socket; }
    BOOL IsSocketValid() const { return m_socket != INVALID_SOCKET; }
    BOOL IsEventValid() const { return m_networkEvent != nullptr; }
    WSAEVENT GetEventHandle() const { return m_networkEvent; }
    BOOL IsCancelThreadEventValid() const { return m_cancelThreadEvent != nullptr; }
    BOOL IsThreadActive() const;
    // TRUE from the moment at which the worker that a connect, listen or accept started has ended,
    // for whatever reason, until Close is called on the owner's thread. No status follows but that
    // of Close; GetStatus and GetStatusError are those of the last one, also when a full queue has
    // lost it. Owner's thread.
    BOOL IsFinished() const;
    static int GetLastError();

    int GetStatus() const { return m_status; }
    void SetStatus(int status) {
        m_statusError = 0;
        m_status = status;
    }
    // The error that UpdateStatus stored with the status, or the count of statusReceived, uncut.
    int GetStatusError() const { return m_statusError; }
    void SetStatusCallbackWnd(HWND window) { m_statusWnd = window; }
    // Stores the status with its error and posts both.
    void UpdateStatus(int status, int error);
    // Posts the status without storing it. The Winsock error stays.
    void PostCallbackStatusChangeMessage(int status, int error);

    CString GetHostURL() const { return m_hostUrl; }       // as given to Connect
    CString GetHostServer() const { return m_hostServer; } // the server in it
    CString GetHostServerIP() const;                       // what it was found to be
    CString GetHostObject() const { return m_hostObject; } // what follows the server
    UINT GetHostPort() const { return m_hostPort; }
    // Milliseconds; 0, the default, for none.
    UINT GetGetHostTimeOut() const { return m_getHostTimeOut; }
    void SetGetHostTimeOut(UINT timeOut) { m_getHostTimeOut = timeOut; }
    // For derived classes; not used here.
    UINT GetSendTimeOut() const { return m_sendTimeOut; }
    void SetSendTimeOut(UINT timeOut) { m_sendTimeOut = timeOut; }
    UINT GetReceiveTimeOut() const { return m_receiveTimeOut; }
    void SetReceiveTimeOut(UINT timeOut) { m_receiveTimeOut = timeOut; }
    UINT GetSendBufferSize() const { return m_sendBufferSize; }
    // Deliberate: 0 stands for DEFAULT_RECEIVE_BUFFER_SIZE in both.
    void SetSendBufferSize(UINT size) {
        m_sendBufferSize = size != 0 ? size : DEFAULT_RECEIVE_BUFFER_SIZE;
    }
    UINT GetReceiveBufferSize() const { return m_receiveBufferSize; }
    void SetReceiveBufferSize(UINT size) {
        m_receiveBufferSize = size != 0 ? size : DEFAULT_RECEIVE_BUFFER_SIZE;
    }

protected:
    // Splits the URL into the members that describe the host. FALSE, and nothing changed, when it
    // is no URL or the port is none.
    BOOL SetURL(const WCHAR* url, UINT port);

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
    CString m_hostServerIP; // guarded by m_lock: the worker finds it out
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
