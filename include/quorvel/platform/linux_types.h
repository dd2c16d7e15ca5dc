// The Windows types and constants that public signatures use, for Linux.
//
// Widths are those of 32-bit and 64-bit Windows: LONG, DWORD and UINT are 32 bits whatever the
// compiler's long is. Handles are opaque pointers of distinct types.
#pragma once

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
typedef long long __int64; // the 64-bit integer's name in public signatures
typedef char CHAR;
typedef unsigned char UCHAR;
typedef char16_t WCHAR;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef WCHAR* LPWSTR;
typedef const WCHAR* LPCWSTR;
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

#define WINAPI
#define CALLBACK
#define TRUE 1
#define FALSE 0
#define MAX_PATH 260
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-1)))
#define _T(text) u##text

#define LOWORD(value) (static_cast<WORD>(static_cast<DWORD_PTR>(value) & 0xffff))
#define HIWORD(value) (static_cast<WORD>((static_cast<DWORD_PTR>(value) >> 16) & 0xffff))
#define LOBYTE(value) (static_cast<BYTE>(static_cast<DWORD_PTR>(value) & 0xff))
#define HIBYTE(value) (static_cast<BYTE>((static_cast<DWORD_PTR>(value) >> 8) & 0xff))
#define MAKEWORD(low, high)                                                                        \
    (static_cast<WORD>(static_cast<BYTE>(low) | (static_cast<WORD>(static_cast<BYTE>(high)) << 8)))
#define MAKELONG(low, high)                                                                        \
    (static_cast<LONG>(static_cast<WORD>(low) |                                                    \
                       (static_cast<DWORD>(static_cast<WORD>(high)) << 16)))
#define MAKELPARAM(low, high) (static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKEWPARAM(low, high) (static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELANGID(primary, sub) (static_cast<WORD>(((sub) << 10) | (primary)))
#define PRIMARYLANGID(language) (static_cast<WORD>((language)&0x3ff))
#define SUBLANGID(language) (static_cast<WORD>((language) >> 10))
#define MAKELCID(language, sort)                                                                   \
    ((static_cast<DWORD>(static_cast<WORD>(sort)) << 16) | static_cast<WORD>(language))
#define MAKEINTRESOURCEW(id)                                                                       \
    (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(id))))
#define IS_INTRESOURCE(name) ((reinterpret_cast<ULONG_PTR>(name) >> 16) == 0)
#define LANG_NEUTRAL 0x00
#define SUBLANG_NEUTRAL 0x00
#define SUBLANG_DEFAULT 0x01
#define LOCALE_SYSTEM_DEFAULT 0x0800
#define LOCALE_USER_DEFAULT 0x0400
#define LOCALE_CUSTOM_DEFAULT 0x0c00
#define LCID_INSTALLED 0x00000001u
#define LCID_SUPPORTED 0x00000002u
#define LOCALE_NOUSEROVERRIDE 0x80000000u
#define LOCALE_SLANGUAGE 0x00000002u
#define LOCALE_SABBREVLANGNAME 0x00000003u
#define LOCALE_SNATIVELANGNAME 0x00000004u
#define LOCALE_SDECIMAL 0x0000000eu
#define LOCALE_STHOUSAND 0x0000000fu
#define LOCALE_SGROUPING 0x00000010u
#define LOCALE_IDIGITS 0x00000011u
#define LOCALE_ILZERO 0x00000012u
#define LOCALE_STIME 0x0000001eu
#define LOCALE_SENGLANGUAGE 0x00001001u
#define LOCALE_INEGNUMBER 0x00001010u
#define DATE_SHORTDATE 0x00000001u
#define DATE_LONGDATE 0x00000002u
#define TIME_NOSECONDS 0x00000002u

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
    LONG Bias; // minutes: UTC is local time and the bias
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
struct SECURITY_ATTRIBUTES; // never defined: only null pointers are taken
struct OVERLAPPED;

