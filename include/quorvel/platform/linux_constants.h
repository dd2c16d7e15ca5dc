// The Windows constants that public signatures use, for Linux, and as functions the word operations
// that are macros in the SDK.
//
// They are constants in a namespace; the directive at the end makes them visible without its name.
// So equal names of a host or another library do not hide ours and do not conflict: `enum class
// Method { DELETE }` compiles. If a known header has already defined a macro of that name, the
// macro stays.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

inline constexpr UINT DELETE = 0x00010000; // a word that hosts use: found by its namespace alone

inline namespace constants {

#ifndef TRUE
inline constexpr BOOL TRUE = 1;
#endif
#ifndef FALSE
inline constexpr BOOL FALSE = 0;
#endif
#ifndef MAX_PATH
inline constexpr int MAX_PATH = 260;
#endif

// Languages and locales.
inline constexpr int LANG_NEUTRAL = 0x00;
inline constexpr int SUBLANG_NEUTRAL = 0x00;
inline constexpr int SUBLANG_DEFAULT = 0x01;
inline constexpr int LOCALE_SYSTEM_DEFAULT = 0x0800;
inline constexpr int LOCALE_USER_DEFAULT = 0x0400;
inline constexpr int LOCALE_CUSTOM_DEFAULT = 0x0c00;
inline constexpr UINT LCID_INSTALLED = 0x00000001;
inline constexpr UINT LCID_SUPPORTED = 0x00000002;
inline constexpr UINT LOCALE_NOUSEROVERRIDE = 0x80000000;
inline constexpr UINT LOCALE_SLANGUAGE = 0x00000002;
inline constexpr UINT LOCALE_SABBREVLANGNAME = 0x00000003;
inline constexpr UINT LOCALE_SNATIVELANGNAME = 0x00000004;
inline constexpr UINT LOCALE_SDECIMAL = 0x0000000e;
inline constexpr UINT LOCALE_STHOUSAND = 0x0000000f;
inline constexpr UINT LOCALE_SGROUPING = 0x00000010;
inline constexpr UINT LOCALE_IDIGITS = 0x00000011;
inline constexpr UINT LOCALE_ILZERO = 0x00000012;
inline constexpr UINT LOCALE_STIME = 0x0000001e;
inline constexpr UINT LOCALE_SENGLANGUAGE = 0x00001001;
inline constexpr UINT LOCALE_INEGNUMBER = 0x00001010;
inline constexpr int CSTR_LESS_THAN = 1;
inline constexpr int CSTR_EQUAL = 2;
inline constexpr int CSTR_GREATER_THAN = 3;
inline constexpr UINT DATE_SHORTDATE = 0x00000001;
inline constexpr UINT DATE_LONGDATE = 0x00000002;
inline constexpr UINT TIME_NOSECONDS = 0x00000002;

// Files and handles.
inline constexpr UINT GENERIC_READ = 0x80000000;
inline constexpr UINT GENERIC_WRITE = 0x40000000;
inline constexpr UINT FILE_SHARE_READ = 0x00000001;
inline constexpr UINT FILE_SHARE_WRITE = 0x00000002;
inline constexpr UINT FILE_SHARE_DELETE = 0x00000004;
inline constexpr UINT CREATE_NEW = 1;
inline constexpr UINT CREATE_ALWAYS = 2;
inline constexpr UINT OPEN_EXISTING = 3;
inline constexpr UINT OPEN_ALWAYS = 4;
inline constexpr UINT TRUNCATE_EXISTING = 5;
inline constexpr UINT FILE_ATTRIBUTE_READONLY = 0x00000001;
inline constexpr UINT FILE_ATTRIBUTE_DIRECTORY = 0x00000010;
inline constexpr UINT FILE_ATTRIBUTE_ARCHIVE = 0x00000020;
inline constexpr UINT FILE_ATTRIBUTE_NORMAL = 0x00000080;
inline constexpr UINT INVALID_FILE_ATTRIBUTES = 0xffffffff;
inline constexpr UINT FILE_FLAG_SEQUENTIAL_SCAN = 0x08000000;
inline constexpr UINT FILE_BEGIN = 0;
inline constexpr UINT FILE_CURRENT = 1;
inline constexpr UINT FILE_END = 2;
inline constexpr UINT FILE_TYPE_UNKNOWN = 0;
inline constexpr UINT FILE_TYPE_DISK = 1;
inline constexpr UINT FILE_TYPE_CHAR = 2;
inline constexpr UINT FILE_TYPE_PIPE = 3;
inline constexpr UINT MOVEFILE_REPLACE_EXISTING = 0x00000001;
inline constexpr UINT MOVEFILE_COPY_ALLOWED = 0x00000002;
inline constexpr UINT DUPLICATE_SAME_ACCESS = 0x00000002;

// The registry.
inline constexpr UINT KEY_QUERY_VALUE = 0x0001;
inline constexpr UINT KEY_SET_VALUE = 0x0002;
inline constexpr UINT KEY_CREATE_SUB_KEY = 0x0004;
inline constexpr UINT KEY_ENUMERATE_SUB_KEYS = 0x0008;
inline constexpr UINT KEY_READ = 0x00020019;
inline constexpr UINT KEY_WRITE = 0x00020006;
inline constexpr UINT KEY_ALL_ACCESS = 0x000f003f;
inline constexpr UINT MAXIMUM_ALLOWED = 0x02000000;
inline constexpr UINT REG_OPTION_NON_VOLATILE = 0;
inline constexpr UINT REG_CREATED_NEW_KEY = 1;
inline constexpr UINT REG_OPENED_EXISTING_KEY = 2;
inline constexpr UINT REG_NONE = 0;
#ifndef REG_SZ
inline constexpr UINT REG_SZ = 1;
#endif
inline constexpr UINT REG_EXPAND_SZ = 2;
inline constexpr UINT REG_BINARY = 3;
inline constexpr UINT REG_DWORD = 4;
inline constexpr UINT REG_DWORD_BIG_ENDIAN = 5;
inline constexpr UINT REG_LINK = 6;
inline constexpr UINT REG_MULTI_SZ = 7;
inline constexpr UINT REG_QWORD = 11;

// Events, threads and waits.
#ifndef INFINITE
inline constexpr UINT INFINITE = 0xffffffff;
#endif
inline constexpr UINT WAIT_OBJECT_0 = 0;
inline constexpr UINT WAIT_TIMEOUT = 258;
inline constexpr UINT WAIT_FAILED = 0xffffffff;
inline constexpr UINT CREATE_SUSPENDED = 0x00000004;
inline constexpr UINT STILL_ACTIVE = 259;
inline constexpr int THREAD_PRIORITY_NORMAL = 0;

// Modules.
inline constexpr UINT LOAD_LIBRARY_AS_DATAFILE = 0x00000002;
inline constexpr UINT LOAD_LIBRARY_AS_IMAGE_RESOURCE = 0x00000020;

// Version resources.
inline constexpr UINT VS_FFI_SIGNATURE = 0xfeef04bd;

// The system's version.
inline constexpr UINT VER_PLATFORM_WIN32s = 0;
inline constexpr UINT VER_PLATFORM_WIN32_WINDOWS = 1;
inline constexpr UINT VER_PLATFORM_WIN32_NT = 2;
inline constexpr int VER_NT_WORKSTATION = 0x01;
inline constexpr int VER_NT_DOMAIN_CONTROLLER = 0x02;
inline constexpr int VER_NT_SERVER = 0x03;
inline constexpr int VER_SUITE_ENTERPRISE = 0x00000002;
inline constexpr int VER_SUITE_DATACENTER = 0x00000080;
inline constexpr int VER_SUITE_PERSONAL = 0x00000200;
inline constexpr int VER_SUITE_BLADE = 0x00000400;
inline constexpr int PROCESSOR_ARCHITECTURE_INTEL = 0;
inline constexpr int PROCESSOR_ARCHITECTURE_IA64 = 6;
inline constexpr int PROCESSOR_ARCHITECTURE_AMD64 = 9;
inline constexpr int SM_SERVERR2 = 89;

// Keys and accelerators. A letter's and a digit's virtual-key code is the character itself.
inline constexpr int FVIRTKEY = 0x01;
inline constexpr int FSHIFT = 0x04;
inline constexpr int FCONTROL = 0x08;
inline constexpr int FALT = 0x10;
inline constexpr UINT MAPVK_VK_TO_VSC = 0;
inline constexpr UINT MAPVK_VK_TO_CHAR = 2;
inline constexpr int VK_BACK = 0x08;
inline constexpr int VK_TAB = 0x09;
inline constexpr int VK_CLEAR = 0x0c;
inline constexpr int VK_RETURN = 0x0d;
inline constexpr int VK_SHIFT = 0x10;
inline constexpr int VK_CONTROL = 0x11;
inline constexpr int VK_MENU = 0x12;
inline constexpr int VK_PAUSE = 0x13;
inline constexpr int VK_CAPITAL = 0x14;
inline constexpr int VK_ESCAPE = 0x1b;
inline constexpr int VK_SPACE = 0x20;
inline constexpr int VK_PRIOR = 0x21;
inline constexpr int VK_NEXT = 0x22;
inline constexpr int VK_END = 0x23;
inline constexpr int VK_HOME = 0x24;
inline constexpr int VK_LEFT = 0x25;
inline constexpr int VK_UP = 0x26;
inline constexpr int VK_RIGHT = 0x27;
inline constexpr int VK_DOWN = 0x28;
inline constexpr int VK_SNAPSHOT = 0x2c;
inline constexpr int VK_INSERT = 0x2d;
inline constexpr int VK_DELETE = 0x2e;
inline constexpr int VK_HELP = 0x2f;
inline constexpr int VK_LWIN = 0x5b;
inline constexpr int VK_RWIN = 0x5c;
inline constexpr int VK_APPS = 0x5d;
inline constexpr int VK_SLEEP = 0x5f;
inline constexpr int VK_NUMPAD0 = 0x60;
inline constexpr int VK_NUMPAD1 = 0x61;
inline constexpr int VK_NUMPAD2 = 0x62;
inline constexpr int VK_NUMPAD3 = 0x63;
inline constexpr int VK_NUMPAD4 = 0x64;
inline constexpr int VK_NUMPAD5 = 0x65;
inline constexpr int VK_NUMPAD6 = 0x66;
inline constexpr int VK_NUMPAD7 = 0x67;
inline constexpr int VK_NUMPAD8 = 0x68;
inline constexpr int VK_NUMPAD9 = 0x69;
inline constexpr int VK_MULTIPLY = 0x6a;
inline constexpr int VK_ADD = 0x6b;
inline constexpr int VK_SEPARATOR = 0x6c;
inline constexpr int VK_SUBTRACT = 0x6d;
inline constexpr int VK_DECIMAL = 0x6e;
inline constexpr int VK_DIVIDE = 0x6f;
inline constexpr int VK_F1 = 0x70;
inline constexpr int VK_F2 = 0x71;
inline constexpr int VK_F3 = 0x72;
inline constexpr int VK_F4 = 0x73;
inline constexpr int VK_F5 = 0x74;
inline constexpr int VK_F6 = 0x75;
inline constexpr int VK_F7 = 0x76;
inline constexpr int VK_F8 = 0x77;
inline constexpr int VK_F9 = 0x78;
inline constexpr int VK_F10 = 0x79;
inline constexpr int VK_F11 = 0x7a;
inline constexpr int VK_F12 = 0x7b;
inline constexpr int VK_F13 = 0x7c;
inline constexpr int VK_F14 = 0x7d;
inline constexpr int VK_F15 = 0x7e;
inline constexpr int VK_F16 = 0x7f;
inline constexpr int VK_F17 = 0x80;
inline constexpr int VK_F18 = 0x81;
inline constexpr int VK_F19 = 0x82;
inline constexpr int VK_F20 = 0x83;
inline constexpr int VK_F21 = 0x84;
inline constexpr int VK_F22 = 0x85;
inline constexpr int VK_F23 = 0x86;
inline constexpr int VK_F24 = 0x87;
inline constexpr int VK_NUMLOCK = 0x90;
inline constexpr int VK_SCROLL = 0x91;
inline constexpr int VK_LSHIFT = 0xa0;
inline constexpr int VK_RSHIFT = 0xa1;
inline constexpr int VK_LCONTROL = 0xa2;
inline constexpr int VK_RCONTROL = 0xa3;
inline constexpr int VK_LMENU = 0xa4;
inline constexpr int VK_RMENU = 0xa5;
inline constexpr int VK_OEM_1 = 0xba;
inline constexpr int VK_OEM_PLUS = 0xbb;
inline constexpr int VK_OEM_COMMA = 0xbc;
inline constexpr int VK_OEM_MINUS = 0xbd;
inline constexpr int VK_OEM_PERIOD = 0xbe;
inline constexpr int VK_OEM_2 = 0xbf;
inline constexpr int VK_OEM_3 = 0xc0;
inline constexpr int VK_OEM_4 = 0xdb;
inline constexpr int VK_OEM_5 = 0xdc;
inline constexpr int VK_OEM_6 = 0xdd;
inline constexpr int VK_OEM_7 = 0xde;
inline constexpr int VK_OEM_102 = 0xe2;

// Message boxes: buttons, icons, defaults, results.
inline constexpr UINT MB_OK = 0x00000000;
inline constexpr UINT MB_OKCANCEL = 0x00000001;
inline constexpr UINT MB_ABORTRETRYIGNORE = 0x00000002;
inline constexpr UINT MB_YESNOCANCEL = 0x00000003;
inline constexpr UINT MB_YESNO = 0x00000004;
inline constexpr UINT MB_RETRYCANCEL = 0x00000005;
inline constexpr UINT MB_CANCELTRYCONTINUE = 0x00000006;
inline constexpr UINT MB_TYPEMASK = 0x0000000f;
inline constexpr UINT MB_ICONHAND = 0x00000010;
inline constexpr auto MB_ICONSTOP = MB_ICONHAND;
inline constexpr auto MB_ICONERROR = MB_ICONHAND;
inline constexpr UINT MB_ICONQUESTION = 0x00000020;
inline constexpr UINT MB_ICONEXCLAMATION = 0x00000030;
inline constexpr auto MB_ICONWARNING = MB_ICONEXCLAMATION;
inline constexpr UINT MB_ICONASTERISK = 0x00000040;
inline constexpr auto MB_ICONINFORMATION = MB_ICONASTERISK;
inline constexpr UINT MB_ICONMASK = 0x000000f0;
inline constexpr UINT MB_DEFBUTTON1 = 0x00000000;
inline constexpr UINT MB_DEFBUTTON2 = 0x00000100;
inline constexpr UINT MB_DEFBUTTON3 = 0x00000200;
inline constexpr UINT MB_DEFBUTTON4 = 0x00000300;
inline constexpr UINT MB_DEFMASK = 0x00000f00;
inline constexpr UINT MB_HELP = 0x00004000;
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDABORT = 3;
inline constexpr int IDRETRY = 4;
inline constexpr int IDIGNORE = 5;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;
inline constexpr int IDCLOSE = 8;
inline constexpr int IDHELP = 9;
inline constexpr int IDTRYAGAIN = 10;
inline constexpr int IDCONTINUE = 11;

// Windows: classes, creation, messages, creation hooks.
inline constexpr UINT WM_CREATE = 0x0001;
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_SETTEXT = 0x000c;
inline constexpr UINT WM_GETTEXT = 0x000d;
inline constexpr UINT WM_GETTEXTLENGTH = 0x000e;
inline constexpr UINT WM_PAINT = 0x000f;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_QUIT = 0x0012;
inline constexpr UINT WM_NOTIFY = 0x004e;
inline constexpr UINT WM_NCCREATE = 0x0081;
inline constexpr UINT WM_NCDESTROY = 0x0082;
inline constexpr UINT WM_COMMAND = 0x0111;
inline constexpr UINT WM_TIMER = 0x0113;
inline constexpr UINT WM_USER = 0x0400;
inline constexpr UINT WM_APP = 0x8000;
inline constexpr UINT PM_NOREMOVE = 0x0000;
inline constexpr UINT PM_REMOVE = 0x0001;
inline constexpr UINT QS_ALLINPUT = 0x04ff;
inline constexpr UINT USER_TIMER_MINIMUM = 0x0000000a;
inline constexpr UINT WS_OVERLAPPED = 0x00000000;
inline constexpr UINT WS_POPUP = 0x80000000;
inline constexpr UINT WS_CHILD = 0x40000000;
inline constexpr UINT WS_VISIBLE = 0x10000000;
inline constexpr int GWLP_WNDPROC = -4;
inline constexpr int GWLP_ID = -12;
inline constexpr int GWL_STYLE = -16;
inline constexpr int GWL_EXSTYLE = -20;
inline constexpr int GWLP_USERDATA = -21;
inline constexpr int WH_CBT = 5;
inline constexpr int HCBT_CREATEWND = 3;
inline constexpr int BN_CLICKED = 0;

// Code pages and conversion flags.
inline constexpr UINT CP_ACP = 0;
inline constexpr UINT CP_OEMCP = 1;
inline constexpr UINT CP_MACCP = 2;
inline constexpr UINT CP_THREAD_ACP = 3;
inline constexpr UINT CP_UTF7 = 65000;
#ifndef CP_UTF8
inline constexpr UINT CP_UTF8 = 65001;
#endif
inline constexpr UINT MB_PRECOMPOSED = 0x00000001;
inline constexpr UINT MB_COMPOSITE = 0x00000002;
inline constexpr UINT MB_USEGLYPHCHARS = 0x00000004;
inline constexpr UINT MB_ERR_INVALID_CHARS = 0x00000008;
inline constexpr UINT WC_NO_BEST_FIT_CHARS = 0x00000400;
inline constexpr UINT WC_ERR_INVALID_CHARS = 0x00000080;

// The message formatter.
inline constexpr UINT FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x00000100;
inline constexpr UINT FORMAT_MESSAGE_IGNORE_INSERTS = 0x00000200;
inline constexpr UINT FORMAT_MESSAGE_FROM_STRING = 0x00000400;
inline constexpr UINT FORMAT_MESSAGE_FROM_SYSTEM = 0x00001000;
inline constexpr UINT FORMAT_MESSAGE_ARGUMENT_ARRAY = 0x00002000;
inline constexpr UINT FORMAT_MESSAGE_MAX_WIDTH_MASK = 0x000000ff;

// System error codes.
#ifndef ERROR_SUCCESS
inline constexpr UINT ERROR_SUCCESS = 0;
#endif
#ifndef NO_ERROR
inline constexpr UINT NO_ERROR = 0;
#endif
inline constexpr UINT ERROR_INVALID_FUNCTION = 1;
inline constexpr UINT ERROR_FILE_NOT_FOUND = 2;
inline constexpr UINT ERROR_PATH_NOT_FOUND = 3;
inline constexpr UINT ERROR_TOO_MANY_OPEN_FILES = 4;
inline constexpr UINT ERROR_ACCESS_DENIED = 5;
inline constexpr UINT ERROR_INVALID_HANDLE = 6;
inline constexpr UINT ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr UINT ERROR_BAD_FORMAT = 11;
inline constexpr UINT ERROR_INVALID_ACCESS = 12;
inline constexpr UINT ERROR_INVALID_DATA = 13;
inline constexpr UINT ERROR_OUTOFMEMORY = 14;
inline constexpr UINT ERROR_INVALID_DRIVE = 15;
inline constexpr UINT ERROR_CURRENT_DIRECTORY = 16;
inline constexpr UINT ERROR_NOT_SAME_DEVICE = 17;
inline constexpr UINT ERROR_NO_MORE_FILES = 18;
inline constexpr UINT ERROR_WRITE_PROTECT = 19;
inline constexpr UINT ERROR_NOT_READY = 21;
inline constexpr UINT ERROR_CRC = 23;
inline constexpr UINT ERROR_SEEK = 25;
inline constexpr UINT ERROR_WRITE_FAULT = 29;
inline constexpr UINT ERROR_READ_FAULT = 30;
inline constexpr UINT ERROR_GEN_FAILURE = 31;
inline constexpr UINT ERROR_SHARING_VIOLATION = 32;
inline constexpr UINT ERROR_LOCK_VIOLATION = 33;
inline constexpr UINT ERROR_HANDLE_EOF = 38;
inline constexpr UINT ERROR_HANDLE_DISK_FULL = 39;
inline constexpr UINT ERROR_NOT_SUPPORTED = 50;
inline constexpr UINT ERROR_FILE_EXISTS = 80;
inline constexpr UINT ERROR_CANNOT_MAKE = 82;
inline constexpr UINT ERROR_INVALID_PARAMETER = 87;
inline constexpr UINT ERROR_BROKEN_PIPE = 109;
inline constexpr UINT ERROR_BUFFER_OVERFLOW = 111;
inline constexpr UINT ERROR_DISK_FULL = 112;
inline constexpr UINT ERROR_CALL_NOT_IMPLEMENTED = 120;
inline constexpr UINT ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr UINT ERROR_INVALID_NAME = 123;
inline constexpr UINT ERROR_MOD_NOT_FOUND = 126;
inline constexpr UINT ERROR_PROC_NOT_FOUND = 127;
inline constexpr UINT ERROR_NEGATIVE_SEEK = 131;
inline constexpr UINT ERROR_SEEK_ON_DEVICE = 132;
inline constexpr UINT ERROR_DIR_NOT_EMPTY = 145;
inline constexpr UINT ERROR_BAD_ARGUMENTS = 160;
inline constexpr UINT ERROR_BAD_PATHNAME = 161;
inline constexpr UINT ERROR_BUSY = 170;
inline constexpr UINT ERROR_ALREADY_EXISTS = 183;
inline constexpr UINT ERROR_BAD_EXE_FORMAT = 193;
inline constexpr UINT ERROR_FILENAME_EXCED_RANGE = 206;
inline constexpr UINT ERROR_FILE_TOO_LARGE = 223;
inline constexpr UINT ERROR_NO_DATA = 232;
inline constexpr UINT ERROR_MORE_DATA = 234;
inline constexpr UINT ERROR_NO_WORK_DONE = 235;
inline constexpr UINT ERROR_NO_MORE_ITEMS = 259;
inline constexpr UINT ERROR_DIRECTORY = 267;
inline constexpr UINT ERROR_MR_MID_NOT_FOUND = 317;
inline constexpr UINT ERROR_NOACCESS = 998;
inline constexpr UINT ERROR_INVALID_FLAGS = 1004;
inline constexpr UINT ERROR_FILE_INVALID = 1006;
inline constexpr UINT ERROR_BADDB = 1009;
inline constexpr UINT ERROR_REGISTRY_CORRUPT = 1015;
inline constexpr UINT ERROR_REGISTRY_IO_FAILED = 1016;
inline constexpr UINT ERROR_KEY_DELETED = 1018;
inline constexpr UINT ERROR_NO_UNICODE_TRANSLATION = 1113;
inline constexpr UINT ERROR_IO_DEVICE = 1117;
inline constexpr UINT ERROR_NO_ASSOCIATION = 1155;
inline constexpr UINT ERROR_NO_MORE_USER_HANDLES = 1158;
inline constexpr UINT ERROR_MESSAGE_SYNC_ONLY = 1159;
inline constexpr UINT ERROR_CANCELLED = 1223;
inline constexpr UINT ERROR_REVISION_MISMATCH = 1306;
inline constexpr UINT ERROR_INVALID_WINDOW_HANDLE = 1400;
inline constexpr UINT ERROR_INVALID_HOOK_HANDLE = 1404;
inline constexpr UINT ERROR_TLW_WITH_WSCHILD = 1406;
inline constexpr UINT ERROR_CANNOT_FIND_WND_CLASS = 1407;
inline constexpr UINT ERROR_CLASS_ALREADY_EXISTS = 1410;
inline constexpr UINT ERROR_CLASS_DOES_NOT_EXIST = 1411;
inline constexpr UINT ERROR_CLASS_HAS_WINDOWS = 1412;
inline constexpr UINT ERROR_INVALID_INDEX = 1413;
inline constexpr UINT ERROR_INVALID_MSGBOX_STYLE = 1438;
inline constexpr UINT ERROR_NO_SYSTEM_RESOURCES = 1450;
inline constexpr UINT ERROR_RESOURCE_DATA_NOT_FOUND = 1812;
inline constexpr UINT ERROR_RESOURCE_TYPE_NOT_FOUND = 1813;
inline constexpr UINT ERROR_RESOURCE_NAME_NOT_FOUND = 1814;
inline constexpr UINT ERROR_RESOURCE_LANG_NOT_FOUND = 1815;
inline constexpr UINT ERROR_RESOURCE_ENUM_USER_STOP = 15106;
inline constexpr UINT ERROR_NOT_ENOUGH_QUOTA = 1816;
inline constexpr UINT ERROR_CANT_RESOLVE_FILENAME = 1921;

// Words and their halves.
constexpr WORD LOWORD(DWORD_PTR value) {
    return static_cast<WORD>(value & 0xffff);
}
constexpr WORD HIWORD(DWORD_PTR value) {
    return static_cast<WORD>((value >> 16) & 0xffff);
}
constexpr BYTE LOBYTE(DWORD_PTR value) {
    return static_cast<BYTE>(value & 0xff);
}
constexpr BYTE HIBYTE(DWORD_PTR value) {
    return static_cast<BYTE>((value >> 8) & 0xff);
}
constexpr WORD MAKEWORD(DWORD_PTR low, DWORD_PTR high) {
    return static_cast<WORD>(LOBYTE(low) | LOBYTE(high) << 8);
}
constexpr LONG MAKELONG(DWORD_PTR low, DWORD_PTR high) {
    return static_cast<LONG>(LOWORD(low) | static_cast<DWORD>(LOWORD(high)) << 16);
}
constexpr LPARAM MAKELPARAM(DWORD_PTR low, DWORD_PTR high) {
    return static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high)));
}
constexpr WPARAM MAKEWPARAM(DWORD_PTR low, DWORD_PTR high) {
    return static_cast<DWORD>(MAKELONG(low, high));
}
constexpr LANGID MAKELANGID(WORD primary, WORD sub) {
    return static_cast<LANGID>(sub << 10 | primary);
}
constexpr WORD PRIMARYLANGID(LANGID language) {
    return language & 0x3ff;
}
constexpr WORD SUBLANGID(LANGID language) {
    return language >> 10;
}
constexpr LCID MAKELCID(LANGID language, WORD sort) {
    return static_cast<DWORD>(sort) << 16 | language;
}
inline bool IS_INTRESOURCE(const void* name) {
    return reinterpret_cast<ULONG_PTR>(name) >> 16 == 0;
}

} // namespace constants

} // namespace quorvel::win32

using namespace quorvel::win32::constants;
