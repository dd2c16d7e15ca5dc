#include <quorvel/net/http_header.h>

#include <quorvel/util/calendar/date_parser.h>

#include "net/http_field_values.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <string_view>

namespace {

typedef std::basic_string_view<WCHAR> View;

constexpr View kLineEnd = _T("\r\n");
constexpr View kHeaderEnd = _T("\r\n\r\n");
constexpr View kBlanks = _T(" \t\n\v\f\r"); // white space in the C locale

View Trimmed(View text) {
    text.remove_prefix(std::min(text.size(), text.find_first_not_of(kBlanks)));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

CString TextOf(View text) {
    return CString(text.data(), static_cast<int>(text.size()));
}

View TakeLine(View& rest) {
    const View line = rest.substr(0, rest.find(kLineEnd));
    rest.remove_prefix(line.size() + kLineEnd.size());
    return line;
}

// Reads like scanf's %d. Limits a number beyond 32 bits to the nearest value.
bool ReadInteger(View text, int& number) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    const std::size_t length = std::min(text.size(), text.find_first_not_of(_T("0123456789")));
    std::int64_t value = 0;
    for (const WCHAR digit : text.substr(0, length))
        value = std::min<std::int64_t>(value * 10 + (digit - '0'), std::int64_t{INT_MAX} + 1);
    number =
        static_cast<int>(std::clamp<std::int64_t>(negative ? -value : value, INT_MIN, INT_MAX));
    return length > 0;
}

bool ReadStatusLine(View line, View& version, int& code) {
    const View text = Trimmed(line.substr(0, line.find(WCHAR{0})));
    version = text.substr(0, text.find_first_of(kBlanks));
    return !version.empty() && ReadInteger(Trimmed(text.substr(version.size())), code);
}

std::unique_ptr<CMapStringToString> CopyOf(const CMapStringToString& fields) {
    auto copy = std::make_unique<CMapStringToString>();
    for (POSITION next = fields.GetStartPosition(); next != nullptr;) {
        CString name;
        CString value;
        fields.GetNextAssoc(next, name, value);
        copy->SetAt(name, value);
    }
    return copy;
}

} // namespace

ULONGLONG quorvel::ReadContentLength(const CString& value) {
    constexpr ULONGLONG kMaximum = ~ULONGLONG{0};
    ULONGLONG length = 0;
    for (int i = 0; i < value.GetLength(); ++i) {
        const WCHAR digit = value[i];
        if (digit < '0' || digit > '9')
            return 0;
        const auto units = static_cast<ULONGLONG>(digit - '0');
        if (length > (kMaximum - units) / 10)
            return 0;
        length = length * 10 + units;
    }
    return length;
}

COleDateTime quorvel::ReadHttpDate(const CString& value) {
    constexpr int kDayMonthYear = 1;
    COleDateTime date;
    AfxStringToDate(value, date, kDayMonthYear);
    return date;
}

CHttpHeader::CHttpHeader()
    : m_version(DEFAULT_VERSION), m_fields(std::make_unique<CMapStringToString>()) {}

CHttpHeader::CHttpHeader(const CHttpHeader& other)
    : m_version(other.m_version), m_statusCode(other.m_statusCode), m_length(other.m_length),
      m_localFilePath(other.m_localFilePath), m_fields(CopyOf(*other.m_fields)) {}

CHttpHeader& CHttpHeader::operator=(const CHttpHeader& other) {
    auto fields = CopyOf(*other.m_fields); // only this step can fail, so it is first
    m_version = other.m_version;
    m_statusCode = other.m_statusCode;
    m_length = other.m_length;
    m_localFilePath = other.m_localFilePath;
    m_fields.swap(fields);
    return *this;
}

BOOL CHttpHeader::InitializeFromStream(const CString& text) {
    View rest(text.GetString(), static_cast<std::size_t>(text.GetLength()));
    const std::size_t end = rest.find(kHeaderEnd);
    if (end == rest.npos)
        return FALSE;
    rest = rest.substr(0, end + kHeaderEnd.size());
    View version;
    int code = 0;
    if (!ReadStatusLine(TakeLine(rest), version, code))
        return FALSE;
    CHttpHeader header;
    header.m_version = TextOf(version);
    header.m_statusCode = static_cast<UINT>(code);
    header.m_length = static_cast<UINT>(end + kHeaderEnd.size());
    header.m_localFilePath = m_localFilePath;
    for (View line = TakeLine(rest); !line.empty(); line = TakeLine(rest)) {
        const View field = line.substr(0, line.find(WCHAR{0}));
        const std::size_t colon = field.find(':');
        const View name = colon != field.npos ? Trimmed(field.substr(0, colon)) : View();
        if (!name.empty())
            header.SetFieldValue(TextOf(name), TextOf(Trimmed(field.substr(colon + 1))));
    }
    *this = header;
    return TRUE;
}

BOOL CHttpHeader::GetFieldValue(const WCHAR* name, CString& value) const {
    return name != nullptr && m_fields->Lookup(name, value);
}

BOOL CHttpHeader::FindFieldValue(const WCHAR* name, CString& value) const {
    if (name == nullptr || m_fields->Lookup(name, value))
        return name != nullptr;
    for (POSITION next = m_fields->GetStartPosition(); next != nullptr;) {
        CString eachName;
        CString eachValue;
        m_fields->GetNextAssoc(next, eachName, eachValue);
        if (eachName.CompareNoCase(name) != 0)
            continue;
        value = eachValue;
        return TRUE;
    }
    return FALSE;
}

void CHttpHeader::SetFieldValue(const WCHAR* name, const WCHAR* value) {
    if (name != nullptr && value != nullptr)
        m_fields->SetAt(name, value);
}

BOOL CHttpHeader::RemoveField(const WCHAR* name) {
    return name != nullptr && m_fields->RemoveKey(name);
}

ULONGLONG CHttpHeader::GetContentLength() const {
    CString value;
    GetFieldValue(_T("Content-Length"), value);
    return quorvel::ReadContentLength(value);
}

ULONGLONG CHttpHeader::GetFileLength() const {
    const ULONGLONG length = m_length + GetContentLength();
    return length >= m_length ? length : ~ULONGLONG{0};
}

COleDateTime CHttpHeader::GetLastModified() const {
    CString value;
    GetFieldValue(_T("Last-Modified"), value);
    return quorvel::ReadHttpDate(value);
}

int CHttpHeader::IsChunked() const {
    CString value;
    GetFieldValue(_T("Transfer-Content"), value);
    return value.CompareNoCase(_T("chunked"));
}
