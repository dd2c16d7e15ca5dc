#include <quorvel/system/open_file.h>

#include <quorvel/frame/message_box.h>

#include "platform/shell_execute.h"

namespace {

const WCHAR* NullIfEmpty(const WCHAR* text) {
    return text != nullptr && text[0] != 0 ? text : nullptr;
}

} // namespace

BOOL AfxOpenFile(const WCHAR* file, const WCHAR* parameters, const WCHAR* directory,
                 BOOL showError) {
    if (NullIfEmpty(file) == nullptr)
        return FALSE;
    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC; // the program may end right afterwards
    info.lpFile = file;
    info.lpParameters = NullIfEmpty(parameters);
    info.lpDirectory = NullIfEmpty(directory);
    info.nShow = SW_SHOWNORMAL;
    if (ShellExecuteExW(&info))
        return TRUE;
    const DWORD error = GetLastError();
    if (showError && error != ERROR_CANCELLED)
        AfxSystemErrorMessageBox(error, MB_OK | MB_ICONEXCLAMATION, 0);
    SetLastError(error);
    return FALSE;
}
