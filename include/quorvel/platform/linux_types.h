// The Windows types that public signatures use, for Linux. The constants are in linux_constants.h,
// which this header includes at its end.
//
// Widths are those of 32-bit and 64-bit Windows: LONG, DWORD and UINT always have 32 bits. Handles
// are opaque pointers of distinct types.
#pragma once

#include <quorvel/platform/export.h>

#include <cstddef>
#include <cstdint>

typedef int BOOL;
typedef unsigned char BYTE;
typedef std::uint16_t WORD;
typedef std::uint32_t DWORD;
typedef std::int32_t LONG;
typedef std::uint32_t ULONG;
typedef int INT;
typedef unsigned int UINT;
typedef short SHORT;
typedef unsigned short USHORT;
typedef long long LONGLONG;
typedef unsigned long long ULONGLONG;
typedef std::intptr_t INT_PTR;
typedef std::uintptr_t UINT_PTR;
typedef std::intptr_t LONG_PTR;
typedef std::uintptr_t ULONG_PTR;
typedef std::uintptr_t DWORD_PTR;
typedef std::size_t SIZE_T;
#ifndef __int64
typedef long long __int64; // the 64-bit integer's name in public signatures
#endif
typedef char CHAR;
typedef unsigned char UCHAR;
typedef char16_t WCHAR;
typedef WCHAR TCHAR; // the character type of _T("...")
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef WCHAR* LPWSTR;
typedef const WCHAR* LPCWSTR;
typedef TCHAR* LPTSTR;
typedef const TCHAR* LPCTSTR;
typedef void* LPVOID;
typedef const void* LPCVOID;
typedef BYTE* LPBYTE;
typedef DWORD* LPDWORD;
typedef BOOL* LPBOOL;
typedef BOOL* PBOOL;
typedef UINT* PUINT;
typedef WORD LANGID;
typedef DWORD LCID;
typedef DWORD LCTYPE;
typedef WORD ATOM;
typedef DWORD COLORREF;
typedef UINT_PTR WPARAM;
typedef LONG_PTR LPARAM;
typedef LONG_PTR LRESULT;

typedef void* HANDLE;
struct HINSTANCE__;
typedef HINSTANCE__* HINSTANCE;
typedef HINSTANCE HMODULE;
struct HRSRC__;
typedef HRSRC__* HRSRC;
typedef HANDLE HGLOBAL;
typedef HANDLE HLOCAL;
struct HKEY__;
typedef HKEY__* HKEY;
typedef DWORD REGSAM;
typedef LONG LSTATUS;
struct HWND__;
typedef HWND__* HWND;
struct HMENU__;
typedef HMENU__* HMENU;
struct HICON__;
typedef HICON__* HICON;
typedef HICON HCURSOR;
struct HBRUSH__;
typedef HBRUSH__* HBRUSH;
struct HHOOK__;
typedef HHOOK__* HHOOK;

// Only what cannot be a constant is a macro here: empty ones, token pasting, and casts to
// pointers.
#ifndef WINAPI
#define WINAPI
#endif
#ifndef CALLBACK
#define CALLBACK
#endif
#undef _T
#define _T(text) u##text
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-1)))
#define MAKEINTRESOURCEW(id)                                                                       \
    (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(id))))

struct GUID {
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
};
struct POINT {
    LONG x;
    LONG y;
};
struct SIZE {
    LONG cx;
    LONG cy;
};
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
struct SYSTEMTIME {
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};
struct TIME_ZONE_INFORMATION {
    LONG Bias; // minutes: UTC = local time + bias
    WCHAR StandardName[32];
    SYSTEMTIME StandardDate;
    LONG StandardBias;
    WCHAR DaylightName[32];
    SYSTEMTIME DaylightDate;
    LONG DaylightBias;
};

union LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
};
struct SECURITY_ATTRIBUTES; // never defined: only null is accepted
struct OVERLAPPED;

