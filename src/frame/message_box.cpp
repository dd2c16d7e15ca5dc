#include <quorvel/frame/message_box.h>

#include <quorvel/frame/exception_text.h>
#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "frame/html_help.h"
#include "platform/win32.h"

#include <memory>

namespace {

struct DeleteException {
    void operator()(CException* exception) const { exception->Delete(); }
};
typedef std::unique_ptr<CException, DeleteException> CaughtException;

// Shows the text that `compose` writes. Catches the framework's exceptions from `compose` (a format
// that is refused, no memory), but not those from the host's message box.
template <class Compose>
int ShowComposed(UINT type, UINT helpId, Compose compose) {
    CString text;
    try {
        if (!compose(text))
            return 0;
    } catch (CException* exception) {
        exception->Delete();
        return 0;
    }
    return AfxMessageBox(text, type, helpId);
}

bool FormatText(CString& text, const WCHAR* format, va_list* arguments) {
    if (!AfxIsValidString(format))
        return false;
    text.FormatV(format, *arguments);
    return true;
}

bool FormatInserts(CString& text, const WCHAR* format, va_list* arguments) {
    if (!AfxIsValidString(format))
        return false;
    text.FormatMessageV(format, arguments);
    return true;
}

// The exceptions whose text depends on their class alone.
struct SimpleCause {
    const CRuntimeClass* exceptionClass;
    BOOL (*getText)(CString& text);
};
const SimpleCause kSimpleCauses[] = {
    {RUNTIME_CLASS(CResourceException), AfxGetResourceExceptionErrorMessage},
    {RUNTIME_CLASS(CMemoryException), AfxGetMemoryExceptionErrorMessage},
    {RUNTIME_CLASS(CNotSupportedException), AfxGetNotSupportedExceptionErrorMessage},
    {RUNTIME_CLASS(CUserException), AfxGetUserExceptionErrorMessage},
};

const CFileException* AsFileException(const CException* exception) {
    return exception->IsKindOf(RUNTIME_CLASS(CFileException))
               ? static_cast<const CFileException*>(exception)
               : nullptr;
}

// Returns false when the catalogue lacks the text. A host's own exception may have no text.
bool LoadCauseText(CException* exception, CString& text) {
    if (const CFileException* file = AsFileException(exception))
        return AfxGetFileExceptionErrorMessage(file->m_cause, text);
    if (exception->IsKindOf(RUNTIME_CLASS(CArchiveException))) {
        const auto* archive = static_cast<const CArchiveException*>(exception);
        return AfxGetArchiveExceptionErrorMessage(archive->m_cause, text);
    }
    for (const SimpleCause& row : kSimpleCauses)
        if (exception->IsKindOf(row.exceptionClass))
            return row.getText(text);
    AfxGetExceptionText(exception, text);
    return true;
}

} // namespace

int AfxErrorMessageBox(const WCHAR* text, UINT type, UINT helpId) {
    return AfxIsValidString(text) ? AfxMessageBox(text, type, helpId) : 0;
}

int AfxErrorMessageBox(UINT textId, UINT type, UINT helpId) {
    return ShowComposed(type, helpId, [=](CString& text) { return text.LoadString(textId); });
}

int AfxFormatErrorMessageBox(const WCHAR* format, UINT type, UINT helpId, ...) {
    va_list arguments;
    va_start(arguments, helpId);
    const int result = ShowComposed(
        type, helpId, [&](CString& text) { return FormatText(text, format, &arguments); });
    va_end(arguments);
    return result;
}

int AfxFormatErrorMessageBox(UINT formatId, UINT type, UINT helpId, ...) {
    va_list arguments;
    va_start(arguments, helpId);
    const int result = ShowComposed(type, helpId, [&](CString& text) {
        CString format;
        return format.LoadString(formatId) && FormatText(text, format, &arguments);
    });
    va_end(arguments);
    return result;
}

int AfxFormatStringErrorMessageBox(const WCHAR* format, UINT type, UINT helpId, ...) {
    va_list arguments;
    va_start(arguments, helpId);
    const int result = ShowComposed(
        type, helpId, [&](CString& text) { return FormatInserts(text, format, &arguments); });
    va_end(arguments);
    return result;
}

int AfxFormatStringErrorMessageBox(UINT formatId, UINT type, UINT helpId, ...) {
    va_list arguments;
    va_start(arguments, helpId);
    const int result = ShowComposed(type, helpId, [&](CString& text) {
        CString format;
        return format.LoadString(formatId) && FormatInserts(text, format, &arguments);
    });
    va_end(arguments);
    return result;
}

int AfxSystemErrorMessageBox(DWORD systemError, UINT type, UINT helpId) {
    return ShowComposed(type, helpId, [=](CString& text) {
        CString errorText;
        if (!AfxGetSystemErrorText(systemError, errorText))
            return false;
        text.FormatMessage(quorvel::kTextSystemError, errorText.GetString());
        return true;
    });
}

BOOL quorvel::ShowHtmlHelpError(BOOL (*query)(HtmlHelpError&), UINT type) {
    HtmlHelpError error;
    if (!query(error) || error.code >= 0 || error.description.IsEmpty())
        return FALSE;
    return AfxFormatStringErrorMessageBox(kTextErrorHtmlHelp, type, 0,
                                          error.description.GetString()) != 0;
}

BOOL AfxHtmlHelpErrorMessageBox(UINT type) {
    return quorvel::ShowHtmlHelpError(quorvel::QueryHtmlHelpError, type);
}

int AfxExceptionMessageBox(CException* exception, UINT formatId, UINT type, UINT helpId) {
    if (exception == nullptr)
        return FALSE;
    const CaughtException owner(exception);
    return ShowComposed(type, helpId, [=](CString& text) {
        CString cause;
        if (!LoadCauseText(exception, cause))
            return false;
        if (const CFileException* file = AsFileException(exception))
            text.FormatMessage(formatId, file->m_strFileName.GetString(), cause.GetString());
        else
            text.FormatMessage(formatId, cause.GetString());
        return true;
    });
}

int AfxFileIOExceptionMessageBox(CException* exception, const WCHAR* fileName, UINT formatId,
                                 UINT type, UINT helpId) {
    if (exception == nullptr)
        return FALSE;
    const CaughtException owner(exception);
    if (!AfxIsValidString(fileName))
        return FALSE;
    return ShowComposed(type, helpId, [=](CString& text) {
        CString cause;
        if (!LoadCauseText(exception, cause))
            return false;
        text.FormatMessage(formatId, fileName, cause.GetString());
        return true;
    });
}
