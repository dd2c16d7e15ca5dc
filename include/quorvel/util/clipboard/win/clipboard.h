// Text and bitmaps on the system clipboard. Windows only, user-interface thread.
//
// Each function opens the clipboard without an owner window, for the length of the call, except
// AfxEmptyClipboardOnExit. A call that fails after its arguments were accepted shows a box with the
// system's text (exclamation mark, no help); a function that copies then usually leaves the
// clipboard as it was, since the copy is made before the clipboard is emptied.
#pragma once

#include <quorvel/framework/string.h>

class CBitmap;

// FALSE without a box, and the clipboard untouched, for a null or empty text. The system offers
// 8-bit text, which is in the active code page, as Unicode text too, and the other way round.
QUORVEL_API BOOL AfxCopyAnsiTextToClipboard(const char* text);
QUORVEL_API BOOL AfxCopyUnicodeTextToClipboard(const WCHAR* text);
QUORVEL_API BOOL AfxCopyTextToClipboard(const WCHAR* text); // the same as Unicode

// The text up to its terminator; where the block of memory has none, the whole block, less the last
// byte of an odd size. FALSE, and an empty text, when there is no text or the clipboard cannot be
// read.
QUORVEL_API BOOL AfxGetTextFromClipboard(CString& text);

// A copy is placed, of the same size, depth and colour table; the bitmap stays the caller's. FALSE
// without a box for null and for what is no bitmap. A bitmap section that is selected into a device
// context cannot be read and is refused with a box: select another bitmap there first.
QUORVEL_API BOOL AfxCopyBitmapToClipboard(CBitmap* bitmap);
QUORVEL_API BOOL AfxCopyBitmapToClipboard(HBITMAP bitmap);

// Makes the object own a copy of the clipboard's bitmap. What it had before is deleted in any case,
// so that it is empty after a failure. FALSE without a box for null.
QUORVEL_API BOOL AfxGetBitmapFromClipboard(CBitmap* bitmap);

// For the last moments of the process: removes what it left on the clipboard in that format.
// `exitAction` is one of quorvel::ClipboardExit; to ask needs the application's name, and any
// answer but Yes keeps the data. FALSE, and nothing done, for another action and for asking without
// a name; otherwise TRUE, also when a box reported that the clipboard could not be emptied.
//
// Deliberate: the clipboard stays open after it was emptied, until the process ends.
QUORVEL_API BOOL AfxEmptyClipboardOnExit(UINT clipboardFormat, UINT exitAction,
                                         const WCHAR* applicationName);
