#include "platform/linux/system/desktop_opener.h"

#include "platform/linux/files/path.h"
#include "platform/linux/system/program.h"
#include "platform/linux/system/system_error.h"

#include <sys/stat.h>

#include <algorithm>
#include <cctype>

namespace quorvel {

namespace {

constexpr auto kPatience = std::chrono::seconds(5);

bool IsEmpty(LPCWSTR text) {
    return text == nullptr || text[0] == 0;
}

// Whether the text begins with a scheme. A drive letter is not a scheme.
bool IsAddress(const WCHAR* text) {
    const WCHAR* end = text;
    while (*end < 0x80 && (std::isalnum(*end) != 0 || *end == '+' || *end == '-' || *end == '.'))
        ++end;
    return *end == ':' && end - text > 1 && *text < 0x80 && std::isalpha(*text) != 0;
}

bool Exists(const std::string& path, const std::string& folder) {
    struct stat status;
    const std::string whole = path[0] == '/' || folder.empty() ? path : folder + '/' + path;
    return stat(whole.c_str(), &status) == 0;
}

// The exit codes in the documentation of xdg-open.
DWORD ErrorOf(const ProgramRun& run) {
    if (run.end == ProgramRun::StillRunning)
        return ERROR_SUCCESS;
    if (run.end == ProgramRun::NotStarted)
        return ERROR_NO_ASSOCIATION;
    if (run.end != ProgramRun::Exited)
        return ERROR_GEN_FAILURE;
    switch (run.exitCode) {
    case 0:
        return ERROR_SUCCESS;
    case 2:
        return ERROR_FILE_NOT_FOUND;
    case 3:
        return ERROR_NO_ASSOCIATION;
    default:
        return ERROR_GEN_FAILURE;
    }
}

// Converts the text to UTF-8, with the system's separators for a path.
bool ToArgument(const WCHAR* text, bool isAddress, std::string& argument) {
    if (!isAddress)
        return ToSystemPath(text, argument);
    const int size = win32::WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text, -1, nullptr, 0,
                                                nullptr, nullptr);
    if (size == 0)
        return false;
    argument.resize(static_cast<std::size_t>(size));
    win32::WideCharToMultiByte(CP_UTF8, 0, text, -1, argument.data(), size, nullptr, nullptr);
    argument.pop_back(); // the terminator
    return true;
}

} // namespace

BOOL win32::ShellExecuteExW(SHELLEXECUTEINFOW* info) {
    if (IsEmpty(info->lpFile))
        return FailWith(ERROR_INVALID_PARAMETER);
    if (!IsEmpty(info->lpVerb) || !IsEmpty(info->lpParameters))
        return FailWith(ERROR_NOT_SUPPORTED);
    std::string folder;
    if (!IsEmpty(info->lpDirectory) && !ToSystemPath(info->lpDirectory, folder))
        return FALSE;
    std::string argument;
    const bool isAddress = IsAddress(info->lpFile);
    if (!ToArgument(info->lpFile, isAddress, argument))
        return FailWith(ERROR_INVALID_PARAMETER);
    if (!isAddress && !Exists(argument, folder))
        return FailWith(ERROR_FILE_NOT_FOUND);
    if (argument[0] == '-') // it would be an option
        argument.insert(0, "./");
    const DWORD error = ErrorOf(RunProgram({"xdg-open", argument}, folder, kPatience));
    return error == ERROR_SUCCESS || FailWith(error);
}

} // namespace quorvel