// The registry. On 64 bits the value of a root key is sign-extended, as on Windows.
#define QUORVEL_REGISTRY_ROOT(number)                                                              \
    (reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(number))))
#define HKEY_CLASSES_ROOT QUORVEL_REGISTRY_ROOT(0x80000000u)
#define HKEY_CURRENT_USER QUORVEL_REGISTRY_ROOT(0x80000001u)
#define HKEY_LOCAL_MACHINE QUORVEL_REGISTRY_ROOT(0x80000002u)
#define HKEY_USERS QUORVEL_REGISTRY_ROOT(0x80000003u)
#define HKEY_PERFORMANCE_DATA QUORVEL_REGISTRY_ROOT(0x80000004u)
#define HKEY_CURRENT_CONFIG QUORVEL_REGISTRY_ROOT(0x80000005u)
#define HKEY_DYN_DATA QUORVEL_REGISTRY_ROOT(0x80000006u)
#define HKEY_PERFORMANCE_TEXT QUORVEL_REGISTRY_ROOT(0x80000050u)
#define HKEY_PERFORMANCE_NLSTEXT QUORVEL_REGISTRY_ROOT(0x80000060u)

// Events, threads and waits.
typedef DWORD(WINAPI* LPTHREAD_START_ROUTINE)(LPVOID);

// Modules.
#define RT_MENU MAKEINTRESOURCEW(4)
#define RT_STRING MAKEINTRESOURCEW(6)
#define RT_ACCELERATOR MAKEINTRESOURCEW(9)
#define RT_RCDATA MAKEINTRESOURCEW(10)
#define RT_VERSION MAKEINTRESOURCEW(16)

// Version resources.
struct VS_FIXEDFILEINFO {
    DWORD dwSignature;
    DWORD dwStrucVersion;
    DWORD dwFileVersionMS;
    DWORD dwFileVersionLS;
    DWORD dwProductVersionMS;
    DWORD dwProductVersionLS;
    DWORD dwFileFlagsMask;
    DWORD dwFileFlags;
    DWORD dwFileOS;
    DWORD dwFileType;
    DWORD dwFileSubtype;
    DWORD dwFileDateMS;
    DWORD dwFileDateLS;
};

// The system's version.
struct OSVERSIONINFOW {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
};
struct OSVERSIONINFOEXW {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
    WORD wServicePackMajor;
    WORD wServicePackMinor;
    WORD wSuiteMask;
    BYTE wProductType;
    BYTE wReserved;
};
struct NUMBERFMTW {
    UINT NumDigits;
    UINT LeadingZero;
    UINT Grouping;
    LPWSTR lpDecimalSep;
    LPWSTR lpThousandSep;
    UINT NegativeOrder;
};

// Accelerators: a key and the command that it invokes.
struct ACCEL {
    BYTE fVirt; // FVIRTKEY, FSHIFT, FCONTROL, FALT
    WORD key;   // a virtual-key code, without FVIRTKEY a character
    WORD cmd;
};
struct HACCEL__;
typedef HACCEL__* HACCEL;

typedef RECT* LPRECT;
typedef const RECT* LPCRECT;

// Windows: classes, creation, messages, creation hooks.
typedef LRESULT(CALLBACK* WNDPROC)(HWND, UINT, WPARAM, LPARAM);
typedef LRESULT(CALLBACK* HOOKPROC)(int, WPARAM, LPARAM);
struct WNDCLASSEXW {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
    HICON hIconSm;
};
struct CREATESTRUCTW {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
};
struct CBT_CREATEWNDW {
    CREATESTRUCTW* lpcs;
    HWND hwndInsertAfter;
};
struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time; // milliseconds, from an arbitrary start
    POINT pt;   // always 0, 0
};
typedef void(CALLBACK* TIMERPROC)(HWND, UINT, UINT_PTR, DWORD);
struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

#include <quorvel/platform/linux_constants.h>