// Files and handles.
#define DELETE 0x00010000u
#define GENERIC_READ 0x80000000u
#define GENERIC_WRITE 0x40000000u
#define FILE_SHARE_READ 0x00000001u
#define FILE_SHARE_WRITE 0x00000002u
#define FILE_SHARE_DELETE 0x00000004u
#define CREATE_NEW 1u
#define CREATE_ALWAYS 2u
#define OPEN_EXISTING 3u
#define OPEN_ALWAYS 4u
#define TRUNCATE_EXISTING 5u
#define FILE_ATTRIBUTE_READONLY 0x00000001u
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010u
#define FILE_ATTRIBUTE_ARCHIVE 0x00000020u
#define FILE_ATTRIBUTE_NORMAL 0x00000080u
#define INVALID_FILE_ATTRIBUTES 0xffffffffu
#define FILE_FLAG_SEQUENTIAL_SCAN 0x08000000u
#define FILE_BEGIN 0u
#define FILE_CURRENT 1u
#define FILE_END 2u
#define FILE_TYPE_UNKNOWN 0u
#define FILE_TYPE_DISK 1u
#define FILE_TYPE_CHAR 2u
#define FILE_TYPE_PIPE 3u
#define MOVEFILE_REPLACE_EXISTING 0x00000001u
#define MOVEFILE_COPY_ALLOWED 0x00000002u
#define DUPLICATE_SAME_ACCESS 0x00000002u

// The registry. The value of a root is extended by its sign on 64 bits, as on Windows.
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
#define KEY_QUERY_VALUE 0x0001u
#define KEY_SET_VALUE 0x0002u
#define KEY_CREATE_SUB_KEY 0x0004u
#define KEY_ENUMERATE_SUB_KEYS 0x0008u
#define KEY_READ 0x00020019u
#define KEY_WRITE 0x00020006u
#define KEY_ALL_ACCESS 0x000f003fu
#define MAXIMUM_ALLOWED 0x02000000u
#define REG_OPTION_NON_VOLATILE 0u
#define REG_CREATED_NEW_KEY 1u
#define REG_OPENED_EXISTING_KEY 2u
#define REG_NONE 0u
#define REG_SZ 1u
#define REG_EXPAND_SZ 2u
#define REG_BINARY 3u
#define REG_DWORD 4u
#define REG_DWORD_BIG_ENDIAN 5u
#define REG_LINK 6u
#define REG_MULTI_SZ 7u
#define REG_QWORD 11u

// Events, threads and waits.
typedef DWORD(WINAPI* LPTHREAD_START_ROUTINE)(LPVOID);
#define INFINITE 0xffffffffu
#define WAIT_OBJECT_0 0u
#define WAIT_TIMEOUT 258u
#define WAIT_FAILED 0xffffffffu
#define CREATE_SUSPENDED 0x00000004u
#define STILL_ACTIVE 259u
#define THREAD_PRIORITY_NORMAL 0

// Modules.
#define LOAD_LIBRARY_AS_DATAFILE 0x00000002u
#define LOAD_LIBRARY_AS_IMAGE_RESOURCE 0x00000020u
#define RT_STRING MAKEINTRESOURCEW(6)
#define RT_RCDATA MAKEINTRESOURCEW(10)
#define RT_VERSION MAKEINTRESOURCEW(16)

// Version resources.
#define VS_FFI_SIGNATURE 0xfeef04bdu
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
#define VER_PLATFORM_WIN32s 0u
#define VER_PLATFORM_WIN32_WINDOWS 1u
#define VER_PLATFORM_WIN32_NT 2u
#define VER_NT_WORKSTATION 0x01
#define VER_NT_DOMAIN_CONTROLLER 0x02
#define VER_NT_SERVER 0x03
#define VER_SUITE_ENTERPRISE 0x00000002
#define VER_SUITE_DATACENTER 0x00000080
#define VER_SUITE_PERSONAL 0x00000200
#define VER_SUITE_BLADE 0x00000400
#define PROCESSOR_ARCHITECTURE_INTEL 0
#define PROCESSOR_ARCHITECTURE_IA64 6
#define PROCESSOR_ARCHITECTURE_AMD64 9
#define SM_SERVERR2 89
struct NUMBERFMTW {
    UINT NumDigits;
    UINT LeadingZero;
    UINT Grouping;
    LPWSTR lpDecimalSep;
    LPWSTR lpThousandSep;
    UINT NegativeOrder;
};

