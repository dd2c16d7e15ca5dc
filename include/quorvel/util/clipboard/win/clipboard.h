// Text and bitmaps on the system clipboard. Windows only, user-interface thread.
//
// Each function opens the clipboard without an owner window and closes it before it returns, except
// AfxEmptyClipboardOnExit. A call whose arguments are valid and that then fails shows a box with
// the system's text (exclamation mark, no help). A copy first empties the clipboard, which stays
// empty if the copy fails. While another program holds the clipboard open, nothing changes.
#pragma once

#include <quorvel/framework/string.h>

class CBitmap;

// A null or empty text returns FALSE without a box and leaves the clipboard unchanged. For readers,
// the system converts between 8-bit text and Unicode text with the code page of the keyboard's
// language at the time of the copy (CF_LOCALE). Prefer the Unicode form.
QUORVEL_API BOOL AfxCopyAnsiTextToClipboard(const char* text);
QUORVEL_API BOOL AfxCopyUnicodeTextToClipboard(const WCHAR* text);
QUORVEL_API BOOL AfxCopyTextToClipboard(const WCHAR* text); // the same as Unicode

// The text up to its terminator; without a terminator the whole memory block, except an odd
// last byte. Returns FALSE with an empty text when there is no text or the clipboard cannot be
// read.
QUORVEL_API BOOL AfxGetTextFromClipboard(CString& text);

// Places a copy of the same size; the caller keeps the bitmap. The copy of a plain bitmap has the
// same depth. The copy of a bitmap section is a plain bitmap of the screen's depth, since the
// memory of a section belongs to this process. FALSE without a box for null and for a handle that
// is not a bitmap. A bitmap section selected into a device context cannot be read and is refused
// with a box: select another bitmap first.
QUORVEL_API BOOL AfxCopyBitmapToClipboard(CBitmap* bitmap);
QUORVEL_API BOOL AfxCopyBitmapToClipboard(HBITMAP bitmap);

// Gives the object a copy of the clipboard's bitmap, which it owns. The object's old bitmap is
// always deleted, so after a failure the object is empty. FALSE without a box for null.
QUORVEL_API BOOL AfxGetBitmapFromClipboard(CBitmap* bitmap);

// For use just before the process ends: removes its data of that format from the clipboard.
// `exitAction` is one of quorvel::ClipboardExit. Asking needs the application's name; any answer
// but Yes keeps the data. Returns FALSE and does nothing for other actions, and without a name to
// ask with; otherwise TRUE, even after a box reported that emptying the clipboard failed.
//
// Deliberate: after it was emptied, the clipboard stays open until the process ends.
QUORVEL_API BOOL AfxEmptyClipboardOnExit(UINT clipboardFormat, UINT exitAction,
                                         const WCHAR* applicationName);
