// The platform's types and constants.
//
// On Windows this is the SDK, without the macros that would rename members of our classes. On Linux
// it declares the part that public signatures use, with the same names, widths and values, and, in
// namespace quorvel::win32, the operations that a host needs with them (linux_api.h).
//
// Include it before other headers of the library; headers of the system or of other libraries may
// come before or after it. Text is UTF-16 on both systems: WCHAR is wchar_t on Windows and char16_t
// on Linux, and _T("...") is a literal of it. TCHAR is WCHAR; on Windows this requires UNICODE,
// which the CMake package defines.
#pragma once

#include <quorvel/platform/export.h>

#if defined(_WIN32)

#ifndef NOMINMAX
#define NOMINMAX
#endif
// A host may have included <windows.h>, which includes the first Winsock. winsock2.h then adds the
// second and only warns if this macro is defined; it defines the macro again.
#ifndef _WINSOCK2API_
#undef _WINSOCKAPI_
#endif
// clang-format off: each of these needs those above it
#include <winsock2.h>
#include <windows.h>
#include <commctrl.h>
#include <tchar.h>
// clang-format on

// Members have these names. The SDK's macros would rename them in some translation units only.
#undef AppendMenu
#undef CreateFont
#undef CreateFontIndirect
#undef DefWindowProc
#undef DrawText
#undef ExtTextOut
#undef FormatMessage
#undef GetClassName
#undef GetCurrentTime
#undef GetDlgItemText
#undef GetMenuItemInfo
#undef GetMenuString
#undef GetMessage
#undef GetObject
#undef GetProfileInt
#undef GetProfileString
#undef GetTextMetrics
#undef GetWindowText
#undef GetWindowTextLength
#undef InsertMenu
#undef InsertMenuItem
#undef LoadBitmap
#undef LoadCursor
#undef LoadIcon
#undef LoadMenu
#undef LoadString
#undef MessageBox
#undef ModifyMenu
#undef PostMessage
#undef SendDlgItemMessage
#undef SendMessage
#undef SetDlgItemText
#undef SetMenuItemInfo
#undef SetWindowText
#undef TextOut
#undef WriteProfileString

// Our literals are wide in every translation unit, whatever the host defines.
#undef _T
#define _T(text) L##text

namespace quorvel::win32 {} // namespace quorvel::win32

#else

#include <quorvel/platform/linux_api.h>
#include <quorvel/platform/linux_types.h>

#endif