// Message boxes: buttons, icons, defaults, results.
#define MB_OK 0x00000000u
#define MB_OKCANCEL 0x00000001u
#define MB_ABORTRETRYIGNORE 0x00000002u
#define MB_YESNOCANCEL 0x00000003u
#define MB_YESNO 0x00000004u
#define MB_RETRYCANCEL 0x00000005u
#define MB_CANCELTRYCONTINUE 0x00000006u
#define MB_TYPEMASK 0x0000000fu
#define MB_ICONHAND 0x00000010u
#define MB_ICONSTOP MB_ICONHAND
#define MB_ICONERROR MB_ICONHAND
#define MB_ICONQUESTION 0x00000020u
#define MB_ICONEXCLAMATION 0x00000030u
#define MB_ICONWARNING MB_ICONEXCLAMATION
#define MB_ICONASTERISK 0x00000040u
#define MB_ICONINFORMATION MB_ICONASTERISK
#define MB_ICONMASK 0x000000f0u
#define MB_DEFBUTTON1 0x00000000u
#define MB_DEFBUTTON2 0x00000100u
#define MB_DEFBUTTON3 0x00000200u
#define MB_DEFBUTTON4 0x00000300u
#define MB_DEFMASK 0x00000f00u
#define MB_HELP 0x00004000u
#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDCLOSE 8
#define IDHELP 9
#define IDTRYAGAIN 10
#define IDCONTINUE 11

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
#define WM_CREATE 0x0001u
#define WM_DESTROY 0x0002u
#define WM_SETTEXT 0x000cu
#define WM_GETTEXT 0x000du
#define WM_GETTEXTLENGTH 0x000eu
#define WM_PAINT 0x000fu
#define WM_CLOSE 0x0010u
#define WM_QUIT 0x0012u
#define WM_NOTIFY 0x004eu
#define WM_NCCREATE 0x0081u
#define WM_NCDESTROY 0x0082u
#define WM_COMMAND 0x0111u
#define WM_TIMER 0x0113u
#define WM_USER 0x0400u
#define WM_APP 0x8000u
#define PM_NOREMOVE 0x0000u
#define PM_REMOVE 0x0001u
#define QS_ALLINPUT 0x04ffu
#define USER_TIMER_MINIMUM 0x0000000au
#define WS_OVERLAPPED 0x00000000u
#define WS_POPUP 0x80000000u
#define WS_CHILD 0x40000000u
#define WS_VISIBLE 0x10000000u
#define GWLP_WNDPROC (-4)
#define GWLP_ID (-12)
#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define GWLP_USERDATA (-21)
#define WH_CBT 5
#define HCBT_CREATEWND 3
#define BN_CLICKED 0

// Code pages and conversion flags.
#define CP_ACP 0u
#define CP_OEMCP 1u
#define CP_MACCP 2u
#define CP_THREAD_ACP 3u
#define CP_UTF7 65000u
#define CP_UTF8 65001u
#define MB_PRECOMPOSED 0x00000001u
#define MB_COMPOSITE 0x00000002u
#define MB_USEGLYPHCHARS 0x00000004u
#define MB_ERR_INVALID_CHARS 0x00000008u
#define WC_NO_BEST_FIT_CHARS 0x00000400u
#define WC_ERR_INVALID_CHARS 0x00000080u

// The message formatter.
#define FORMAT_MESSAGE_ALLOCATE_BUFFER 0x00000100u
#define FORMAT_MESSAGE_IGNORE_INSERTS 0x00000200u
#define FORMAT_MESSAGE_FROM_STRING 0x00000400u
#define FORMAT_MESSAGE_FROM_SYSTEM 0x00001000u
#define FORMAT_MESSAGE_ARGUMENT_ARRAY 0x00002000u
#define FORMAT_MESSAGE_MAX_WIDTH_MASK 0x000000ffu

