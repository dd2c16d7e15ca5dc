// The framework's exceptions. Any thread; an object on one thread at a time.
//
// Throw and catch exceptions as pointers. Whoever catches one and does not rethrow it calls
// Delete(). Exceptions that must not need memory are static objects, which Delete leaves alone.
// GetErrorMessage returns the catalogue text of the cause.
#pragma once

#include <quorvel/framework/object.h>
#include <quorvel/framework/string.h>

class QUORVEL_API CException : public CObject { // the base of all
    DECLARE_DYNAMIC(CException)
public:
    explicit CException(BOOL autoDelete = TRUE); // FALSE: a static object

    void Delete(); // deletes the object when m_bAutoDelete is set
    // Writes at most `maxChars` characters, including the terminator, and sets *helpContext, unless
    // it is null, to 0. Returns FALSE with an empty text when there is no text or no room.
    virtual BOOL GetErrorMessage(LPWSTR text, UINT maxChars, UINT* helpContext = nullptr);
    // Shows the error message, or the catalogue text when it is empty. Returns the button's id.
    virtual int ReportError(UINT type = MB_OK, UINT textId = 0);

    BOOL m_bAutoDelete; // what the constructor was given
};

// An exception identified by its class alone: no cause, no file name.
class QUORVEL_API CSimpleException : public CException {
    DECLARE_DYNAMIC(CSimpleException)
public:
    BOOL GetErrorMessage(LPWSTR text, UINT maxChars, UINT* helpContext = nullptr) override;

protected:
    CSimpleException(BOOL autoDelete, UINT textId); // the id of the catalogue text

private:
    const UINT m_textId;
};

class QUORVEL_API CMemoryException : public CSimpleException { // no memory
    DECLARE_DYNAMIC(CMemoryException)
public:
    explicit CMemoryException(BOOL autoDelete = TRUE); // as CException
};

class QUORVEL_API CNotSupportedException : public CSimpleException { // not possible here
    DECLARE_DYNAMIC(CNotSupportedException)
public:
    explicit CNotSupportedException(BOOL autoDelete = TRUE); // as CException
};

class QUORVEL_API CResourceException : public CSimpleException { // a resource is missing
    DECLARE_DYNAMIC(CResourceException)
public:
    explicit CResourceException(BOOL autoDelete = TRUE); // as CException
};

class QUORVEL_API CUserException : public CSimpleException { // the user was notified
    DECLARE_DYNAMIC(CUserException)
public:
    explicit CUserException(BOOL autoDelete = TRUE); // as CException
};

class QUORVEL_API CInvalidArgException : public CSimpleException { // a bad argument
    DECLARE_DYNAMIC(CInvalidArgException)
public:
    explicit CInvalidArgException(BOOL autoDelete = TRUE); // as CException
};

class QUORVEL_API CFileException : public CException { // names cause, file and system error
    DECLARE_DYNAMIC(CFileException)
public:
    enum {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    // A null file name counts as empty.
    explicit CFileException(int cause = none, LONG osError = -1, const WCHAR* fileName = nullptr);

    // The text of the cause. A cause outside the enumeration has the text of genericException.
    BOOL GetErrorMessage(LPWSTR text, UINT maxChars, UINT* helpContext = nullptr) override;

    // The cause for a system error code; genericException for any other code.
    static int OsErrorToException(LONG osError);
    // Throws a new exception. Does nothing for code 0.
    static void ThrowOsError(LONG osError, const WCHAR* fileName = nullptr);

    int m_cause;           // one of the enumeration
    LONG m_lOsError;       // a system error code; -1: unknown
    CString m_strFileName; // empty when unknown
};

class QUORVEL_API CArchiveException : public CException { // damaged or unfit data in an archive
    DECLARE_DYNAMIC(CArchiveException)
public:
    enum {
        none,
        genericException,
        readOnly,  // stored into an archive that loads
        endOfFile, // nothing left to load
        writeOnly, // loaded from an archive that stores
        badIndex,
        badClass,
        badSchema
    };

    // A null file name counts as empty.
    explicit CArchiveException(int cause = none, const WCHAR* fileName = nullptr);

    // The text of the cause. A cause outside the enumeration has the text of genericException.
    BOOL GetErrorMessage(LPWSTR text, UINT maxChars, UINT* helpContext = nullptr) override;

    int m_cause;           // one of the enumeration
    CString m_strFileName; // empty when unknown
};

// Throw static objects and allocate no memory.
[[noreturn]] QUORVEL_API void AfxThrowMemoryException();
[[noreturn]] QUORVEL_API void AfxThrowNotSupportedException();
[[noreturn]] QUORVEL_API void AfxThrowResourceException();
[[noreturn]] QUORVEL_API void AfxThrowUserException();
[[noreturn]] QUORVEL_API void AfxThrowInvalidArgException();
// Throw new objects.
[[noreturn]] QUORVEL_API void AfxThrowFileException(int cause, LONG osError = -1,
                                                    const WCHAR* fileName = nullptr);
[[noreturn]] QUORVEL_API void AfxThrowArchiveException(int cause, const WCHAR* fileName = nullptr);
