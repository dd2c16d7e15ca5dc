// Creates temporary files.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

// Creates an empty file with a unique name in the temporary folder (GetTempPathW) and returns its
// full path in `fileName`. The caller owns the file and deletes it. On failure (no such folder, or
// the file cannot be created) it shows the system's error in a box with a stop icon, returns FALSE
// and leaves `fileName` unchanged. User-interface thread.
QUORVEL_API BOOL AfxGenerateTempFolderFileName(CString& fileName);
