#include <quorvel/framework/exceptions.h>

#include <quorvel/framework/app.h>
#include <quorvel/res/message_ids.h>

#include "framework/cause_text.h"
#include "platform/win32.h"

#include <iterator>
#include <new>

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CSimpleException, CException)
IMPLEMENT_DYNAMIC(CMemoryException, CSimpleException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CSimpleException)
IMPLEMENT_DYNAMIC(CResourceException, CSimpleException)
IMPLEMENT_DYNAMIC(CUserException, CSimpleException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CSimpleException)
IMPLEMENT_DYNAMIC(CFileException, CException)
IMPLEMENT_DYNAMIC(CArchiveException, CException)

namespace {

BOOL LoadMessage(UINT textId, LPWSTR text, UINT maxChars, UINT* helpContext) {
    if (text == nullptr || maxChars == 0)
        return FALSE;
    if (helpContext != nullptr)
        *helpContext = 0;
    return AfxLoadString(textId, text, maxChars) > 0;
}

// The catalogue has the texts of causes in the order of their numbers.
UINT CauseText(UINT firstText, int cause, int lastCause) {
    const bool known = cause >= 0 && cause <= lastCause;
    return firstText + static_cast<UINT>(known ? cause : int{CFileException::genericException});
}
static_assert(int{CFileException::genericException} == int{CArchiveException::genericException});

// An exception that is created before it is needed. It outlives every destructor that may throw it.
template <class Exception>
[[noreturn]] void ThrowStatic() {
    alignas(Exception) static unsigned char s_storage[sizeof(Exception)];
    static Exception* const s_exception = new (s_storage) Exception(FALSE);
    throw s_exception;
}

struct ErrorCause {
    DWORD error;
    int cause;
};
constexpr ErrorCause kErrorCauses[] = {
    {NO_ERROR, CFileException::none},
    {ERROR_FILE_NOT_FOUND, CFileException::fileNotFound},
    {ERROR_PATH_NOT_FOUND, CFileException::badPath},
    {ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles},
    {ERROR_ACCESS_DENIED, CFileException::accessDenied},
    {ERROR_INVALID_HANDLE, CFileException::invalidFile},
    {ERROR_BAD_FORMAT, CFileException::invalidFile},
    {ERROR_INVALID_ACCESS, CFileException::accessDenied},
    {ERROR_INVALID_DATA, CFileException::invalidFile},
    {ERROR_INVALID_DRIVE, CFileException::badPath},
    {ERROR_CURRENT_DIRECTORY, CFileException::removeCurrentDir},
    {ERROR_NOT_SAME_DEVICE, CFileException::badPath},
    {ERROR_NO_MORE_FILES, CFileException::fileNotFound},
    {ERROR_WRITE_PROTECT, CFileException::accessDenied},
    {ERROR_NOT_READY, CFileException::hardIO},
    {ERROR_CRC, CFileException::hardIO},
    {ERROR_SEEK, CFileException::badSeek},
    {ERROR_WRITE_FAULT, CFileException::hardIO},
    {ERROR_READ_FAULT, CFileException::hardIO},
    {ERROR_SHARING_VIOLATION, CFileException::sharingViolation},
    {ERROR_LOCK_VIOLATION, CFileException::lockViolation},
    {ERROR_HANDLE_EOF, CFileException::endOfFile},
    {ERROR_HANDLE_DISK_FULL, CFileException::diskFull},
    {ERROR_NOT_SUPPORTED, CFileException::accessDenied},
    {ERROR_FILE_EXISTS, CFileException::accessDenied},
    {ERROR_CANNOT_MAKE, CFileException::directoryFull},
    {ERROR_BUFFER_OVERFLOW, CFileException::badPath},
    {ERROR_DISK_FULL, CFileException::diskFull},
    {ERROR_INVALID_NAME, CFileException::badPath},
    {ERROR_NEGATIVE_SEEK, CFileException::badSeek},
    {ERROR_SEEK_ON_DEVICE, CFileException::badSeek},
    {ERROR_DIR_NOT_EMPTY, CFileException::accessDenied},
    {ERROR_BAD_PATHNAME, CFileException::badPath},
    {ERROR_ALREADY_EXISTS, CFileException::accessDenied},
    {ERROR_FILENAME_EXCED_RANGE, CFileException::badPath},
    {ERROR_DIRECTORY, CFileException::badPath},
    {ERROR_IO_DEVICE, CFileException::hardIO},
};

} // namespace

