#include <quorvel/frame/window_class.h>

#include <quorvel/framework/wnd.h>

#include "platform/case_fold.h"
#include "platform/win32.h"

#include <string_view>

BOOL AfxIsSystemClass(HWND window, const WCHAR* className) {
    if (!IsWindow(window) || !AfxIsValidString(className))
        return FALSE;
    WCHAR buffer[100];
    const int length = GetClassNameW(window, buffer, static_cast<int>(std::size(buffer)));
    const std::basic_string_view<WCHAR> actual(buffer, static_cast<std::size_t>(length));
    return length > 0 && quorvel::EqualIgnoringCase(actual, className);
}

BOOL AfxIsSystemClass(CWnd* wnd, const WCHAR* className) {
    return wnd != nullptr && AfxIsSystemClass(wnd->m_hWnd, className);
}

#define QUORVEL_WINDOW_CLASS(function, className)                                                  \
    BOOL function(HWND window) {                                                                   \
        return AfxIsSystemClass(window, className);                                                \
    }                                                                                              \
    BOOL function(CWnd* wnd) {                                                                     \
        return AfxIsSystemClass(wnd, className);                                                   \
    }

QUORVEL_WINDOW_CLASS(AfxIsButton, _T("Button"))
QUORVEL_WINDOW_CLASS(AfxIsComboBox, _T("ComboBox"))
QUORVEL_WINDOW_CLASS(AfxIsEdit, _T("Edit"))
QUORVEL_WINDOW_CLASS(AfxIsListBox, _T("ListBox"))
QUORVEL_WINDOW_CLASS(AfxIsMDIClient, _T("MDIClient"))
QUORVEL_WINDOW_CLASS(AfxIsScrollBar, _T("ScrollBar"))
QUORVEL_WINDOW_CLASS(AfxIsStatic, _T("Static"))
QUORVEL_WINDOW_CLASS(AfxIsComboLBox, _T("ComboLBox"))
QUORVEL_WINDOW_CLASS(AfxIsDDEMLEvent, _T("DDEMLEvent"))
QUORVEL_WINDOW_CLASS(AfxIsMessage, _T("Message"))
QUORVEL_WINDOW_CLASS(AfxIsMenu, _T("#32768"))
QUORVEL_WINDOW_CLASS(AfxIsDesktopWindow, _T("#32769"))
QUORVEL_WINDOW_CLASS(AfxIsDialogBox, _T("#32770"))
QUORVEL_WINDOW_CLASS(AfxIsTaskSwitchWindow, _T("#32771"))
QUORVEL_WINDOW_CLASS(AfxIsIconTitle, _T("#32772"))
