// CHttpHeader: the status line and the fields of an HTTP response, read from its text.
//
// Copyable. One thread at a time may use an object. A failed allocation throws CMemoryException or
// std::bad_alloc.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/framework/map.h>
#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <memory>

class QUORVEL_API CHttpHeader {
public:
    static constexpr WCHAR DEFAULT_VERSION[] = _T("HTTP/1.1"); // of a new object

    CHttpHeader();
    CHttpHeader(const CHttpHeader& other);
    CHttpHeader& operator=(const CHttpHeader& other);

    // Reads a response with a complete header. Returns FALSE as long as the blank line is missing
    // (two line ends, CR LF each), and for a first line that is not a word, blanks and a decimal
    // number. The word becomes the version. The number, which may have a sign and is truncated to
    // 32 bits signed, becomes the status code. The reason is skipped.
    //
    // The old fields are then removed. A field is a line with a colon: the name before the first
    // colon and the value after it, both trimmed; a line with an empty name is ignored. A zero ends
    // a line. Names keep their letter case; a later field replaces an earlier one of the same name.
    // GetLength then counts the text up to and including the blank line. FALSE means that nothing
    // was changed.
    BOOL InitializeFromStream(const CString& text);

    // Finds the exact name. For null or a missing field returns FALSE, with the value unchanged.
    BOOL GetFieldValue(const WCHAR* name, CString& value) const;
    // The same, ignoring letter case, as HTTP compares names. An exact match has priority;
    // otherwise the first match in code order.
    BOOL FindFieldValue(const WCHAR* name, CString& value) const;
    void SetFieldValue(const WCHAR* name, const WCHAR* value); // ignored when one is null
    BOOL RemoveField(const WCHAR* name);                       // FALSE for null or a missing field
    void RemoveAllFields() { m_fields->RemoveAll(); }          // keeps the status line
    // The fields by their exact names.
    const CMapStringToString& GetFieldsMap() const { return *m_fields; }

    // The version and the code of the status line. Setters do not validate.
    CString GetVersion() const { return m_version; }
    void SetVersion(const WCHAR* version) { m_version = version; }
    UINT GetStatusCode() const { return m_statusCode; }
    void SetStatusCode(UINT code) { m_statusCode = code; }
    // The length of the header with its blank line, in characters. It is also the length in bytes,
    // since the sockets convert each byte to one character.
    UINT GetLength() const { return m_length; }
    void SetLength(UINT length) { m_length = length; }
    // A path for the host; the library neither sets nor reads it.
    CString GetLocalFilePath() const { return m_localFilePath; }
    void SetLocalFilePath(const WCHAR* path) { m_localFilePath = path; }

    // The field "Content-Length". 0 when it is missing, has anything but decimal digits, or does
    // not fit in 64 bits.
    ULONGLONG GetContentLength() const;
    // The size of a file with the whole response: header and content. Saturates at 64 bits.
    ULONGLONG GetFileLength() const;
    // The field "Last-Modified", read by AfxStringToDate; the empty date (0, valid) if that fails.
    COleDateTime GetLastModified() const;
    // Deliberate: 0 if the field "Transfer-Content" is "chunked" in any letter case, and another
    // number if it is different or missing.
    int IsChunked() const;

private:
    CString m_version;
    UINT m_statusCode = 0;
    UINT m_length = 0;
    CString m_localFilePath;
    std::unique_ptr<CMapStringToString> m_fields; // never null
};