UINT quorvel::FileCauseText(int cause) {
    return CauseText(kTextFileCauseNone, cause, CFileException::endOfFile);
}
UINT quorvel::ArchiveCauseText(int cause) {
    return CauseText(kTextArchiveCauseNone, cause, CArchiveException::badSchema);
}

CException::CException(BOOL autoDelete) : m_bAutoDelete(autoDelete) {}

void CException::Delete() {
    if (m_bAutoDelete)
        delete this;
}

BOOL CException::GetErrorMessage(LPWSTR text, UINT maxChars, UINT* helpContext) {
    if (helpContext != nullptr)
        *helpContext = 0;
    if (text != nullptr && maxChars > 0)
        *text = 0;
    return FALSE;
}

int CException::ReportError(UINT type, UINT textId) {
    WCHAR text[512];
    UINT helpContext = 0;
    if (GetErrorMessage(text, static_cast<UINT>(std::size(text)), &helpContext))
        return AfxMessageBox(text, type, helpContext);
    return AfxMessageBox(textId != 0 ? textId : UINT{quorvel::kTextExceptionUser}, type);
}

CSimpleException::CSimpleException(BOOL autoDelete, UINT textId)
    : CException(autoDelete), m_textId(textId) {}

BOOL CSimpleException::GetErrorMessage(LPWSTR text, UINT maxChars, UINT* helpContext) {
    return LoadMessage(m_textId, text, maxChars, helpContext);
}

CMemoryException::CMemoryException(BOOL autoDelete)
    : CSimpleException(autoDelete, quorvel::kTextExceptionMemory) {}
CNotSupportedException::CNotSupportedException(BOOL autoDelete)
    : CSimpleException(autoDelete, quorvel::kTextExceptionNotSupported) {}
CResourceException::CResourceException(BOOL autoDelete)
    : CSimpleException(autoDelete, quorvel::kTextExceptionResource) {}
CUserException::CUserException(BOOL autoDelete)
    : CSimpleException(autoDelete, quorvel::kTextExceptionUser) {}
CInvalidArgException::CInvalidArgException(BOOL autoDelete)
    : CSimpleException(autoDelete, quorvel::kTextExceptionUser) {}

CFileException::CFileException(int cause, LONG osError, const WCHAR* fileName)
    : m_cause(cause), m_lOsError(osError), m_strFileName(fileName) {}

BOOL CFileException::GetErrorMessage(LPWSTR text, UINT maxChars, UINT* helpContext) {
    return LoadMessage(quorvel::FileCauseText(m_cause), text, maxChars, helpContext);
}

int CFileException::OsErrorToException(LONG osError) {
    for (const ErrorCause& row : kErrorCauses)
        if (row.error == static_cast<DWORD>(osError))
            return row.cause;
    return genericException;
}

void CFileException::ThrowOsError(LONG osError, const WCHAR* fileName) {
    if (osError != 0)
        AfxThrowFileException(OsErrorToException(osError), osError, fileName);
}

CArchiveException::CArchiveException(int cause, const WCHAR* fileName)
    : m_cause(cause), m_strFileName(fileName) {}

BOOL CArchiveException::GetErrorMessage(LPWSTR text, UINT maxChars, UINT* helpContext) {
    return LoadMessage(quorvel::ArchiveCauseText(m_cause), text, maxChars, helpContext);
}

void AfxThrowMemoryException() {
    ThrowStatic<CMemoryException>();
}
void AfxThrowNotSupportedException() {
    ThrowStatic<CNotSupportedException>();
}
void AfxThrowResourceException() {
    ThrowStatic<CResourceException>();
}
void AfxThrowUserException() {
    ThrowStatic<CUserException>();
}
void AfxThrowInvalidArgException() {
    ThrowStatic<CInvalidArgException>();
}
void AfxThrowFileException(int cause, LONG osError, const WCHAR* fileName) {
    throw new CFileException(cause, osError, fileName);
}
void AfxThrowArchiveException(int cause, const WCHAR* fileName) {
    throw new CArchiveException(cause, fileName);
}
