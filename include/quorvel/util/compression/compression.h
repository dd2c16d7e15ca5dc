// Compression from one open file into another, for the user to watch.
//
// The compressed form is the zlib stream and nothing else: two bytes of header, the deflated data,
// an Adler-32 trailer. No size is stored beside it, so a caller who needs the sizes keeps them.
// Both functions belong to the user-interface thread.
#pragma once

#include <quorvel/platform/platform.h>

class CFile;

// Compress or decompress from the source's position: to its end, or to the end of the stream. The
// source is read in whole chunks, so that its position is afterwards at or behind the last byte
// that was used. What is written goes to the destination's position, and stays there on failure.
//
// `level` is zlib's: -1 for its own choice, or 0 (none) to 9 (smallest).
//
// TRUE sets the counts to the bytes used of the source and written to the destination, modulo 2^32.
// FALSE leaves both 0; it comes without a message when the source is empty or at its end already,
// and when progress is to be shown and the caption or the status is not a valid string. Any other
// failure is told in a message box of AfxCompressionErrorMessageBox's texts with the exclamation
// icon; a stream that needs a preset dictionary counts as corrupted. What a file throws, whatever
// its type, is caught and its message shown in the same box.
//
// With `showProgress` a box over the main window, on Linux a line on the standard error when that
// is a terminal, shows caption, status and how much of the source is done; an empty status means
// the library's own. Where there is no such place the work goes on without.
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

// Shows what a zlib error means at that stage; "Unknown compression error." where it has no text.
// Only a positive `deflating` means compression. The box's result, or 0 when the text could not be
// loaded.
QUORVEL_API int AfxCompressionErrorMessageBox(BOOL deflating, compressionStage stage, int zlibError,
                                              UINT type);
