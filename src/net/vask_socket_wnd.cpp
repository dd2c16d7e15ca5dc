#include <quorvel/net/vask_socket_wnd.h>

#include <quorvel/platform/sockets.h>

#include "platform/win32.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <utility>

IMPLEMENT_DYNAMIC(CVaskSocketWnd, CWnd)

namespace {

constexpr UINT kHostFound = WM_APP + 1004;
constexpr const WCHAR* kClassName = _T("VaskSocketNotificationSink");

// Under Wine a cancelled look-up continues, writes its buffer and posts its message. So the buffer
// is kept until that message. On Windows the message never comes, so the number of kept buffers has
// a limit.
constexpr std::size_t kMaxUnanswered = 64;

UINT_PTR TimerOf(HANDLE request) {
    return reinterpret_cast<UINT_PTR>(request);
}

bool RegisterSinkClass() {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = ::DefWindowProcW;
    windowClass.lpszClassName = kClassName;
    return ::RegisterClassExW(&windowClass) != 0 || ::GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

} // namespace

CGetHostRequestData::CGetHostRequestData() = default;

CGetHostRequestData::CGetHostRequestData(const CGetHostRequestData& other) {
    *this = other;
}

CGetHostRequestData& CGetHostRequestData::operator=(const CGetHostRequestData& other) {
    if (this == &other)
        return *this;
    m_completionEvent = other.m_completionEvent;
    std::memset(m_buffer, 0, sizeof m_buffer);
    std::memcpy(m_buffer, other.m_buffer, ::strnlen(other.m_buffer, BUFFER_LENGTH));
    m_lastError = other.m_lastError;
    return *this;
}

BOOL CGetHostRequestData::GetIPAddress(CString& address) const {
    address.Empty();
    // In a copied object the pointers point outside the buffer.
    const auto isWithin = [this](const void* place, std::size_t size) {
        const char* const first = static_cast<const char*>(place);
        return std::less_equal<>()(&m_buffer[0], first) &&
               std::less_equal<>()(first + size, m_buffer + BUFFER_LENGTH);
    };
    hostent host;
    std::memcpy(&host, m_buffer, sizeof host);
    in_addr first;
    if (!isWithin(host.h_addr_list, sizeof(char*)) || !isWithin(*host.h_addr_list, sizeof first))
        return FALSE;
    std::memcpy(&first, *host.h_addr_list, sizeof first);
    address = CString(::inet_ntoa(first));
    return TRUE;
}

BEGIN_MESSAGE_MAP(CVaskSocketWnd, CWnd)
ON_MESSAGE(kHostFound, &CVaskSocketWnd::OnWSAAsyncGetHostByName)
ON_WM_TIMER()
END_MESSAGE_MAP()

CVaskSocketWnd::CVaskSocketWnd() : m_requests(17) {}

CVaskSocketWnd::~CVaskSocketWnd() {
    DeleteGetHostRequestsMapContents();
}

BOOL CVaskSocketWnd::Create() {
    return RegisterSinkClass() && CreateEx(0, kClassName, _T("VaskSocket Notification Sink"), 0, 0,
                                           0, 0, 0, nullptr, nullptr);
}

BOOL CVaskSocketWnd::DestroyWindow() {
    DeleteGetHostRequestsMapContents();
    return CWnd::DestroyWindow();
}

void CVaskSocketWnd::DeleteGetHostRequestsMapContents() {
    const std::lock_guard lock(m_lock);
    for (const auto& [request, data] : m_requests)
        Cancel(request);
    m_requests.clear();
}

CGetHostRequestData* CVaskSocketWnd::Find(HANDLE request) const {
    const auto found = m_requests.find(request);
    return found != m_requests.end() ? found->second.get() : nullptr;
}

int CVaskSocketWnd::Cancel(HANDLE request) {
    if (Find(request) == nullptr)
        return WSAEINVAL;
    if (::WSACancelAsyncRequest(request) != 0)
        return ::WSAGetLastError();
    ::KillTimer(m_hWnd, TimerOf(request));
    return 0;
}

int CVaskSocketWnd::AsyncGetHostByName(const WCHAR* name, HANDLE completionEvent, UINT timeOut,
                                       HANDLE& request) {
    request = nullptr;
    if (!::IsWindow(m_hWnd) || completionEvent == nullptr || name == nullptr)
        return WSAEINVAL;
    const CStringA narrow(name);
    auto data = std::make_shared<CGetHostRequestData>();
    data->SetCompletionEvent(completionEvent);
    // Locked until the request is in the map: its answer may arrive before.
    const std::lock_guard lock(m_lock);
    const HANDLE started = ::WSAAsyncGetHostByName(m_hWnd, kHostFound, narrow, data->GetBuffer(),
                                                   data->GetBufferLength());
    if (started == nullptr)
        return ::WSAGetLastError();
    m_unanswered.emplace_back(started, data);
    if (m_unanswered.size() > kMaxUnanswered)
        m_unanswered.pop_front();
    m_requests.insert_or_assign(started, std::move(data));
    request = started;
    if (timeOut != 0)
        ::SetTimer(m_hWnd, TimerOf(started), timeOut, nullptr);
    return 0;
}

int CVaskSocketWnd::GetLastError(HANDLE request) const {
    const std::lock_guard lock(m_lock);
    const CGetHostRequestData* const data = Find(request);
    return data != nullptr ? data->GetLastError() : WSAEINVAL;
}

BOOL CVaskSocketWnd::GetIPAddress(HANDLE request, CString& address) const {
    const std::lock_guard lock(m_lock);
    const CGetHostRequestData* const data = Find(request);
    return data != nullptr && data->GetIPAddress(address);
}

int CVaskSocketWnd::CancelAsyncRequest(HANDLE request, BOOL remove) {
    const std::lock_guard lock(m_lock);
    const int error = Cancel(request);
    if (error == 0 && remove)
        m_requests.erase(request);
    return error;
}

BOOL CVaskSocketWnd::RemoveGetHostRequest(HANDLE request) {
    const std::lock_guard lock(m_lock);
    Cancel(request); // otherwise a buffer is written after it was freed
    return m_requests.erase(request) != 0;
}

// A request ends once; later events do not change its result.
void CVaskSocketWnd::Finish(CGetHostRequestData& data, int error) {
    if (::WaitForSingleObject(data.GetCompletionEvent(), 0) == WAIT_OBJECT_0)
        return;
    data.SetLastError(error);
    ::SetEvent(data.GetCompletionEvent());
}

LRESULT CVaskSocketWnd::OnWSAAsyncGetHostByName(WPARAM wParam, LPARAM lParam) {
    ::KillTimer(m_hWnd, wParam);
    const std::lock_guard lock(m_lock);
    const HANDLE request = reinterpret_cast<HANDLE>(wParam);
    std::erase_if(m_unanswered, [request](const auto& each) { return each.first == request; });
    CGetHostRequestData* const data = Find(request);
    if (data != nullptr) // null when the request was removed before its message came
        Finish(*data, WSAGETASYNCERROR(lParam));
    return 0;
}

void CVaskSocketWnd::OnTimer(UINT id) {
    ::KillTimer(m_hWnd, id);
    {
        const std::lock_guard lock(m_lock);
        const HANDLE request = reinterpret_cast<HANDLE>(UINT_PTR{id});
        CGetHostRequestData* const data = Find(request);
        if (data != nullptr &&
            ::WaitForSingleObject(data->GetCompletionEvent(), 0) != WAIT_OBJECT_0 &&
            Cancel(request) == 0)
            Finish(*data, WSAETIMEDOUT);
    }
    Default();
}
