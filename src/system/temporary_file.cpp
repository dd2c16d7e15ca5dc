#include <quorvel/system/temporary_file.h>

#include <quorvel/frame/message_box.h>

#include "platform/win32.h"
#include "system/new_temporary_file.h"

DWORD quorvel::NewTemporaryFile(CString& fileName) {
    WCHAR folder[MAX_PATH + 1];
    WCHAR name[MAX_PATH];
    const DWORD length = GetTempPathW(MAX_PATH + 1, folder);
    if (length > MAX_PATH) // the size that is needed; there is no error code
        return ERROR_BUFFER_OVERFLOW;
    if (length == 0 || GetTempFileNameW(folder, _T("qvl"), 0, name) == 0)
        return GetLastError();
    fileName = name;
    return 0;
}

BOOL AfxGenerateTempFolderFileName(CString& fileName) {
    const DWORD error = quorvel::NewTemporaryFile(fileName);
    if (error != 0)
        AfxSystemErrorMessageBox(error, MB_OK | MB_ICONSTOP, 0);
    return error == 0;
}
