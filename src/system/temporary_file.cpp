#include <quorvel/system/temporary_file.h>

#include <quorvel/frame/message_box.h>

#include "platform/win32.h"

BOOL AfxGenerateTempFolderFileName(CString& fileName) {
    WCHAR folder[MAX_PATH + 1];
    WCHAR name[MAX_PATH];
    const DWORD length = GetTempPathW(MAX_PATH + 1, folder);
    if (length > MAX_PATH) // the size that would do, and no error code
        SetLastError(ERROR_BUFFER_OVERFLOW);
    if (length == 0 || length > MAX_PATH || GetTempFileNameW(folder, _T("qvl"), 0, name) == 0) {
        AfxSystemErrorMessageBox(GetLastError(), MB_OK | MB_ICONSTOP, 0);
        return FALSE;
    }
    fileName = name;
    return TRUE;
}
