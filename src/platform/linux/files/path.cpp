#include "platform/linux/files/path.h"

#include "platform/linux/system/system_error.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <new>

namespace quorvel {

namespace {

bool IsSeparator(WCHAR character) {
    return character == u'/' || character == u'\\';
}

bool IsFolder(const char* path) {
    struct stat status;
    return stat(path, &status) == 0 && S_ISDIR(status.st_mode);
}

bool HasDriveLetter(std::u16string_view name) {
    return name.size() >= 2 && name[1] == u':' &&
           ((name[0] >= u'A' && name[0] <= u'Z') || (name[0] >= u'a' && name[0] <= u'z'));
}

} // namespace

bool ToSystemPath(const WCHAR* name, std::string& path) try {
    const std::u16string_view text(name != nullptr ? name : u"");
    if (text.empty() || HasDriveLetter(text)) {
        win32::SetLastError(ERROR_PATH_NOT_FOUND);
        return false;
    }
    if (text.size() > PATH_MAX) { // a longer path cannot be opened
        win32::SetLastError(ERROR_FILENAME_EXCED_RANGE);
        return false;
    }
    path.resize(text.size() * 3);
    const int length = win32::WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(),
                                                  static_cast<int>(text.size()), path.data(),
                                                  static_cast<int>(path.size()), nullptr, nullptr);
    if (length == 0) {
        win32::SetLastError(ERROR_INVALID_NAME);
        return false;
    }
    path.resize(static_cast<std::size_t>(length));
    std::replace(path.begin(), path.end(), '\\', '/');
    return true;
} catch (const std::bad_alloc&) {
    win32::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return false;
}

std::u16string FromSystemPath(std::string_view path) {
    std::u16string text(path.size(), u'\0'); // enough: never more units than bytes
    if (!path.empty())
        text.resize(static_cast<std::size_t>(
            win32::MultiByteToWideChar(CP_UTF8, 0, path.data(), static_cast<int>(path.size()),
                                       text.data(), static_cast<int>(text.size()))));
    return text;
}

std::string CanonicalPath(const std::string& path) {
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) != nullptr ? resolved : "";
}

DWORD PathErrorFromErrno(int error, const std::string& path) try {
    if (error != ENOENT)
        return ErrorFromErrno(error);
    const std::size_t last = path.find_last_not_of('/');
    const std::size_t separator = path.rfind('/', last);
    if (separator == std::string::npos || separator == 0)
        return ERROR_FILE_NOT_FOUND;
    return IsFolder(path.substr(0, separator).c_str()) ? ERROR_FILE_NOT_FOUND
                                                       : ERROR_PATH_NOT_FOUND;
} catch (const std::bad_alloc&) {
    return ERROR_NOT_ENOUGH_MEMORY;
}

DWORD CopyTextResult(std::u16string_view text, DWORD size, LPWSTR buffer) {
    const DWORD length = static_cast<DWORD>(text.size());
    if (buffer == nullptr || size <= length)
        return length + 1;
    text.copy(buffer, length);
    buffer[length] = 0;
    return length;
}

} // namespace quorvel

