// CHttpHeader: the status line and the fields of an HTTP response, read from its text.
//
// A plain value; one object may be used by one thread at a time. Lack of memory throws
// CMemoryException or std::bad_alloc.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/framework/map.h>
#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <memory>

class QUORVEL_API CHttpHeader {
public:
    static constexpr WCHAR DEFAULT_VERSION[] = _T("HTTP/1.1");

    CHttpHeader();
    CHttpHeader(const CHttpHeader& other);
    CHttpHeader& operator=(const CHttpHeader& other);

    // Reads a response, of which the header must be complete: FALSE until its blank line is there
    // (two line ends, CR LF each), and for a first line that is not a word, blanks and a decimal
    // number. That word is the version and the number, which may have a sign and is cut to 32 bits
    // signed, the status code; the reason is skipped.
    //
    // Fields of before are then removed. A field is a line with a colon: name and value, before and
    // behind the first one, lose the white space at their ends, and an empty name makes the line no
    // field. A zero ends a line. Names keep their letter case; a later field replaces one of the
    // same name. The length becomes that of the text up to and with the blank line. After FALSE
    // nothing has changed.
    BOOL InitializeFromStream(const CString& text);

    // By a field's exact name: FALSE for null or a missing field, and the value as it was.
    BOOL GetFieldValue(const WCHAR* name, CString& value) const;
    // The same in any letter case, as HTTP means names. The exact name comes first; of others that
    // differ in case alone the first in code order.
    BOOL FindFieldValue(const WCHAR* name, CString& value) const;
    void SetFieldValue(const WCHAR* name, const WCHAR* value); // nothing when one is null
    BOOL RemoveField(const WCHAR* name);
    void RemoveAllFields() { m_fields->RemoveAll(); }
    const CMapStringToString& GetFieldsMap() const { return *m_fields; }

    CString GetVersion() const { return m_version; }
    void SetVersion(const WCHAR* version) { m_version = version; }
    UINT GetStatusCode() const { return m_statusCode; }
    void SetStatusCode(UINT code) { m_statusCode = code; }
    // Characters of the header with its blank line: bytes of the response too, since the sockets
    // take every byte as one character.
    UINT GetLength() const { return m_length; }
    void SetLength(UINT length) { m_length = length; }
    CString GetLocalFilePath() const { return m_localFilePath; }
    void SetLocalFilePath(const WCHAR* path) { m_localFilePath = path; }

    // Of the field "Content-Length": 0 when it is missing or is not decimal digits alone, or more
    // than 64 bits hold.
    ULONGLONG GetContentLength() const;
    // What a file with the whole response has. Not more than 64 bits hold.
    ULONGLONG GetFileLength() const;
    // The field "Last-Modified" as AfxStringToDate reads it; the empty date (0, valid) otherwise.
    COleDateTime GetLastModified() const;
    // Deliberate: 0 exactly when the field "Transfer-Content" is "chunked" in any letter case, and
    // another number when it is anything else or missing.
    int IsChunked() const;

private:
    CString m_version;
    UINT m_statusCode = 0;
    UINT m_length = 0;
    CString m_localFilePath;
    std::unique_ptr<CMapStringToString> m_fields; // never null
};
