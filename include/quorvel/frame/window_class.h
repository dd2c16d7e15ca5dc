// Tests whether a window is of a certain class.
//
// FALSE for a window that does not exist, a null class name and a null object. Letter case is
// ignored. At most 99 characters of the window's class name are compared. Any thread; use a CWnd
// object on one thread at a time.
#pragma once

#include <quorvel/platform/platform.h>

class CWnd;

// Whether the class has this name.
QUORVEL_API BOOL AfxIsSystemClass(HWND window, const WCHAR* className);
QUORVEL_API BOOL AfxIsSystemClass(CWnd* wnd, const WCHAR* className);

// The class is named at the function with a handle; the other form tests the object's window.
QUORVEL_API BOOL AfxIsButton(HWND window); // "Button"
QUORVEL_API BOOL AfxIsButton(CWnd* wnd);
QUORVEL_API BOOL AfxIsComboBox(HWND window); // "ComboBox"
QUORVEL_API BOOL AfxIsComboBox(CWnd* wnd);
QUORVEL_API BOOL AfxIsEdit(HWND window); // "Edit"
QUORVEL_API BOOL AfxIsEdit(CWnd* wnd);
QUORVEL_API BOOL AfxIsListBox(HWND window); // "ListBox"
QUORVEL_API BOOL AfxIsListBox(CWnd* wnd);
QUORVEL_API BOOL AfxIsMDIClient(HWND window); // "MDIClient"
QUORVEL_API BOOL AfxIsMDIClient(CWnd* wnd);
QUORVEL_API BOOL AfxIsScrollBar(HWND window); // "ScrollBar"
QUORVEL_API BOOL AfxIsScrollBar(CWnd* wnd);
QUORVEL_API BOOL AfxIsStatic(HWND window); // "Static"
QUORVEL_API BOOL AfxIsStatic(CWnd* wnd);

// The class is named at the function with a handle; the other form tests the object's window.
QUORVEL_API BOOL AfxIsComboLBox(HWND window); // "ComboLBox", the list of a combo box
QUORVEL_API BOOL AfxIsComboLBox(CWnd* wnd);
QUORVEL_API BOOL AfxIsDDEMLEvent(HWND window); // "DDEMLEvent"
QUORVEL_API BOOL AfxIsDDEMLEvent(CWnd* wnd);
QUORVEL_API BOOL AfxIsMessage(HWND window); // "Message", a message-only window's parent
QUORVEL_API BOOL AfxIsMessage(CWnd* wnd);
QUORVEL_API BOOL AfxIsMenu(HWND window); // "#32768"
QUORVEL_API BOOL AfxIsMenu(CWnd* wnd);
QUORVEL_API BOOL AfxIsDesktopWindow(HWND window); // "#32769"
QUORVEL_API BOOL AfxIsDesktopWindow(CWnd* wnd);
QUORVEL_API BOOL AfxIsDialogBox(HWND window); // "#32770"
QUORVEL_API BOOL AfxIsDialogBox(CWnd* wnd);
QUORVEL_API BOOL AfxIsTaskSwitchWindow(HWND window); // "#32771"
QUORVEL_API BOOL AfxIsTaskSwitchWindow(CWnd* wnd);
QUORVEL_API BOOL AfxIsIconTitle(HWND window); // "#32772"
QUORVEL_API BOOL AfxIsIconTitle(CWnd* wnd);