// System error codes.
#define ERROR_SUCCESS 0u
#define NO_ERROR 0u
#define ERROR_INVALID_FUNCTION 1u
#define ERROR_FILE_NOT_FOUND 2u
#define ERROR_PATH_NOT_FOUND 3u
#define ERROR_TOO_MANY_OPEN_FILES 4u
#define ERROR_ACCESS_DENIED 5u
#define ERROR_INVALID_HANDLE 6u
#define ERROR_NOT_ENOUGH_MEMORY 8u
#define ERROR_BAD_FORMAT 11u
#define ERROR_INVALID_ACCESS 12u
#define ERROR_INVALID_DATA 13u
#define ERROR_OUTOFMEMORY 14u
#define ERROR_INVALID_DRIVE 15u
#define ERROR_CURRENT_DIRECTORY 16u
#define ERROR_NOT_SAME_DEVICE 17u
#define ERROR_NO_MORE_FILES 18u
#define ERROR_WRITE_PROTECT 19u
#define ERROR_NOT_READY 21u
#define ERROR_CRC 23u
#define ERROR_SEEK 25u
#define ERROR_WRITE_FAULT 29u
#define ERROR_READ_FAULT 30u
#define ERROR_GEN_FAILURE 31u
#define ERROR_SHARING_VIOLATION 32u
#define ERROR_LOCK_VIOLATION 33u
#define ERROR_HANDLE_EOF 38u
#define ERROR_HANDLE_DISK_FULL 39u
#define ERROR_NOT_SUPPORTED 50u
#define ERROR_FILE_EXISTS 80u
#define ERROR_CANNOT_MAKE 82u
#define ERROR_INVALID_PARAMETER 87u
#define ERROR_BROKEN_PIPE 109u
#define ERROR_BUFFER_OVERFLOW 111u
#define ERROR_DISK_FULL 112u
#define ERROR_CALL_NOT_IMPLEMENTED 120u
#define ERROR_INSUFFICIENT_BUFFER 122u
#define ERROR_INVALID_NAME 123u
#define ERROR_MOD_NOT_FOUND 126u
#define ERROR_PROC_NOT_FOUND 127u
#define ERROR_NEGATIVE_SEEK 131u
#define ERROR_SEEK_ON_DEVICE 132u
#define ERROR_DIR_NOT_EMPTY 145u
#define ERROR_BAD_ARGUMENTS 160u
#define ERROR_BAD_PATHNAME 161u
#define ERROR_BUSY 170u
#define ERROR_ALREADY_EXISTS 183u
#define ERROR_BAD_EXE_FORMAT 193u
#define ERROR_FILENAME_EXCED_RANGE 206u
#define ERROR_FILE_TOO_LARGE 223u
#define ERROR_NO_DATA 232u
#define ERROR_MORE_DATA 234u
#define ERROR_NO_WORK_DONE 235u
#define ERROR_NO_MORE_ITEMS 259u
#define ERROR_DIRECTORY 267u
#define ERROR_MR_MID_NOT_FOUND 317u
#define ERROR_NOACCESS 998u
#define ERROR_INVALID_FLAGS 1004u
#define ERROR_FILE_INVALID 1006u
#define ERROR_BADDB 1009u
#define ERROR_REGISTRY_CORRUPT 1015u
#define ERROR_REGISTRY_IO_FAILED 1016u
#define ERROR_KEY_DELETED 1018u
#define ERROR_NO_UNICODE_TRANSLATION 1113u
#define ERROR_IO_DEVICE 1117u
#define ERROR_NO_MORE_USER_HANDLES 1158u
#define ERROR_MESSAGE_SYNC_ONLY 1159u
#define ERROR_REVISION_MISMATCH 1306u
#define ERROR_INVALID_WINDOW_HANDLE 1400u
#define ERROR_INVALID_HOOK_HANDLE 1404u
#define ERROR_TLW_WITH_WSCHILD 1406u
#define ERROR_CANNOT_FIND_WND_CLASS 1407u
#define ERROR_CLASS_ALREADY_EXISTS 1410u
#define ERROR_CLASS_DOES_NOT_EXIST 1411u
#define ERROR_CLASS_HAS_WINDOWS 1412u
#define ERROR_INVALID_INDEX 1413u
#define ERROR_INVALID_MSGBOX_STYLE 1438u
#define ERROR_NO_SYSTEM_RESOURCES 1450u
#define ERROR_RESOURCE_DATA_NOT_FOUND 1812u
#define ERROR_RESOURCE_TYPE_NOT_FOUND 1813u
#define ERROR_RESOURCE_NAME_NOT_FOUND 1814u
#define ERROR_RESOURCE_LANG_NOT_FOUND 1815u
#define ERROR_NOT_ENOUGH_QUOTA 1816u
#define ERROR_CANT_RESOLVE_FILENAME 1921u
