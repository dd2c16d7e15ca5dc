// The platform operations that a Linux host needs in order to use the public signatures.
//
// Each has the name, the results and the error codes of its Windows counterpart. They are in
// namespace quorvel::win32, so that the same host source works on both systems:
//     using namespace quorvel::win32;
// Operations that are not declared here are not available. There are no stubs.
#pragma once

#include <quorvel/platform/export.h>
#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// The last error of the calling thread. Any thread.
QUORVEL_API DWORD GetLastError();
QUORVEL_API void SetLastError(DWORD error);
QUORVEL_API int WSAGetLastError(); // the same value: sockets have no separate error
QUORVEL_API void WSASetLastError(int error);

// Code pages. Any thread. Lengths are in bytes and UTF-16 units. A negative source length means up
// to and including the terminator; a target length of 0 returns the required length. 0 means
// failure: 87 for a null pointer, a source length of 0, identical source and target or an unknown
// code page; 122 for a small buffer (what fits is written); 1004 for flags that the code page does
// not support; 1113 for text that MB_ERR_INVALID_CHARS or WC_ERR_INVALID_CHARS refuses. As the
// active code page, UTF-8 accepts a default character and `usedDefaultChar`, for lone surrogates;
// for a default character beyond ASCII these become U+FFFD.
QUORVEL_API int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR bytes, int byteCount,
                                    LPWSTR text, int textLength);
QUORVEL_API int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textLength,
                                    LPSTR bytes, int byteCount, LPCSTR defaultChar,
                                    LPBOOL usedDefaultChar);
QUORVEL_API UINT GetACP(); // 65001
QUORVEL_API BOOL IsValidCodePage(UINT codePage);

// Files. Any thread. Differences from Windows (see src/platform/linux): both separators work; names
// on disk are UTF-8 and case-sensitive; share modes apply within the process only. OVERLAPPED,
// SECURITY_ATTRIBUTES and template arguments must be null, byte counts must not (87).
QUORVEL_API HANDLE CreateFileW(LPCWSTR name, DWORD rights, DWORD share,
                               SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD flags,
                               HANDLE templateFile);
QUORVEL_API BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD count, LPDWORD bytesRead,
                          OVERLAPPED* overlapped);
QUORVEL_API BOOL WriteFile(HANDLE file, LPCVOID buffer, DWORD count, LPDWORD bytesWritten,
                           OVERLAPPED* overlapped);
QUORVEL_API BOOL SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, LARGE_INTEGER* position,
                                  DWORD method);
QUORVEL_API BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);
QUORVEL_API BOOL CloseHandle(HANDLE handle);
QUORVEL_API BOOL DeleteFileW(LPCWSTR name);
// INVALID_FILE_ATTRIBUTES when the file does not exist.
QUORVEL_API DWORD GetFileAttributesW(LPCWSTR name);

// The registry. Any thread, any number of processes. The result is an error code.
//
// The registry of a user is one file: the one whose absolute path is in the environment variable
// QUORVEL_REGISTRY, otherwise $XDG_DATA_HOME/quorvel/registry.db
// (~/.local/share/quorvel/registry.db if XDG_DATA_HOME is not an absolute path). The first write
// creates it. Data that was reported as written survives any end of the process. A power failure
// can lose the latest writes, but leaves a state that the registry once had.
//
// The file contains all eight root keys, separately; the three for performance data are always
// refused (6). A path below a key is separated by backslashes and must not begin with one (161).
// Names are compared ignoring case, folded as on Windows, and keep the case of their first writing.
// A path component has up to 255 characters, a value name up to 16,383, and keys nest up to 512
// deep (87). Values may have any type and up to 1,000,000,000 bytes (1450).
//
// Error codes beyond those of Windows: 1015 for a damaged file (it is then renamed to
// registry.db.damaged-1 and so on, and the next call starts a new file); 1306 for a file of a newer
// version of the library; 1009 for a file that is not a registry (both are left unchanged); 170
// when another process locks it for more than 30 seconds; and 5, 19, 112 and similar for errors of
// the file system. If the file or its folder is read-only, keys open for reading only. On a full
// disk keys open, and their data can be read.
//
// `reserved` and pointers to a class, security attributes or a time must be null, and options 0
// (87).
QUORVEL_API LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR className,
                                    DWORD options, REGSAM access, SECURITY_ATTRIBUTES* security,
                                    HKEY* result, LPDWORD disposition);
// A null or empty sub key gives another handle for the key; for a root key, the root key itself.
QUORVEL_API LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access,
                                  HKEY* result);
QUORVEL_API LSTATUS RegCloseKey(HKEY key);
// Refuses a key that has sub keys (5). Open handles of the deleted key then return 1018.
QUORVEL_API LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR subKey);
// Without a buffer returns the size. For a small buffer returns 234 and the size. A text that was
// stored without its terminator gets one if the buffer has room.
QUORVEL_API LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD kind,
                                     LPBYTE data, LPDWORD size);
