// The operations of the platform that a Linux host needs to use the public signatures.
//
// Each has the name, the results and the error codes of its Windows namesake and is found in
// namespace quorvel::win32, so that one host source serves both systems:
//     using namespace quorvel::win32;
// What is not declared here is not available: there are no stubs.
#pragma once

#include <quorvel/platform/export.h>
#include <quorvel/platform/linux_types.h>

namespace quorvel::win32 {

// The calling thread's last error. Any thread.
QUORVEL_API DWORD GetLastError();
QUORVEL_API void SetLastError(DWORD error);
QUORVEL_API int WSAGetLastError(); // the same one: sockets have no error of their own
QUORVEL_API void WSASetLastError(int error);

// Code pages. Any thread. Lengths are in bytes and UTF-16 units; a negative source length means up
// to and with the terminator; a target length of 0 asks for the length needed. 0 is a failure: 87
// for a null pointer, a source length of 0, the same place as source and target or an unknown code
// page, 122 for a buffer too small (what fits is written), 1004 for flags that the code page does
// not have, 1113 for what MB_ERR_INVALID_CHARS or WC_ERR_INVALID_CHARS refuses. Since the active
// code page is UTF-8 here, it takes a default character and `usedDefaultChar`, which are for lone
// surrogates; a default character beyond ASCII leaves them U+FFFD.
QUORVEL_API int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR bytes, int byteCount,
                                    LPWSTR text, int textLength);
QUORVEL_API int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textLength,
                                    LPSTR bytes, int byteCount, LPCSTR defaultChar,
                                    LPBOOL usedDefaultChar);
QUORVEL_API UINT GetACP(); // 65001
QUORVEL_API BOOL IsValidCodePage(UINT codePage);

// Files. Any thread. src/platform/linux names what differs from Windows: both separators are taken,
// names are UTF-8 on the disk and letter case counts, share modes hold within the process, and the
// OVERLAPPED, SECURITY_ATTRIBUTES and template arguments must be null (87), byte counts not (87).
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
// INVALID_FILE_ATTRIBUTES when there is no such file.
QUORVEL_API DWORD GetFileAttributesW(LPCWSTR name);

// The registry. Any thread, and any number of processes at once. The result is an error code.
//
// It is one file a user, $XDG_DATA_HOME/quorvel/registry.db (without an absolute XDG_DATA_HOME
// ~/.local/share/quorvel/registry.db), or the one whose absolute path the environment variable
// QUORVEL_REGISTRY holds. It is made by the first write. What a call reported as written survives
// the end of the process, however it ends; a power cut can take the latest writes, but what it
// leaves is a state the registry once had.
//
// All eight roots lie in that file, each apart; the three of performance data are always refused
// (6). A path below a key is separated by backslashes; one at the beginning is refused (161).
// Names are found without regard to case, as Windows folds it, and keep the case they were first
// written in. A part of a path has up to 255 characters, a value's name up to 16,383, and a key
// lies at most 512 deep (87). Values may have any kind and up to 1,000,000,000 bytes (1450).
//
// Beyond the codes of Windows: 1015 when the file is damaged (it is then moved aside, as
// registry.db.damaged-1 and so on, and the next call begins a new one), 1306 when a newer version
// of the library has written it, 1009 when it is something else altogether (both are left as they
// are), 170 when another process holds it for longer than 30 seconds, and 5, 19, 112 and the like
// for what the file system refuses. From a file or folder that may not be written keys open for
// reading only; on a full disk they open, and what they hold is read.
//
// `reserved` and pointers to a class, to security attributes and to a time must be null, and
// options 0 (87).
QUORVEL_API LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR className,
                                    DWORD options, REGSAM access, SECURITY_ATTRIBUTES* security,
                                    HKEY* result, LPDWORD disposition);
// A null or empty sub key gives another handle of the key; of a root, itself.
QUORVEL_API LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access,
                                  HKEY* result);
QUORVEL_API LSTATUS RegCloseKey(HKEY key);
// A key with keys below it is refused (5). Open handles of the deleted key get 1018 from then on.
QUORVEL_API LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR subKey);
// Without a buffer the size is told; 234, and the size, when the buffer is too small. A text that
// is stored without its terminator gets one where the buffer has room for it.
QUORVEL_API LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD kind,
                                     LPBYTE data, LPDWORD size);
// Unlike on Windows, nothing beyond `size` bytes is looked at: a terminator that was not counted
// is not stored.
QUORVEL_API LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD kind,
                                   const BYTE* data, DWORD size);
