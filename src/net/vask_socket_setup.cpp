// Sets up the sockets once for each process.
#include <quorvel/frame/message_box.h>
#include <quorvel/net/vask_socket.h>
#include <quorvel/net/winsock_error_text.h>
#include <quorvel/res/message_ids.h>

#include "platform/win32.h"

namespace {

constexpr UINT kBox = MB_OK | MB_ICONEXCLAMATION;

BOOL Report(UINT formatId, const CString& reason) {
    AfxFormatStringErrorMessageBox(formatId, kBox, formatId, reason.GetString());
    return FALSE;
}

BOOL RefuseInitialization(UINT reasonId) {
    CString reason;
    reason.LoadString(reasonId);
    return Report(quorvel::kTextErrorInitializingSockets, reason);
}

} // namespace

BOOL CVaskSocket::Initialize() {
    if (m_bInitialized)
        return RefuseInitialization(quorvel::kTextSocketsAlreadyInitialized);
    WSADATA data = {};
    const int error = ::WSAStartup(MAKEWORD(2, 0), &data);
    if (error != 0)
        return Report(quorvel::kTextErrorInitializingSockets,
                      AfxGetWinsockErrorText(static_cast<DWORD>(error)));
    UINT reasonId = 0;
    if (data.wVersion != MAKEWORD(2, 0))
        reasonId = quorvel::kTextSocketsVersionTooOld;
    else if (::IsWindow(m_wndSocket.m_hWnd))
        reasonId = quorvel::kTextSocketsSinkExists;
    else if (!m_wndSocket.Create())
        reasonId = quorvel::kTextSocketsSinkNotCreated;
    if (reasonId != 0) {
        RefuseInitialization(reasonId);
        ::WSACleanup();
        return FALSE;
    }
    m_bInitialized = TRUE;
    return TRUE;
}

BOOL CVaskSocket::Deinitialize() {
    if (m_bInitialized && ::WSACleanup() != 0)
        return Report(quorvel::kTextErrorDeinitializingSockets,
                      AfxGetWinsockErrorText(static_cast<DWORD>(::WSAGetLastError())));
    if (!::IsWindow(m_wndSocket.m_hWnd))
        return FALSE;
    m_bInitialized = FALSE;
    return m_wndSocket.DestroyWindow();
}
