// Compression from one open file into another, with a display of the progress.
//
// The output is a plain zlib stream: two bytes of header, the deflated data, and an Adler-32
// trailer. It does not contain the sizes; a caller who needs them must store them. Both functions
// are for the user-interface thread.
#pragma once

#include <quorvel/platform/platform.h>

class CFile;

// Compress or decompress from the source's position, to its end or to the end of the stream. The
// source is read in chunks, so its final position is at or beyond the last byte used. Output starts
// at the destination's position. On failure, what was written stays.
//
// `level` is zlib's: -1 for its default, or 0 (no compression) to 9 (smallest).
//
// TRUE sets the counts to the bytes used of the source and the bytes written to the destination,
// modulo 2^32. FALSE sets both to 0. It is silent when the source is empty or at its end, and when
// `showProgress` is set and the caption or the status is not a valid string. Any other failure is
// shown in a message box with the texts of AfxCompressionErrorMessageBox and the exclamation icon;
// a stream that needs a preset dictionary counts as corrupted. Exceptions of the files, of any
// type, are caught and shown in the same box.
//
// With `showProgress` the progress is shown with the caption and the status: in a box over the main
// window; on Linux as a line on the standard error if that is a terminal. An empty status means the
// library's own text. Where neither is possible, the function runs without a display.
QUORVEL_API BOOL AfxDeflate(CFile& source, DWORD& bytesRead, CFile& destination,
                            DWORD& bytesWritten, int level, BOOL showProgress, const WCHAR* caption,
                            const WCHAR* status);
QUORVEL_API BOOL AfxInflate(CFile& source, DWORD& bytesRead, CFile& destination,
                            DWORD& bytesWritten, BOOL showProgress, const WCHAR* caption,
                            const WCHAR* status);

// What zlib was doing when it failed.
enum compressionStage {
    compressionStageInitialize = 0,
    compressionStageRun = 1, // compressing or decompressing
    compressionStageEnd = 2
};

// Shows the meaning of a zlib error at that stage, or "Unknown compression error." Only a positive
// `deflating` means compression. Returns the id of the button, or 0 when the text could not be
// loaded.
QUORVEL_API int AfxCompressionErrorMessageBox(BOOL deflating, compressionStage stage, int zlibError,
                                              UINT type);
