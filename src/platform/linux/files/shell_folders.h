// The folders of the system and of the user in which programs keep data.
#pragma once

#include <quorvel/platform/linux_api.h>

#include <string>

#define CSIDL_APPDATA 0x001a        // $XDG_CONFIG_HOME, else .config in the home folder
#define CSIDL_LOCAL_APPDATA 0x001c  // $XDG_DATA_HOME, else .local/share in the home folder
#define CSIDL_COMMON_APPDATA 0x0023 // of $XDG_DATA_DIRS, else /usr/local/share

typedef LONG HRESULT;
#define S_OK (static_cast<HRESULT>(0))
#define E_FAIL (static_cast<HRESULT>(0x80004005))
#define E_INVALIDARG (static_cast<HRESULT>(0x80070057))
#define SUCCEEDED(result) (static_cast<HRESULT>(result) >= 0)

namespace quorvel {

// The folder that an environment variable names when it is absolute, else the one of that path in
// the home folder: that of HOME or, where HOME is missing or not absolute, of the user's account.
// Empty when there is none. It need not exist.
std::string UserFolder(const char* variable, const char* pathInHome);

} // namespace quorvel

namespace quorvel::win32 {

// Writes the folder, without a separator at its end, to a buffer of MAX_PATH characters. Otherwise
// the text is empty: E_INVALIDARG for any other folder, token or flag, E_FAIL for a user without a
// home and for a path that does not fit. Unlike on Windows a folder may not exist yet.
HRESULT SHGetFolderPathW(HWND owner, int folder, HANDLE token, DWORD flags, LPWSTR path);

} // namespace quorvel::win32
