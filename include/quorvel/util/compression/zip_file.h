// Zip archives: opening one, adding files, closing it.
//
// Names go into an archive in the active code page; where that is UTF-8, as it always is on Linux,
// the entry says so. The archive's own path goes through that code page too: one that it cannot
// hold is a path that does not exist. An archive is used by one thread at a time.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

// The archive, for AfxCloseZipFile to close. `append` is 0 for a new archive, which replaces a file
// of that name, 1 to write one behind what the file holds (as a self-extracting program), and 2 to
// add to an archive. On failure it is null, and the last error says why: ERROR_INVALID_PARAMETER
// for a null path, ERROR_INVALID_DATA for a damaged archive to add to, otherwise the system's.
QUORVEL_API void* AfxOpenZipFile(const WCHAR* path, int append);
// Writes the archive's table of contents, without a comment. 0, or a zip error code.
QUORVEL_API int AfxCloseZipFile(void* zip);

// Deliberate: for -1, a failed system call, it is the C runtime's text of error 0 and not that of
// the error that occurred.
QUORVEL_API CString AfxGetZipErrorText(int zipError);

// Adds a file as `nameInZip`, or under its whole path when that is null, as it stands. The entry's
// time is now, in UTC. Levels are zlib's, -1 to 9. 0, or a zip error code with its text: -104 with
// the file's own error when the source cannot be opened or read. An entry that was begun stays in
// the archive, with what was written so far. On success `errorText` is unchanged.
QUORVEL_API int AfxAddFileToZipFile(void* zip, const WCHAR* sourcePath, const WCHAR* nameInZip,
                                    int level, CString& errorText);

// Makes a new archive that holds the source under its bare name. FALSE, with the reason in
// `errorText`, for a null path and when anything fails; the archive is then closed and stays as
// far as it was written. An archive that is the source itself is refused.
QUORVEL_API BOOL AfxCompressFileToZipFile(const WCHAR* sourcePath, const WCHAR* zipPath, int level,
                                          CString& errorText);
