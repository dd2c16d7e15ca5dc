// Zip archives: open one, add files, close it.
//
// Entry names are stored in the active code page; where that is UTF-8, as always on Linux, the
// entry is marked as UTF-8. The archive's own path is converted to that code page too; a path that
// it cannot hold counts as missing. One thread at a time may use an archive.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

// Returns the archive, to be closed with AfxCloseZipFile. `append` is 0 for a new archive, which
// replaces the file; 1 to write an archive after the file's content (self-extracting programs); 2
// to add to an archive. On failure returns null and sets the last error: ERROR_INVALID_PARAMETER
// for a null path, ERROR_INVALID_DATA for a damaged archive to add to, or the system's.
QUORVEL_API void* AfxOpenZipFile(const WCHAR* path, int append);
// Writes the archive's table of contents, without a comment. Returns 0 or a zip error code.
QUORVEL_API int AfxCloseZipFile(void* zip);

// The text of a zip error code. Deliberate: for -1, a failed system call, it is the C runtime's
// text of error 0, not the text of the error that occurred.
QUORVEL_API CString AfxGetZipErrorText(int zipError);

// Adds a file under `nameInZip`, or under `sourcePath` unchanged when that is null. The time of the
// entry is the current time in UTC. `level` is zlib's, -1 to 9. Returns 0, or a zip error code with
// its text; for a source that cannot be opened or read -104, with the text of the file's exception.
// An entry that was begun stays, with what was written. On success `errorText` is unchanged.
QUORVEL_API int AfxAddFileToZipFile(void* zip, const WCHAR* sourcePath, const WCHAR* nameInZip,
                                    int level, CString& errorText);

// Creates a new archive that contains the source under its bare file name. For a null path, and
// when anything fails, returns FALSE with the reason in `errorText`; the archive is then closed and
// keeps what was written. An archive that is the source itself is refused.
QUORVEL_API BOOL AfxCompressFileToZipFile(const WCHAR* sourcePath, const WCHAR* zipPath, int level,
                                          CString& errorText);
