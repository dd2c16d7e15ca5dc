#include "platform/linux/files/shell_folders.h"

#include "platform/linux/files/path.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <new>
#include <string_view>
#include <vector>

namespace quorvel {

namespace {

bool IsAbsolute(std::string_view path) {
    return path.starts_with('/');
}

std::string_view Variable(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string AccountHome() {
    std::vector<char> buffer(16384);
    passwd entry;
    passwd* found = nullptr;
    const bool known =
        getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr;
    return known && IsAbsolute(entry.pw_dir) ? entry.pw_dir : "";
}

// The desktops of two users may add different folders at the front of the list, but a shared folder
// must be the same for both. So the system's folder has priority wherever it is in the list.
std::string SharedFolder() {
    constexpr std::string_view kSystem = "/usr/local/share";
    std::string first;
    std::string_view rest = Variable("XDG_DATA_DIRS");
    while (!rest.empty()) {
        const std::string_view next = rest.substr(0, rest.find(':'));
        rest.remove_prefix(std::min(rest.size(), next.size() + 1));
        if (next == kSystem || next == "/usr/local/share/")
            return std::string(kSystem);
        if (first.empty() && IsAbsolute(next))
            first = next;
    }
    return first.empty() ? std::string(kSystem) : first;
}

std::string Folder(int folder) {
    switch (folder) {
    case CSIDL_APPDATA:
        return UserFolder("XDG_CONFIG_HOME", ".config");
    case CSIDL_LOCAL_APPDATA:
        return UserFolder("XDG_DATA_HOME", ".local/share");
    default:
        return SharedFolder();
    }
}

bool IsKnown(int folder) {
    return folder == CSIDL_APPDATA || folder == CSIDL_LOCAL_APPDATA ||
           folder == CSIDL_COMMON_APPDATA;
}

} // namespace

std::string UserFolder(const char* variable, const char* pathInHome) {
    const std::string_view named = Variable(variable);
    if (IsAbsolute(named))
        return std::string(named);
    const std::string_view home = Variable("HOME");
    const std::string base = IsAbsolute(home) ? std::string(home) : AccountHome();
    return base.empty() ? base : base + '/' + pathInHome;
}

namespace win32 {

HRESULT SHGetFolderPathW(HWND, int folder, HANDLE token, DWORD flags, LPWSTR path) try {
    if (path == nullptr)
        return E_INVALIDARG;
    path[0] = 0;
    if (!IsKnown(folder) || token != nullptr || flags != 0)
        return E_INVALIDARG;
    const std::u16string name = FromSystemPath(Folder(folder));
    if (name.empty())
        return E_FAIL;
    WCHAR full[MAX_PATH];
    DWORD length = GetFullPathNameW(name.c_str(), MAX_PATH, full, nullptr);
    if (length == 0 || length >= MAX_PATH)
        return E_FAIL;
    if (length > 1 && full[length - 1] == u'/')
        --length;
    CopyTextResult({full, length}, MAX_PATH, path);
    return S_OK;
} catch (const std::bad_alloc&) {
    return E_FAIL;
}

} // namespace win32

} // namespace quorvel
