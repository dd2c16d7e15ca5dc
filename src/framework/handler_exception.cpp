#include "framework/handler_exception.h"

#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>

#include "platform/win32.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace {

// A message box over a window that fails to draw makes it draw again, in an endless loop.
constexpr UINT kSilent[] = {
    WM_CREATE,          WM_PAINT,
#if defined(_WIN32)
    WM_NCPAINT,         WM_ERASEBKGND,  WM_DRAWITEM,    WM_CTLCOLORMSGBOX,    WM_CTLCOLOREDIT,
    WM_CTLCOLORLISTBOX, WM_CTLCOLORBTN, WM_CTLCOLORDLG, WM_CTLCOLORSCROLLBAR, WM_CTLCOLORSTATIC,
#endif
};

#if defined(_WIN32)
// The notifications that a list-view sends its parent while it draws.
constexpr UINT kSilentNotifications[] = {LVN_GETDISPINFOW, LVN_GETDISPINFOA, LVN_ODCACHEHINT,
                                         NM_CUSTOMDRAW};

bool IsSilentNotification(const MSG& message) {
    return message.message == WM_NOTIFY &&
           std::find(std::begin(kSilentNotifications), std::end(kSilentNotifications),
                     reinterpret_cast<const NMHDR*>(message.lParam)->code) !=
               std::end(kSilentNotifications);
}
#else
bool IsSilentNotification(const MSG&) {
    return false;
}
#endif

LRESULT Report(CException* exception, const MSG& message) {
    static thread_local bool t_reporting = false;
    struct Reporting {
        Reporting() { t_reporting = true; }
        ~Reporting() { t_reporting = false; }
    };
    if (t_reporting)
        return message.message == WM_CREATE ? -1 : 0;
    const Reporting reporting;
    CWinApp* const app = AfxGetApp();
    return app != nullptr ? app->ProcessWndProcException(exception, &message)
                          : quorvel::DefaultWndProcException(exception, &message);
}

} // namespace

namespace quorvel {

LRESULT DefaultWndProcException(CException* exception, const MSG* message) {
    const bool silent =
        std::find(std::begin(kSilent), std::end(kSilent), message->message) != std::end(kSilent) ||
        IsSilentNotification(*message) || exception->IsKindOf(RUNTIME_CLASS(CUserException));
    if (!silent)
        exception->ReportError(MB_OK | MB_ICONSTOP);
    if (message->message == WM_PAINT) // the system repeats WM_PAINT until the window is validated
        return ::DefWindowProcW(message->hwnd, message->message, message->wParam, message->lParam);
    return message->message == WM_CREATE ? -1 : 0;
}

LRESULT EndHandlerException(const MSG& message) noexcept {
    try {
        try {
            throw;
        } catch (CException* exception) {
            struct Owner {
                CException* const exception;
                ~Owner() { exception->Delete(); }
            } const owner{exception};
            return Report(exception, message);
        } catch (const std::bad_alloc&) {
            CMemoryException exception(FALSE);
            return Report(&exception, message);
        } catch (...) {
            CException unknown(FALSE);
            return Report(&unknown, message);
        }
    } catch (CException* exception) { // from reporting the error
        exception->Delete();
    } catch (...) {
        // Nothing more can be shown.
    }
    return message.message == WM_CREATE ? -1 : 0;
}

} // namespace quorvel
