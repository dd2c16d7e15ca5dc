// The message boxes that report errors.
//
// Each shows its text through AfxMessageBox with the given type and help id and with the
// application's name as title, and returns the id of the button, such as IDOK. It returns 0 and
// shows nothing when there is no text: for a null text or format, for a missing catalogue text
// (also that of a cause), and for a format that the formatter refuses. User-interface thread.
#pragma once

#include <quorvel/framework/string.h>

class CException;

// Show the text unchanged.
QUORVEL_API int AfxErrorMessageBox(const WCHAR* text, UINT type, UINT helpId);
QUORVEL_API int AfxErrorMessageBox(UINT textId, UINT type, UINT helpId);

// Formats as CString::Format does (printf).
QUORVEL_API int AfxFormatErrorMessageBox(const WCHAR* format, UINT type, UINT helpId, ...);
QUORVEL_API int AfxFormatErrorMessageBox(UINT formatId, UINT type, UINT helpId, ...);
QUORVEL_STRING_INSERTS(int, AfxFormatErrorMessageBox, (const WCHAR* format, UINT type, UINT helpId),
                       (format, type, helpId))
QUORVEL_STRING_INSERTS(int, AfxFormatErrorMessageBox, (UINT formatId, UINT type, UINT helpId),
                       (formatId, type, helpId))

// Formats as CString::FormatMessage does (%1, %2, %1!d!).
QUORVEL_API int AfxFormatStringErrorMessageBox(const WCHAR* format, UINT type, UINT helpId, ...);
QUORVEL_API int AfxFormatStringErrorMessageBox(UINT formatId, UINT type, UINT helpId, ...);
QUORVEL_STRING_INSERTS(int, AfxFormatStringErrorMessageBox,
                       (const WCHAR* format, UINT type, UINT helpId), (format, type, helpId))
QUORVEL_STRING_INSERTS(int, AfxFormatStringErrorMessageBox, (UINT formatId, UINT type, UINT helpId),
                       (formatId, type, helpId))

// Also returns 0 when the system has no text for the code.
QUORVEL_API int AfxSystemErrorMessageBox(DWORD systemError, UINT type, UINT helpId);

// Shows HTML Help's last error. Returns FALSE and shows no box when there is no error with a
// description. On Linux, which has no HTML Help, it always returns FALSE.
QUORVEL_API BOOL AfxHtmlHelpErrorMessageBox(UINT type);

// Both report a caught exception and then call its Delete, even if no box was shown. The format is
// a catalogue text. For a CFileException %1 is the file name and %2 the cause; for any other
// exception %1 is the cause. FALSE for a null exception.
QUORVEL_API int AfxExceptionMessageBox(CException* exception, UINT formatId, UINT type,
                                       UINT helpId);
// %1 is the file name and %2 the cause for every exception. FALSE for a null exception or name.
QUORVEL_API int AfxFileIOExceptionMessageBox(CException* exception, const WCHAR* fileName,
                                             UINT formatId, UINT type, UINT helpId);
