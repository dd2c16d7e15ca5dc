// Windows without a screen: classes, creation and destruction, direct messages, window words, and
// the creation hook. They carry messages and text; size, position, painting and input do not exist,
// and none of their messages is sent. quorvel/platform/linux_api.h has what hosts call too.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// The length written; the name is cut to `size` - 1 characters. 0 with 122 for a size of 0.
int GetClassNameW(HWND window, LPWSTR name, int size);
int GetDlgCtrlID(HWND window);
// The parent of a child, the owner of a pop-up window, otherwise null.
HWND GetParent(HWND window);

// WH_CBT on the calling thread alone, and of its events HCBT_CREATEWND alone; a procedure may
// release its own hook. The newest hook is called first. 87 for anything else.
HHOOK SetWindowsHookExW(int kind, HOOKPROC procedure, HINSTANCE module, DWORD thread);
BOOL UnhookWindowsHookEx(HHOOK hook);
LRESULT CallNextHookEx(HHOOK hook, int code, WPARAM wParam, LPARAM lParam);

} // namespace quorvel::win32
