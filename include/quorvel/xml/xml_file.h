// XML files: loading and saving a CMarkup, encoding detection, and the exception of both.
//
// Any thread; the document belongs to the caller's.
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

    static BOOL IsValidCause(int cause);
    // The text of the cause as it stands in the catalogue, its insert not filled, cut to maxChars
    // characters with the terminating zero. FALSE for no buffer or a cause outside the enumeration.
    // The help context is not touched.
    BOOL GetErrorMessage(LPWSTR text, UINT maxChars, UINT* helpContext = nullptr) override;
};

QUORVEL_API BOOL AfxIsValidXMLFileExceptionCause(int cause);
// The text to show for a cause: the system's text of GetLastError for `systemError`, the size
// filled in for `fileTooLarge`, `generic` for a cause outside the enumeration. FALSE, and an empty
// text, when there is none.
QUORVEL_API BOOL AfxGetXMLFileExceptionErrorMessage(int cause, CString& text);
[[noreturn]] QUORVEL_API void AfxThrowXMLFileException(int cause, const WCHAR* fileName = nullptr);

// Recognises the encoding of an XML file by its first bytes (Extensible Markup Language 1.0,
// appendix F): byte order marks, and "<" or "<?" in UTF-32, UTF-16, ASCII and EBCDIC. Non-zero when
// it did. `encoding` is then a name, or empty for ASCII without a mark, where the declaration
// decides; `charSize` is in bytes. Otherwise, and for null bytes, the outputs are empty, FALSE and
// 0.
QUORVEL_API int AfxDetermineXMLFileEncoding(const BYTE* bytes, DWORD length, CString& encoding,
                                            BOOL& bigEndian, int& charSize, int& bomLength);

// Loads a file into the document. Non-zero on success; otherwise `errorText` says why. Up to the
// point where the text itself is tried nothing has changed but the positions, which are reset; then
// the declaration is stored and the document replaced, well-formed or not. Where nothing follows
// the declaration the document stays, and for UTF-16 it is then the one that is or is not
// well-formed (deliberate: SetDoc refuses an empty text).
//
// The encoding is that of the byte order mark or of the declaration, which is searched at the very
// start only: UTF-8, UTF-16 in both byte orders, and every single- or multi-byte code page that
// MultiByteToWideChar knows, EBCDIC included. UTF-32 is refused, and so are files of fewer than 5
// or more than 2147483647 bytes. Deliberate: a file with neither mark nor declaration is refused
// (`unsupportedEncoding`), although XML reads it as UTF-8. A caller that wants it reads the bytes,
// converts them with AfxUTF8ToWideChar (quorvel/util/text/utf8.h), which refuses what is not UTF-8,
// and calls SetDoc with the text. The declaration is taken off the
// text and stored with SetXMLDeclaration; without one the document keeps the one it had
// (deliberate; so is that for UTF-16 the declaration is offered with as many following characters
// as it has itself, and hence is stored only where these end in "?>"). Of 1-byte characters every
// refusal of the text is `untranslatableEncoding`; only UTF-16 reaches `notWellFormed`
// (deliberate).
//
// UTF-8, UTF-16 and the usual single-byte pages are converted while they are read, so that of such
// a file nothing but the text is in memory; of any other the bytes are as well.
QUORVEL_API int AfxLoadXMLFile(const WCHAR* fileName, CMarkup& markup, CString& errorText,
                               CLengthyOperationHandler* handler = nullptr);

// Saves the declaration and directly behind it the document, with any declaration of its own, as
// UTF-8, or as UTF-16 with a byte
// order mark, as the declaration's encoding says; other encodings are refused, and so is a lone
// surrogate in UTF-8 (`untranslatableEncoding`). Non-zero on success; otherwise `errorText` says
// why.
//
// What was there before is only replaced by a complete file: the text is written to a new file in
// the same folder, which then takes the name, the permissions and, where the name is a symbolic
// link, the place of the old one. Where no second file can be made in the folder, the file is
// written in place, and is lost where that fails once it has begun.
QUORVEL_API int AfxSaveXMLFile(CMarkup& markup, const WCHAR* fileName, CString& errorText,
                               CLengthyOperationHandler* handler = nullptr);
