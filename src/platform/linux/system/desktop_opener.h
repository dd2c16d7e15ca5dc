// Opens files and addresses with the user's program for them.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

inline constexpr ULONG SEE_MASK_NOASYNC = 0x00000100;
inline constexpr ULONG SEE_MASK_FLAG_NO_UI = 0x00000400;
inline constexpr int SW_SHOWNORMAL = 1;

struct SHELLEXECUTEINFOW {
    DWORD cbSize;
    ULONG fMask;
    HWND hwnd;
    LPCWSTR lpVerb;
    LPCWSTR lpFile;
    LPCWSTR lpParameters;
    LPCWSTR lpDirectory;
    int nShow;
    HINSTANCE hInstApp;
};

// Passes the file, or an address with a scheme, to xdg-open without a shell and waits up to five
// seconds for its result. An xdg-open that is still running counts as a success. A relative name is
// searched in the directory. Returns FALSE with the last error set: 87 for an empty name and for
// text that is not UTF-16, 2 for a missing file, 50 for a verb or parameters, 1155 when xdg-open or
// a program for the file is missing, 31 when that program failed.
BOOL ShellExecuteExW(SHELLEXECUTEINFOW* info);

} // namespace quorvel::win32
