// Windows without a screen: classes, creation and destruction, direct messages, window words, the
// creation hook. They have messages and text, but no size, position, painting or input, nor
// messages for these. quorvel/platform/linux_api.h has the functions that hosts also call.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// Returns the length written; cuts the name to `size` - 1 characters. 0 with 122 for a size of 0.
int GetClassNameW(HWND window, LPWSTR name, int size);
int GetDlgCtrlID(HWND window);
// The parent of a child, the owner of a pop-up window, null otherwise.
HWND GetParent(HWND window);

// Supports WH_CBT on the calling thread with the event HCBT_CREATEWND only; 87 for anything else. A
// procedure may remove its own hook. The newest hook is called first.
HHOOK SetWindowsHookExW(int kind, HOOKPROC procedure, HINSTANCE module, DWORD thread);
BOOL UnhookWindowsHookEx(HHOOK hook);
LRESULT CallNextHookEx(HHOOK hook, int code, WPARAM wParam, LPARAM lParam);

} // namespace quorvel::win32
