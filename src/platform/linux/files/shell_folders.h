// The folders of the system and of the user for the data of programs.
#pragma once

#include <quorvel/platform/linux_api.h>

#include <string>

#define CSIDL_APPDATA 0x001a        // $XDG_CONFIG_HOME, or .config in the home folder
#define CSIDL_LOCAL_APPDATA 0x001c  // $XDG_DATA_HOME, or .local/share in the home folder
#define CSIDL_COMMON_APPDATA 0x0023 // from $XDG_DATA_DIRS, or /usr/local/share

typedef LONG HRESULT;
#define S_OK (static_cast<HRESULT>(0))
#define E_FAIL (static_cast<HRESULT>(0x80004005))
#define E_INVALIDARG (static_cast<HRESULT>(0x80070057))
#define SUCCEEDED(result) (static_cast<HRESULT>(result) >= 0)

namespace quorvel {

// The folder in the environment variable if it is absolute, otherwise `pathInHome` in the home
// folder. The home folder is HOME or, when that is missing or not absolute, from the user's
// account. Empty when there is no home folder. The folder need not exist.
std::string UserFolder(const char* variable, const char* pathInHome);

} // namespace quorvel

namespace quorvel::win32 {

// Writes the folder, without a final separator, to a buffer of MAX_PATH characters. On failure the
// text is empty. Returns E_INVALIDARG for any other folder, token or flag, E_FAIL for a user
// without a home and for a path that does not fit. Unlike on Windows, the folder may not exist yet.
HRESULT SHGetFolderPathW(HWND owner, int folder, HANDLE token, DWORD flags, LPWSTR path);

} // namespace quorvel::win32
