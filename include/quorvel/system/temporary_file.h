// A file for passing use in the system's temporary folder.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

// Creates an empty file with a name that no other has in the temporary folder (GetTempPathW) and
// gives its full path. The file is the caller's, to delete as well. FALSE, with the name as it was,
// when there is no such folder or nothing can be created in it; the system's error is then shown in
// a box with a stop icon. User-interface thread.
QUORVEL_API BOOL AfxGenerateTempFolderFileName(CString& fileName);
