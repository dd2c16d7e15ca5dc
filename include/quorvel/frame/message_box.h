// The message boxes that report errors.
//
// Each shows its text through AfxMessageBox, with the type and the help id as they are given and
// the application's name as the title, and returns the button's id, such as IDOK. It returns 0, and
// shows nothing, when there is no text to show: a null text or format, a catalogue id that does not
// load, be it that of a cause, a format that the message formatter refuses. User-interface thread.
#pragma once

#include <quorvel/framework/string.h>

class CException;

QUORVEL_API int AfxErrorMessageBox(const WCHAR* text, UINT type, UINT helpId);
QUORVEL_API int AfxErrorMessageBox(UINT textId, UINT type, UINT helpId);

// printf forms, as CString::Format takes them.
QUORVEL_API int AfxFormatErrorMessageBox(const WCHAR* format, UINT type, UINT helpId, ...);
QUORVEL_API int AfxFormatErrorMessageBox(UINT formatId, UINT type, UINT helpId, ...);
QUORVEL_STRING_INSERTS(int, AfxFormatErrorMessageBox, (const WCHAR* format, UINT type, UINT helpId),
                       (format, type, helpId))
QUORVEL_STRING_INSERTS(int, AfxFormatErrorMessageBox, (UINT formatId, UINT type, UINT helpId),
                       (formatId, type, helpId))

// Inserts of the message formatter (%1, %2, %1!d!), as CString::FormatMessage takes them.
QUORVEL_API int AfxFormatStringErrorMessageBox(const WCHAR* format, UINT type, UINT helpId, ...);
QUORVEL_API int AfxFormatStringErrorMessageBox(UINT formatId, UINT type, UINT helpId, ...);
QUORVEL_STRING_INSERTS(int, AfxFormatStringErrorMessageBox,
                       (const WCHAR* format, UINT type, UINT helpId), (format, type, helpId))
QUORVEL_STRING_INSERTS(int, AfxFormatStringErrorMessageBox, (UINT formatId, UINT type, UINT helpId),
                       (formatId, type, helpId))

// 0 also when the system has no text for the code.
QUORVEL_API int AfxSystemErrorMessageBox(DWORD systemError, UINT type, UINT helpId);

// Shows HTML Help's last error. FALSE, and no box, when there is none, or none with a description;
// always so on Linux, which has no HTML Help.
QUORVEL_API BOOL AfxHtmlHelpErrorMessageBox(UINT type);

// Both report an exception that was caught, and delete it if it is marked for that, shown or not.
// The format is a catalogue text; its inserts are, of a CFileException, the file name as %1 and the
// cause as %2, of any other the cause as %1. FALSE for a null exception.
QUORVEL_API int AfxExceptionMessageBox(CException* exception, UINT formatId, UINT type,
                                       UINT helpId);
// The file name is %1 and the cause %2, whatever the exception. FALSE for a null exception or name.
QUORVEL_API int AfxFileIOExceptionMessageBox(CException* exception, const WCHAR* fileName,
                                             UINT formatId, UINT type, UINT helpId);