// Unlike Windows, this never looks beyond `size` bytes: a terminator that is not counted is not
// stored.
QUORVEL_API LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD kind,
                                   const BYTE* data, DWORD size);
QUORVEL_API LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name);
// Enumerates by index from 0 until error 259, in the order of names. `nameSize` is in characters,
// with the terminator on entry and without it on return. Returns 234 when a buffer is too small; a
// name that does not fit also leaves the data unchanged.
QUORVEL_API LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize,
                                  LPDWORD reserved, LPWSTR className, LPDWORD classSize,
                                  FILETIME* lastWriteTime);
QUORVEL_API LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize,
                                  LPDWORD reserved, LPDWORD kind, LPBYTE data, LPDWORD size);

// Windows without a screen: they have messages, a text and the values below, but no size, painting
// or input. A window belongs to the thread that created it. Only that thread may destroy it or send
// it messages (otherwise 5). It ends with the thread, without a message. A class has no extra bytes
// (87). A null instance means the program.
QUORVEL_API ATOM RegisterClassExW(const WNDCLASSEXW* windowClass);
QUORVEL_API BOOL UnregisterClassW(LPCWSTR name, HINSTANCE instance);
// Sends WM_NCCREATE and WM_CREATE. Size and position are passed to the procedure and then ignored.
QUORVEL_API HWND CreateWindowExW(DWORD extendedStyle, LPCWSTR className, LPCWSTR text, DWORD style,
                                 int x, int y, int width, int height, HWND parentOrOwner,
                                 HMENU menuOrId, HINSTANCE instance, LPVOID parameter);
// Also destroys its children and the windows that it owns.
QUORVEL_API BOOL DestroyWindow(HWND window);
QUORVEL_API BOOL IsWindow(HWND window);
QUORVEL_API LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
QUORVEL_API LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// For GWLP_WNDPROC, GWLP_ID, GWLP_USERDATA, GWL_STYLE and GWL_EXSTYLE. 1413 for other indexes.
QUORVEL_API LONG_PTR GetWindowLongPtrW(HWND window, int index);
QUORVEL_API LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
QUORVEL_API int GetWindowTextW(HWND window, LPWSTR text, int size);
QUORVEL_API int GetWindowTextLengthW(HWND window);
QUORVEL_API BOOL SetWindowTextW(HWND window, LPCWSTR text);

// Messages. Any thread may post to a window; the window gets the message when its own thread
// dispatches it. Destroying a window drops its waiting messages. A thread's queue holds 10,000
// messages; a full queue refuses (1816). System messages with pointers, such as WM_SETTEXT, can be
// sent but not posted (1159). A null window means the calling thread.
QUORVEL_API BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
QUORVEL_API void PostQuitMessage(int exitCode);
// The calling thread's queue. A filter window means only that window, without its children.
QUORVEL_API BOOL PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove);
QUORVEL_API BOOL GetMessageW(MSG* message, HWND window, UINT first, UINT last);
QUORVEL_API LRESULT DispatchMessageW(const MSG* message);
// Waits for one of the handles (event, thread) or for a message that arrived after the queue was
// last read. `all` must be FALSE and the mask QS_ALLINPUT (87).
QUORVEL_API DWORD MsgWaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL all,
                                            DWORD milliseconds, DWORD wakeMask);
// WM_TIMER arrives when no other message waits, once for several expirations. Any thread.
QUORVEL_API UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
QUORVEL_API BOOL KillTimer(HWND window, UINT_PTR id);

// Modules: PE files, such as the language libraries, loaded for their resources. Any thread.
//
// Linux cannot run PE code: LoadLibraryW accepts only files without an entry point (otherwise
// ERROR_BAD_EXE_FORMAT); LoadLibraryExW with LOAD_LIBRARY_AS_DATAFILE or _AS_IMAGE_RESOURCE any. A
// name without a folder is searched in the program's folder, then in the current one. A null module
// is the program. The library's own module cannot be freed (ERROR_ACCESS_DENIED).
QUORVEL_API HMODULE LoadLibraryW(LPCWSTR name);
QUORVEL_API HMODULE LoadLibraryExW(LPCWSTR name, HANDLE reserved, DWORD flags);
QUORVEL_API BOOL FreeLibrary(HMODULE module);
QUORVEL_API HMODULE GetModuleHandleW(LPCWSTR name);
// Returns the length, or `size` with ERROR_INSUFFICIENT_BUFFER if the path was truncated.
QUORVEL_API DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size);
// Returns the length of the string-table text, or 0 with the last error set. If `size` is 0,
// `buffer` is a WCHAR* that receives the address of the text, which has no terminator.
QUORVEL_API int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size);

} // namespace quorvel::win32
