// XML files: loading and saving a CMarkup, encoding detection, and the exception class.
//
// Any thread. The caller owns the document and keeps other threads from using it meanwhile.
#pragma once

#include <quorvel/frame/lengthy_operation.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/xml/markup.h>

// What went wrong with an XML file. m_lOsError is -1.
class QUORVEL_API CXMLFileException : public CFileException {
    DECLARE_DYNAMIC(CXMLFileException)
public:
    enum {
        none,
        generic,
        invalidFileName,
        systemError,
        fileTooLarge,
        invalidFile,
        unsupportedEncoding,
        notWellFormed,
        untranslatableEncoding,
        internalError
    };

    // A cause outside the enumeration is stored as `generic`.
    explicit CXMLFileException(int cause = none, const WCHAR* fileName = nullptr);

    static BOOL IsValidCause(int cause); // one of the enumeration
    // The catalogue text of the cause, with its placeholder unfilled, truncated to `maxChars`
    // characters including the terminator. FALSE without a buffer or for a cause outside the
    // enumeration. Does not change *helpContext.
    BOOL GetErrorMessage(LPWSTR text, UINT maxChars, UINT* helpContext = nullptr) override;
};

QUORVEL_API BOOL AfxIsValidXMLFileExceptionCause(int cause); // in the enumeration
// The text to show for a cause: for `systemError` the system's text of GetLastError, for
// `fileTooLarge` with the size filled in, for a cause outside the enumeration that of `generic`.
// Returns FALSE and an empty text when there is no text.
QUORVEL_API BOOL AfxGetXMLFileExceptionErrorMessage(int cause, CString& text);
// Throws a new exception.
[[noreturn]] QUORVEL_API void AfxThrowXMLFileException(int cause, const WCHAR* fileName = nullptr);

// Detects the encoding of an XML file from its first bytes (Extensible Markup Language 1.0,
// appendix F): byte order marks, and "<" or "<?" in UTF-32, UTF-16, ASCII and EBCDIC. Returns
// non-zero on success. `encoding` is then a name, or empty for ASCII without a mark, where the
// declaration decides; `charSize` is in bytes. On failure, and for null bytes, the outputs are
// empty, FALSE and 0.
QUORVEL_API int AfxDetermineXMLFileEncoding(const BYTE* bytes, DWORD length, CString& encoding,
                                            BOOL& bigEndian, int& charSize, int& bomLength);

// Loads a file into the document. Returns non-zero on success; otherwise `errorText` has the
// reason. If the file cannot be read or decoded, the document stays and its positions are reset. If
// it can, document and declaration are replaced, well-formed or not. Deliberate: when nothing
// follows the declaration, the document stays (SetDoc refuses an empty text); for UTF-16 the old
// document then decides whether the file counts as well-formed.
//
// The encoding is that of the byte order mark or of the declaration, which must be at the very
// start: UTF-8, UTF-16 in both byte orders, and every single- or multi-byte code page that
// MultiByteToWideChar knows, EBCDIC included. UTF-32 is refused, and so are files of fewer than
// 5 or more than 2147483647 bytes. Deliberate: a file with neither mark nor declaration is
// refused (`unsupportedEncoding`), although XML reads it as UTF-8. AfxOpenXMLFile (open_xml_file.h)
// loads it; or read the bytes, convert them with AfxUTF8ToWideChar (quorvel/util/text/utf8.h) and
// call SetDoc. The declaration is removed from the text and stored with
// SetXMLDeclaration. Without one the document keeps its old declaration (deliberate).
// Deliberate, for UTF-16: the declaration is usually not stored, because it is offered with as many
// characters more, which would have to end in "?>". Deliberate: for encodings with
// 1-byte characters every refusal of the text is `untranslatableEncoding`; only UTF-16 reports
// `notWellFormed`.
//
// UTF-8, UTF-16 and the usual single-byte pages are converted while they are read, so only the text
// is in memory. For other encodings the bytes of the file are in memory as well.
QUORVEL_API int AfxLoadXMLFile(const WCHAR* fileName, CMarkup& markup, CString& errorText,
                               CLengthyOperationHandler* handler = nullptr);

// Saves the declaration and, directly after it, the document, including any declaration of
// its own. The encoding is UTF-8, or UTF-16 with a byte order mark, as the declaration says.
// Other encodings are refused, and so is a lone surrogate in UTF-8
// (`untranslatableEncoding`). Returns non-zero on success; otherwise `errorText` has the
// reason.
//
// An existing file is replaced only by a complete one: the text is written to a new file in the
// same folder, which then gets the name and the permissions of the old file (of its target, if the
// name is a symbolic link). If no second file can be created there, the file is written in place;
// its content is lost if that fails halfway.
QUORVEL_API int AfxSaveXMLFile(CMarkup& markup, const WCHAR* fileName, CString& errorText,
                               CLengthyOperationHandler* handler = nullptr);
