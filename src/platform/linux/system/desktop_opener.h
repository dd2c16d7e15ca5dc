// Opening files and addresses with the program that the user has for them.
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

// Hands the file, which may be an address with a scheme, to xdg-open, without a shell, and waits up
// to five seconds for its answer; an xdg-open that runs on counts as a success. A relative name is
// looked for in the directory. FALSE with the last error set: 87 for an empty name and a text that
// is not UTF-16, 2 for a missing file, 50 for a verb or for parameters, 1155 when there is no
// xdg-open or no program for the file, 31 when that failed.
BOOL ShellExecuteExW(SHELLEXECUTEINFOW* info);

} // namespace quorvel::win32
