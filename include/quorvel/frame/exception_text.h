// The texts of system errors and of the framework's exceptions.
//
// On failure they return FALSE and an empty text. The texts of the framework's exceptions are
// catalogue texts, in the current language. Any thread.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

class CException;

// The system's own text for an error code (FormatMessageW), without its trailing line end.
QUORVEL_API BOOL AfxGetSystemErrorText(DWORD error, CString& text);
// The error message of the exception, at most 255 characters. FALSE for null. The caller keeps the
// exception.
QUORVEL_API BOOL AfxGetExceptionText(CException* exception, CString& text);

// Causes of CFileException (0 to 14) and CArchiveException (0 to 7). Any other cause has the text
// of cause 1, an unspecified error.
QUORVEL_API BOOL AfxIsValidFileExceptionCause(int cause);
QUORVEL_API BOOL AfxGetFileExceptionErrorMessage(int cause, CString& text);
QUORVEL_API BOOL AfxIsValidArchiveExceptionCause(int cause);
QUORVEL_API BOOL AfxGetArchiveExceptionErrorMessage(int cause, CString& text);

// The texts of exceptions without a cause.
QUORVEL_API BOOL AfxGetResourceExceptionErrorMessage(CString& text);
QUORVEL_API BOOL AfxGetMemoryExceptionErrorMessage(CString& text);
QUORVEL_API BOOL AfxGetNotSupportedExceptionErrorMessage(CString& text);
QUORVEL_API BOOL AfxGetUserExceptionErrorMessage(CString& text);
