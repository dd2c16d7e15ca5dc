// The texts of system errors and of the framework's exceptions.
//
// A text is emptied first; FALSE, with the text empty, when there is none. The texts of the
// framework's exceptions are catalogue texts, in the language that is set. Any thread.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

class CException;

// The system's own text of an error code (FormatMessageW), without the line end it comes with.
QUORVEL_API BOOL AfxGetSystemErrorText(DWORD error, CString& text);
// What the exception says of itself, its first 255 characters; FALSE for null. The exception stays
// the caller's.
QUORVEL_API BOOL AfxGetExceptionText(CException* exception, CString& text);

// Causes of CFileException (0 to 14) and CArchiveException (0 to 7). Another cause has the text of
// cause 1, an unspecified error.
QUORVEL_API BOOL AfxIsValidFileExceptionCause(int cause);
QUORVEL_API BOOL AfxGetFileExceptionErrorMessage(int cause, CString& text);
QUORVEL_API BOOL AfxIsValidArchiveExceptionCause(int cause);
QUORVEL_API BOOL AfxGetArchiveExceptionErrorMessage(int cause, CString& text);

QUORVEL_API BOOL AfxGetResourceExceptionErrorMessage(CString& text);
QUORVEL_API BOOL AfxGetMemoryExceptionErrorMessage(CString& text);
QUORVEL_API BOOL AfxGetNotSupportedExceptionErrorMessage(CString& text);
QUORVEL_API BOOL AfxGetUserExceptionErrorMessage(CString& text);
