// CVaskSocketWnd: the hidden window that receives the results of host name look-ups;
// CGetHostRequestData: one look-up.
#pragma once

#include <quorvel/framework/wnd.h>

#include <deque>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

// Copyable. Does not own the event.
class QUORVEL_API CGetHostRequestData {
public:
    CGetHostRequestData();
    // Deliberate: the buffer is copied only up to its first zero byte, so a copy has no
    // address.
    CGetHostRequestData(const CGetHostRequestData& other);
    CGetHostRequestData& operator=(const CGetHostRequestData& other);

    // The event that is set when the look-up ends; the memory for the hostent, with its size in
    // bytes; the Winsock error.
    HANDLE GetCompletionEvent() const { return m_completionEvent; }
    void SetCompletionEvent(HANDLE event) { m_completionEvent = event; } // not owned
    char* GetBuffer() { return m_buffer; }
    static int GetBufferLength() { return BUFFER_LENGTH; }
    int GetLastError() const { return m_lastError; }
    void SetLastError(int error) { m_lastError = error; }

    // The first address of the hostent that the platform wrote into the buffer, as dotted text.
    // Returns FALSE and an empty text when there is no address.
    BOOL GetIPAddress(CString& address) const;

private:
    static constexpr int BUFFER_LENGTH = 1024; // the maximum size of a hostent

    HANDLE m_completionEvent = nullptr;
    alignas(void*) char m_buffer[BUFFER_LENGTH] = {};
    int m_lastError = 0;
};

// The thread that called CVaskSocket::Initialize creates and destroys the window and handles its
// messages. Look-ups and their time-outs end only while that thread dispatches messages. The
// operations on requests may be called on any thread.
class QUORVEL_API CVaskSocketWnd : public CWnd {
    DECLARE_DYNAMIC(CVaskSocketWnd)
public:
    CVaskSocketWnd();
    ~CVaskSocketWnd() override;

    // Creates the hidden window, with its caption. FALSE when it exists or cannot be created.
    BOOL Create();
    // Cancels and frees all requests first.
    BOOL DestroyWindow() override;

    // Starts to look up a name. Returns 0 and the request, or a Winsock error and null. The event
    // is set when the request has ended; the caller owns it and keeps it until the request is
    // removed. A non-zero time-out, in milliseconds, ends the request with 10060. 10022 without a
    // window, an event or a name.
    int AsyncGetHostByName(const WCHAR* name, HANDLE completionEvent, UINT timeOut,
                           HANDLE& request);
    // The error with which the request ended; 0 while it runs. 10022 for an unknown request.
    int GetLastError(HANDLE request) const;
    // FALSE for an unknown request.
    BOOL GetIPAddress(HANDLE request, CString& address) const;
    // Returns 0 or a Winsock error: 10022 for an unknown request, the platform's error when it is
    // too late. Does not set the event.
    int CancelAsyncRequest(HANDLE request, BOOL remove);
    // Removes and frees the request in any state. FALSE for an unknown request.
    BOOL RemoveGetHostRequest(HANDLE request);

protected:
    void DeleteGetHostRequestsMapContents(); // cancels them first
    LRESULT OnWSAAsyncGetHostByName(WPARAM wParam, LPARAM lParam);
    void OnTimer(UINT id);
    DECLARE_MESSAGE_MAP()

private:
    typedef std::shared_ptr<CGetHostRequestData> Data;

    CGetHostRequestData* Find(HANDLE request) const; // call with the lock held
    int Cancel(HANDLE request);                      // call with the lock held
    static void Finish(CGetHostRequestData& data, int error);

    mutable std::mutex m_lock; // guards the requests
    std::unordered_map<HANDLE, Data> m_requests;
    std::deque<std::pair<HANDLE, Data>> m_unanswered; // newest last; kept after they ended
};