namespace quorvel::win32 {

namespace {

bool CurrentFolder(std::u16string& folder) {
    char path[PATH_MAX];
    if (getcwd(path, sizeof path) == nullptr) {
        SetLastError(ErrorFromErrno(errno));
        return false;
    }
    folder = FromSystemPath(path);
    return true;
}

DWORD OutOfMemory() {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return 0;
}

// Appends the parts of a name to an absolute path that does not end with a separator.
void AppendParts(std::u16string& path, std::u16string_view name) {
    std::size_t start = 0;
    while (start < name.size()) {
        std::size_t end = start;
        while (end < name.size() && !IsSeparator(name[end]))
            ++end;
        const std::u16string_view part = name.substr(start, end - start);
        if (part == u"..")
            path.resize(std::min(path.size(), path.rfind(u'/')));
        else if (!part.empty() && part != u".")
            path.append(u"/").append(part);
        start = end + 1;
    }
}

} // namespace

DWORD GetFullPathNameW(LPCWSTR name, DWORD size, LPWSTR buffer, LPWSTR* filePart) try {
    const std::u16string_view text(name != nullptr ? name : u"");
    if (text.empty()) {
        SetLastError(ERROR_INVALID_NAME);
        return 0;
    }
    std::u16string path;
    if (!IsSeparator(text[0])) {
        std::u16string folder;
        if (!CurrentFolder(folder))
            return 0;
        AppendParts(path, folder);
    }
    AppendParts(path, text);
    if (path.empty() || IsSeparator(text.back()))
        path.push_back(u'/');

    const DWORD result = CopyTextResult(path, size, buffer);
    if (filePart != nullptr && buffer != nullptr && result < size) {
        const std::size_t start = path.rfind(u'/') + 1;
        *filePart = start < path.size() ? buffer + start : nullptr;
    }
    return result;
} catch (const std::bad_alloc&) {
    return OutOfMemory();
}

DWORD GetTempPathW(DWORD size, LPWSTR buffer) try {
    const char* folder = std::getenv("TMPDIR");
    std::u16string path = FromSystemPath(folder != nullptr && *folder == '/' ? folder : "/tmp");
    if (path.back() != u'/')
        path.push_back(u'/');
    return CopyTextResult(path, size, buffer);
} catch (const std::bad_alloc&) {
    return OutOfMemory();
}

UINT GetTempFileNameW(LPCWSTR folder, LPCWSTR prefix, UINT unique, LPWSTR name) try {
    constexpr std::size_t kSuffixLength = 14; // separator, prefix, digits, ".tmp", terminator
    std::string folderPath;
    if (!ToSystemPath(folder, folderPath) || !IsFolder(folderPath.c_str())) {
        SetLastError(ERROR_DIRECTORY);
        return 0;
    }
    std::u16string start(folder);
    if (start.size() > MAX_PATH - kSuffixLength) {
        SetLastError(ERROR_BUFFER_OVERFLOW);
        return 0;
    }
    if (!IsSeparator(start.back()))
        start.push_back(u'/');
    start.append(std::u16string_view(prefix != nullptr ? prefix : u"").substr(0, 3));

    const auto compose = [&](UINT number) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "%x", number & 0xffff);
        CopyTextResult(start + FromSystemPath(digits) + u".tmp", MAX_PATH, name);
    };
    if (unique != 0) {
        compose(unique);
        return unique;
    }
    // Any first number will do: existing names are skipped.
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    const UINT first = static_cast<UINT>(now.tv_nsec / 1000) ^ static_cast<UINT>(getpid());
    for (UINT i = 0; i < 0x10000; ++i) {
        const UINT number = (first + i) & 0xffff;
        if (number == 0)
            continue;
        compose(number);
        std::string path;
        if (!ToSystemPath(name, path))
            return 0;
        // The folder is shared, so the file is readable by its owner only.
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (file >= 0) {
            close(file);
            return number;
        }
        if (errno != EEXIST) {
            SetLastError(PathErrorFromErrno(errno, path));
            return 0;
        }
    }
    return 0;
} catch (const std::bad_alloc&) {
    return OutOfMemory();
}

BOOL PathAppendW(LPWSTR path, LPCWSTR more) try {
    if (path == nullptr || more == nullptr)
        return FALSE;
    const std::u16string_view start(path);
    std::u16string_view added(more);
    while (!added.empty() && IsSeparator(added[0]))
        added.remove_prefix(1);
    std::u16string result;
    AppendParts(result, start);
    AppendParts(result, added);
    const std::u16string_view last = added.empty() ? start : added;
    if (result.empty() || (!last.empty() && IsSeparator(last.back())))
        result.push_back(u'/');
    if ((start.empty() || !IsSeparator(start[0])) && result.size() > 1)
        result.erase(0, 1);
    const bool fits = CopyTextResult(result, MAX_PATH, path) == result.size();
    if (!fits)
        path[0] = 0;
    return fits;
} catch (const std::bad_alloc&) {
    return FALSE;
}

LPWSTR PathAddBackslashW(LPWSTR path) {
    if (path == nullptr)
        return nullptr;
    const std::size_t length = std::u16string_view(path).size();
    if (length == 0 || IsSeparator(path[length - 1]))
        return path + length;
    if (length + 1 >= MAX_PATH)
        return nullptr;
    path[length] = u'/';
    path[length + 1] = 0;
    return path + length + 1;
}

} // namespace quorvel::win32
