// CVaskSocketWnd: the hidden window that the sockets' look-ups of host names report to, and
// CGetHostRequestData, one of these look-ups.
#pragma once

#include <quorvel/framework/wnd.h>

#include <deque>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

// A plain value.
class QUORVEL_API CGetHostRequestData {
public:
    CGetHostRequestData();
    CGetHostRequestData(const CGetHostRequestData& other);
    // Deliberate: of the buffer, what comes before its first zero byte is copied. A copy has no
    // address to tell.
    CGetHostRequestData& operator=(const CGetHostRequestData& other);

    HANDLE GetCompletionEvent() const { return m_completionEvent; }
    void SetCompletionEvent(HANDLE event) { m_completionEvent = event; } // not owned
    char* GetBuffer() { return m_buffer; }
    static int GetBufferLength() { return BUFFER_LENGTH; }
    int GetLastError() const { return m_lastError; }
    void SetLastError(int error) { m_lastError = error; }

    // The first address of the hostent that the platform wrote into the buffer, as dotted text.
    // FALSE, and an empty text, when none was written.
    BOOL GetIPAddress(CString& address) const;

private:
    static constexpr int BUFFER_LENGTH = 1024; // what a hostent needs at the most

    HANDLE m_completionEvent = nullptr;
    alignas(void*) char m_buffer[BUFFER_LENGTH] = {};
    int m_lastError = 0;
};

// The window is made, used by its messages and destroyed by the thread that called
// CVaskSocket::Initialize, and that thread must dispatch messages for look-ups and their time-outs
// to come to an end. The operations on requests may be called on any thread.
class QUORVEL_API CVaskSocketWnd : public CWnd {
    DECLARE_DYNAMIC(CVaskSocketWnd)
public:
    CVaskSocketWnd();
    ~CVaskSocketWnd() override;

    // The hidden window, under its caption. FALSE when it exists or cannot be made.
    BOOL Create();
    // Cancels and frees all requests first.
    BOOL DestroyWindow() override;

    // Begins to look a name up: 0 and the request, or a Winsock error and null. The event, which
    // the caller owns and keeps until the request is removed, is set when the request has ended;
    // a time-out in milliseconds other than 0 ends it with 10060. 10022 without a window, an event
    // or a name.
    int AsyncGetHostByName(const WCHAR* name, HANDLE completionEvent, UINT timeOut,
                           HANDLE& request);
    // How the request ended; 0 also while it lasts. 10022 for an unknown one.
    int GetLastError(HANDLE request) const;
    // FALSE for an unknown request.
    BOOL GetIPAddress(HANDLE request, CString& address) const;
    // 0, or a Winsock error: 10022 for an unknown request, the platform's when it is too late. The
    // event is not set.
    int CancelAsyncRequest(HANDLE request, BOOL remove);
    // Forgets the request, whatever has become of it, and frees it. FALSE for an unknown one.
    BOOL RemoveGetHostRequest(HANDLE request);

protected:
    void DeleteGetHostRequestsMapContents();
    LRESULT OnWSAAsyncGetHostByName(WPARAM wParam, LPARAM lParam);
    void OnTimer(UINT id);
    DECLARE_MESSAGE_MAP()

private:
    typedef std::shared_ptr<CGetHostRequestData> Data;

    CGetHostRequestData* Find(HANDLE request) const; // the lock is held
    int Cancel(HANDLE request);                      // the lock is held
    static void Finish(CGetHostRequestData& data, int error);

    mutable std::mutex m_lock; // guards the requests
    std::unordered_map<HANDLE, Data> m_requests;
    std::deque<std::pair<HANDLE, Data>> m_unanswered; // the newest last, also after their end
};