QUORVEL_API LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name);
// By index from 0, until 259; in the order of the names. `nameSize` is in characters, with the
// terminator on entry and without it on return; 234 when a buffer is too small. A name that does
// not fit leaves the data as it is too.
QUORVEL_API LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize,
                                  LPDWORD reserved, LPWSTR className, LPDWORD classSize,
                                  FILETIME* lastWriteTime);
QUORVEL_API LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize,
                                  LPDWORD reserved, LPDWORD kind, LPBYTE data, LPDWORD size);

// Windows without a screen: they carry messages, text and the words below, and have neither size
// nor painting nor input. A window belongs to the thread that created it: only there may it be
// destroyed or sent a message (elsewhere 5), and it ends with that thread, without a message. A
// class has no extra bytes (87). A null instance means the program.
QUORVEL_API ATOM RegisterClassExW(const WNDCLASSEXW* windowClass);
QUORVEL_API BOOL UnregisterClassW(LPCWSTR name, HINSTANCE instance);
// Sends WM_NCCREATE and WM_CREATE. The size and position reach the procedure and mean nothing else.
QUORVEL_API HWND CreateWindowExW(DWORD extendedStyle, LPCWSTR className, LPCWSTR text, DWORD style,
                                 int x, int y, int width, int height, HWND parentOrOwner,
                                 HMENU menuOrId, HINSTANCE instance, LPVOID parameter);
// With its children and the windows it owns.
QUORVEL_API BOOL DestroyWindow(HWND window);
QUORVEL_API BOOL IsWindow(HWND window);
QUORVEL_API LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
QUORVEL_API LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// GWLP_WNDPROC, GWLP_ID, GWLP_USERDATA, GWL_STYLE and GWL_EXSTYLE; 1413 for another index.
QUORVEL_API LONG_PTR GetWindowLongPtrW(HWND window, int index);
QUORVEL_API LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
QUORVEL_API int GetWindowTextW(HWND window, LPWSTR text, int size);
QUORVEL_API int GetWindowTextLengthW(HWND window);
QUORVEL_API BOOL SetWindowTextW(HWND window, LPCWSTR text);

// Messages. Any thread may post to a window, which gets the message when its own thread dispatches
// it; what waits for a window is dropped with it. A thread's queue holds 10,000 messages, a full
// one refuses (1816). Messages of the system that carry pointers, such as WM_SETTEXT, are sent and
// cannot be posted (1159). Without a window the calling thread is meant.
QUORVEL_API BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
QUORVEL_API void PostQuitMessage(int exitCode);
// The calling thread's. A filter window means that window alone, without its children.
QUORVEL_API BOOL PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove);
QUORVEL_API BOOL GetMessageW(MSG* message, HWND window, UINT first, UINT last);
QUORVEL_API LRESULT DispatchMessageW(const MSG* message);
// Waits for one of the handles (event, thread) or for a message that came after the last look at
// the queue. `all` is FALSE and the mask QS_ALLINPUT (87).
QUORVEL_API DWORD MsgWaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL all,
                                            DWORD milliseconds, DWORD wakeMask);
// WM_TIMER comes when nothing else waits, and once for however often it was due. Any thread.
QUORVEL_API UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC procedure);
QUORVEL_API BOOL KillTimer(HWND window, UINT_PTR id);

// Modules: PE files, such as the language libraries, loaded for their resources. Any thread.
//
// No PE code runs on Linux: LoadLibraryW takes a file without an entry point only
// (ERROR_BAD_EXE_FORMAT), LoadLibraryExW with LOAD_LIBRARY_AS_DATAFILE or _AS_IMAGE_RESOURCE any.
// A name without a folder is looked for beside the program, then in the current folder. A null
// module is the program. Freeing the library's own module is refused (ERROR_ACCESS_DENIED).
QUORVEL_API HMODULE LoadLibraryW(LPCWSTR name);
QUORVEL_API HMODULE LoadLibraryExW(LPCWSTR name, HANDLE reserved, DWORD flags);
QUORVEL_API BOOL FreeLibrary(HMODULE module);
QUORVEL_API HMODULE GetModuleHandleW(LPCWSTR name);
// The length; `size`, and ERROR_INSUFFICIENT_BUFFER, when the path had to be cut.
QUORVEL_API DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size);
// The length of the string-table text; 0 with the last error set when there is none. With a size
// of 0 `buffer` is a WCHAR* that receives the place of the text, which has no terminator.
QUORVEL_API int LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size);

} // namespace quorvel::win32
